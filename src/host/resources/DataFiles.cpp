#include "host/resources/DataFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

QString dataFile(const QString& name)
{
    const QDir program(QCoreApplication::applicationDirPath());
    const QString folders[] = {program.filePath(QStringLiteral("../share/kest")),
                               program.filePath(QStringLiteral("../" KEST_DATADIR "/kest"))};
    for (const QString& folder : folders) {
        const QFileInfo file(QDir(folder).filePath(name));
        if (file.exists())
            return QDir::cleanPath(file.absoluteFilePath());
    }
    return {};
}
