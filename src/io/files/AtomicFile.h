#pragma once

#include "io/DrawingFile.h"

#include <QByteArrayView>
#include <QFile>
#include <QString>

#include <span>

/// A file that is written as a whole or not at all: its bytes go into a temporary file in the same
/// folder, are read back and compared, and take the place of the old file in one step. Until then,
/// and whenever anything fails, the old file is as it was. Where the path is a symbolic link, the
/// file it leads to is written.
class AtomicFile
{
public:
    /// Raises OdError_FileAccess when nothing can be written there.
    explicit AtomicFile(const QString& path);
    /// Removes the temporary file unless commit() was called.
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// Writes the parts to the disk and compares them with what the file holds then. Raises
    /// OdError_FileAccess, or OdError with Cancelled when the progress answers false.
    void write(std::span<const QByteArrayView> parts, const IoProgress& progress = {});
    /// Keeps the file that is about to be replaced under its name with "~" added. An empty text, or
    /// why it could not be kept.
    QString keepBackup();
    /// Replaces the file.
    void commit();

    /// Where the bytes are before commit().
    QString temporaryPath() const { return m_file.fileName(); }
    /// ContentHash over what was written.
    quint64 contentHash() const { return m_hash; }
    /// What identifies the file, before and after commit().
    const FileIdentity& identity() const { return m_identity; }

    /// The path without symbolic links in its last part; the target need not exist. Raises
    /// OdError_FileAccess for links that lead in a circle.
    static QString resolved(const QString& path);

private:
    void createTemporary();
    void removeLeftovers() const;
    QString temporaryName(const QString& unique) const;
    [[noreturn]] void fail(const QString& why) const;

    QString m_path; ///< as error sentences show it
    QString m_target;
    QFile m_file;
    quint64 m_hash = 0;
    FileIdentity m_identity;
    bool m_committed = false;
};
