#include "host/resources/DataFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {
/// Where the source tree keeps what is installed into one folder.
const char* const kSourceFolders[] = {"docs", "share"};
} // namespace

QString dataFile(const QString& name)
{
    const QDir program(QCoreApplication::applicationDirPath());
    QStringList folders{program.filePath(QStringLiteral("../share/kest")),
                        program.filePath(QStringLiteral("../" KEST_DATADIR "/kest"))};
    for (const char* folder : kSourceFolders)
        folders << QStringLiteral(KEST_SOURCE_DIR "/") + QLatin1String(folder);
    for (const QString& folder : std::as_const(folders)) {
        const QFileInfo file(QDir(folder).filePath(name));
        if (file.exists())
            return QDir::cleanPath(file.absoluteFilePath());
    }
    return {};
}
