#include "io/files/FileIdentity.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {
#ifdef Q_OS_UNIX
FileIdentity fromStatus(const struct stat& status)
{
#ifdef Q_OS_DARWIN
    const timespec& time = status.st_mtimespec;
#else
    const timespec& time = status.st_mtim;
#endif
    return {true, static_cast<quint64>(status.st_size),
            static_cast<qint64>(time.tv_sec) * 1000000000 + static_cast<qint64>(time.tv_nsec),
            static_cast<quint64>(status.st_ino), static_cast<quint64>(status.st_dev)};
}
#else
FileIdentity fromInfo(const QFileInfo& info)
{
    if (!info.exists())
        return {};
    return {true, static_cast<quint64>(info.size()),
            info.lastModified().toMSecsSinceEpoch() * 1000000, 0, 0};
}
#endif
} // namespace

FileIdentity FileIdentity::of(const QString& path)
{
#ifdef Q_OS_UNIX
    struct stat status
    { };
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    return fromStatus(status);
#else
    return fromInfo(QFileInfo(path));
#endif
}

FileIdentity FileIdentity::of(const QFile& openFile)
{
#ifdef Q_OS_UNIX
    struct stat status
    { };
    if (fstat(openFile.handle(), &status) != 0)
        return {};
    return fromStatus(status);
#else
    return fromInfo(QFileInfo(openFile.fileName()));
#endif
}
