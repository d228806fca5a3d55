#include "support/drawings/SharedDrawings.h"

#include "database/values/OdError.h"
#include "io/DrawingFile.h"

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

void SharedDrawings::eachReadable(
    const std::function<void(const QString& path, std::unique_ptr<OdDbDatabase>)>& visit)
{
    for (const QString& path : files()) {
        std::unique_ptr<OdDbDatabase> drawing;
        try {
            drawing = readDrawing(path);
        } catch (const OdError&) {
            continue;
        }
        visit(path, std::move(drawing));
    }
}

QByteArray SharedDrawings::skipSentence()
{
    return QStringLiteral("skipped: the folder of real drawings, %1, is absent")
        .arg(QDir::toNativeSeparators(folder()))
        .toUtf8();
}
