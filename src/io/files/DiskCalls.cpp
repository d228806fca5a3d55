#include "io/files/DiskCalls.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace disk_calls {

#ifdef Q_OS_WIN

namespace {
const wchar_t* wide(const QString& path)
{
    return reinterpret_cast<const wchar_t*>(path.utf16());
}
} // namespace

bool sync(QFile& file)
{
    return FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()))) != 0;
}

void syncFolder(const QString&)
{ }

bool replace(const QString& from, const QString& to)
{
    return MoveFileExW(wide(from), wide(to), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)
        != 0;
}

bool mayWrite(const QString& file)
{
    SetLastError(ERROR_ACCESS_DENIED);
    return QFileInfo(file).isWritable();
}

bool link(const QString& file, const QString& name)
{
    return CreateHardLinkW(wide(name), wide(file), nullptr) != 0;
}

void copyAccess(const QString& from, QFile& to)
{
    to.setPermissions(QFileInfo(from).permissions());
}

// An open file cannot be removed here: that is mark enough.
void markInUse(QFile&)
{ }

bool isAbandoned(const QString&)
{
    return true;
}

QString lastError()
{
    return qt_error_string(static_cast<int>(GetLastError()));
}

#else

bool sync(QFile& file)
{
#ifdef Q_OS_DARWIN
    // Here fsync() leaves the bytes in the cache of the drive.
    if (fcntl(file.handle(), F_FULLFSYNC) == 0)
        return true;
#endif
    // File systems without a disk behind them have nothing to do and say so.
    return fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP;
}

void syncFolder(const QString& folder)
{
    const int handle =
        open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    fsync(handle);
    close(handle);
}

bool replace(const QString& from, const QString& to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

bool mayWrite(const QString& file)
{
    return access(QFile::encodeName(file).constData(), W_OK) == 0;
}

bool link(const QString& file, const QString& name)
{
    return ::link(QFile::encodeName(file).constData(), QFile::encodeName(name).constData()) == 0;
}

void copyAccess(const QString& from, QFile& to)
{
    struct stat status
    { };
    if (stat(QFile::encodeName(from).constData(), &status) != 0)
        return;
    // The group alone where the owner may not be given away.
    if (fchown(to.handle(), status.st_uid, status.st_gid) != 0
        && fchown(to.handle(), static_cast<uid_t>(-1), status.st_gid) != 0)
        errno = 0;
    fchmod(to.handle(), status.st_mode & 07777);
}

void markInUse(QFile& file)
{
    flock(file.handle(), LOCK_EX | LOCK_NB);
}

bool isAbandoned(const QString& path)
{
    const int handle = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (handle < 0)
        return false;
    const bool isFree = flock(handle, LOCK_EX | LOCK_NB) == 0;
    close(handle);
    return isFree;
}

QString lastError()
{
    return qt_error_string(errno);
}

#endif

} // namespace disk_calls
