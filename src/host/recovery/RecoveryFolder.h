#pragma once

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class QLockFile;

/// The folder that keeps the journals of unsaved edits. Each process marks its own, so that those
/// left behind by a process that is gone can be told.
class RecoveryFolder
{
public:
    /// The folder "recovery" in `configFolder`; when that is empty, where the desktop keeps the
    /// data of programs. Nothing is made until a journal is.
    explicit RecoveryFolder(const QString& configFolder);
    ~RecoveryFolder();
    RecoveryFolder(const RecoveryFolder&) = delete;
    RecoveryFolder& operator=(const RecoveryFolder&) = delete;

    /// A journal that nobody writes any more. While one lives, no other process finds it.
    struct Abandoned
    {
        QString path;
        std::shared_ptr<QLockFile> claim;
    };

    const QString& path() const { return m_path; }
    std::vector<Abandoned> abandoned() const;
    /// A path for a new journal of this process. Raises OdError_FileAccess when the folder cannot
    /// be made.
    QString newJournal();
    /// Gives a journal a name under which it is not found again, and returns its path.
    static QString setAside(const QString& journal);

private:
    QString lockPath(const QString& session) const;

    QString m_path;
    QString m_session;
    std::unique_ptr<QLockFile> m_mark;
    int m_count = 0;
};
