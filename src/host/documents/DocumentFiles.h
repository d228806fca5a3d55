#pragma once

#include "host/application/HostFrontEnd.h"
#include "host/documents/DocumentFileState.h"

class HostDocManager;
class HostSysvarManager;
struct RecoveryJournal;

/// Opening, saving and closing: the drawings on one side, their files on the other. Everything that
/// fails raises OdError and leaves files and documents as they were.
class DocumentFiles
{
public:
    /// How a drawing's file came to be since it was read or written.
    enum class Change { None, Changed, Gone };

    DocumentFiles(HostDocManager& documents, const HostSysvarManager& sysvars)
        : m_documents(documents)
        , m_sysvars(sysvars)
    { }
    void setFrontEnd(HostFrontEnd& frontEnd) { m_frontEnd = &frontEnd; }
    /// Whether open drawings are marked as being edited, which is so from the start.
    void setLocking(bool locks) { m_locks = locks; }

    /// Opens the drawing of that file; a drawing that is open already becomes current. Where
    /// another process edits it, the user is asked; in a script it is opened, and not saved over.
    HostDocument& open(const QString& path);
    /// Opens the drawing of a journal with the edits that the journal keeps; it counts as
    /// modified. Raises OdError_FileAccess when its file is gone or not the one that was edited.
    HostDocument& openRecovered(const RecoveryJournal& journal);
    /// Reads the drawing's file again, in place of the drawing as it is. Undo starts anew.
    HostDocument& reload(HostDocument& document);
    /// A new drawing, "Drawing1" or the next free number.
    HostDocument& createNew();
    /// Why the drawing of a file can only be read, for the user; empty where it can be written.
    static QString readOnlySentence(const HostDocument& document);
    /// Raises OdError_FileAccess with that sentence.
    static void requireWritable(const HostDocument& document);
    /// Writes the drawing to its own file. Raises OdError_FileAccess for a drawing that is
    /// read-only, and, unless `overwrites`, for a file that somebody else changed.
    SaveReport save(HostDocument& document, bool overwrites = false);
    /// Writes the drawing to that file, which becomes its own. The ending of its format is added to
    /// names without suffix.
    SaveReport saveAs(HostDocument& document, const QString& path);

    /// Whether an empty document that nobody touched stands alone: opening a file takes its place.
    static bool isPristine(const HostDocument& document);
    static Change changeOf(const HostDocument& document);

private:
    DocumentFileState claim(const QString& path);
    static void settleLock(DocumentFileState& state, const OdDbDatabase& drawing);
    HostDocument& add(std::unique_ptr<OdDbDatabase> drawing, const QString& path,
                      DocumentFileState state);
    std::unique_ptr<DrawingLock> lockForSaving(HostDocument& document, const QString& path) const;
    SaveReport write(HostDocument& document, const QString& path);

    HostDocManager& m_documents;
    const HostSysvarManager& m_sysvars;
    bool m_locks = true;
    HostFrontEnd* m_frontEnd = nullptr;
    int m_newCount = 0;
};
