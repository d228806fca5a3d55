#pragma once

#include <QString>

class QFile;

/// What the operating system is asked to do with files beyond reading and writing. Each answers
/// whether it was done; lastError() says why not.
namespace disk_calls {

/// Everything written so far has reached the disk.
bool sync(QFile& file);
/// The folder's entries have reached the disk. Not every file system can tell; then nothing
/// happens.
void syncFolder(const QString& folder);
/// Gives a file another name in one step, over a file that has that name already.
bool replace(const QString& from, const QString& to);
/// Whether this user may change what a file holds.
bool mayWrite(const QString& file);
/// A second name for a file.
bool link(const QString& file, const QString& name);
/// Gives an open file the owner (where that is permitted) and the permissions of another.
void copyAccess(const QString& from, QFile& to);
/// Marks an open file as in use until it is closed or its process ends, however it ends.
void markInUse(QFile& file);
/// Whether nobody uses a file that was once marked.
bool isAbandoned(const QString& path);
/// Why the last call failed, as the system puts it.
QString lastError();

} // namespace disk_calls
