#include "support/SharedDrawings.h"

#include <QDir>

bool SharedDrawings::available()
{
    return !folder().isEmpty() && QDir(folder()).exists();
}

QString SharedDrawings::folder()
{
    const QString chosen = qEnvironmentVariable("KEST_SHARED_DRAWINGS");
    if (!chosen.isEmpty())
        return QDir::cleanPath(chosen);
    return QDir::cleanPath(QStringLiteral(KEST_SOURCE_DIR "/../shared/drawings"));
}

QString SharedDrawings::file(const QString& name)
{
    return QDir(folder()).filePath(name);
}

QStringList SharedDrawings::files(const QStringList& nameFilters)
{
    const QDir dir(folder());
    QStringList paths;
    for (const QString& name : dir.entryList(nameFilters, QDir::Files, QDir::Name))
        paths.append(dir.filePath(name));
    return paths;
}

QByteArray SharedDrawings::skipSentence()
{
    return QStringLiteral("skipped: the folder of real drawings, %1, is absent")
        .arg(QDir::toNativeSeparators(folder()))
        .toUtf8();
}
