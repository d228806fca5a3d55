#pragma once

#include <QStringList>

class ParsedCommand;
struct FileIdentity;

/// Where edited drawings are written.
class SaveTargets
{
public:
    /// Raises UsageError where it is not said, or said twice, or a target would be one of the
    /// drawings, or that of two. Nothing is written here.
    SaveTargets(const ParsedCommand& command, const QStringList& files);

    bool isInPlace() const { return m_isInPlace; }
    /// Whether drawings are written at all.
    bool isWritten() const { return !m_isDryRun; }
    /// The file that a drawing goes to; empty in a dry run that names none.
    QString targetOf(const QString& file) const;
    /// Makes the folder of the targets where it is missing. Raises OdError_FileAccess.
    void makeFolder() const;

private:
    void requireOwnFiles(const QStringList& files) const;

    QString m_output; ///< empty: none
    bool m_isFolder = false;
    bool m_isInPlace;
    bool m_isDryRun;
};

/// Raises OdError_FileAccess unless the file is still the one that was read.
void requireUnchanged(const QString& file, const FileIdentity& whenRead);
