#pragma once

#include <QString>

class QFile;

/// What tells whether the file at a path is still the one that was read or written: replaced files
/// have another id, rewritten ones another time or size.
struct FileIdentity
{
    bool exists = false;
    quint64 size = 0;
    qint64 modified = 0; ///< nanoseconds since 1970, as finely as the file system keeps them
    quint64 file = 0; ///< the file's number in its volume; 0 where there is none
    quint64 volume = 0;

    bool operator==(const FileIdentity&) const = default;

    /// Follows symbolic links.
    static FileIdentity of(const QString& path);
    static FileIdentity of(const QFile& openFile);
};
