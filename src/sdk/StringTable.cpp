#include "sdk/StringTable.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(resourceLog, "kest.resource")

}

StringTable readStringTable(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qCWarning(resourceLog).noquote() << path << "cannot be read:" << file.errorString();
        return {};
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError) {
        qCWarning(resourceLog).noquote()
            << path << "is no string table:" << error.errorString() << "at byte" << error.offset;
        return {};
    }
    if (!document.isObject()) {
        qCWarning(resourceLog).noquote()
            << path << "is no string table: expected an object of id to text";
        return {};
    }
    StringTable table;
    const QJsonObject entries = document.object();
    for (auto it = entries.begin(); it != entries.end(); ++it) {
        bool isNumber = false;
        const int id = it.key().toInt(&isNumber);
        if (isNumber && it.value().isString())
            table.insert(id, it.value().toString());
        else
            qCWarning(resourceLog).noquote()
                << path << "has an entry that is left out:" << it.key();
    }
    return table;
}

QString findStringTable(const QString& modulePath, const QString& localeName)
{
    const QFileInfo module(modulePath);
    const QString stem =
        module.path() + QLatin1Char('/') + module.completeBaseName() + QLatin1Char('_');
    for (const QString& language : {localeName, localeName.section(QLatin1Char('_'), 0, 0)}) {
        QString path = stem + language + QStringLiteral(".json");
        if (!language.isEmpty() && QFileInfo::exists(path))
            return path;
    }
    return {};
}
