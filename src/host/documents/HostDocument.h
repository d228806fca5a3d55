#pragma once

#include "host/canvas/geometry/Vec3.h"
#include "host/documents/DocumentFileState.h"
#include "host/documents/DrawingSelection.h"
#include "host/documents/PickSource.h"
#include "host/documents/UndoNames.h"
#include "sdk/KsApDocManager.h"

#include <QObject>
#include <QSet>

#include <memory>
#include <optional>
#include <vector>

/// An open drawing: its database, its file, its undo history with command names.
class HostDocument : public QObject, public KsApDocument
{
    Q_OBJECT
public:
    /// `fileName` is the full path of the drawing's file, or the name of a drawing that has none
    /// yet.
    HostDocument(std::unique_ptr<OdDbDatabase> database, const QString& fileName, bool hasFile,
                 DocumentFileState file = {});
    ~HostDocument() override;

    OdDbDatabase* database() const override { return m_database.get(); }
    QString fileName() const override { return m_fileName; }
    bool hasMark(const QString& key) const override { return m_marks.contains(key); }
    void setMark(const QString& key) override { m_marks.insert(key); }

    bool hasFile() const { return m_hasFile; }
    /// The file's name without its folder.
    QString displayName() const;
    /// True when the drawing differs from what its file holds.
    bool isModified() const;
    /// Notes that the drawing as it is now was written to a file.
    void saved(const QString& path);
    /// Makes the drawing one that differs from its file until it is saved, whatever is undone.
    void markModified();
    /// True when the user opened it so, or when what was read cannot be written.
    bool isReadOnly() const;
    DocumentFileState& file() { return m_file; }
    const DocumentFileState& file() const { return m_file; }
    /// How the file on the disk relates to the drawing in memory.
    const FileLayout& fileLayout();

    DrawingSelection& selection() { return m_selection; }
    PickSource& picks() { return m_picks; }
    /// The point that was given last; what "@" counts from.
    Vec3 lastPoint() const { return m_lastPoint; }
    void setLastPoint(Vec3 point) { m_lastPoint = point; }

    /// Starts an undo record under a command's name, unless a group is open.
    void startUndoRecord(const QString& globalName);
    void endUndoRecord();
    UndoNames& undoNames() { return m_undoNames; }
    /// Takes the newest record back, or brings it again; false when there is none. Ends an open
    /// group.
    bool undo();
    bool redo();
    /// A group makes one undo step of the commands inside it.
    void beginUndoGroup();
    void endUndoGroup();
    bool isUndoGroupOpen() const { return m_groupOpen; }
    /// A mark is a place in the history to go back to. It ends an open group, and is gone once
    /// undo went behind it.
    void setUndoMark();
    int undoMarkCount() const { return static_cast<int>(m_undoMarks.size()); }
    /// Steps back to the newest mark and takes it away; all the way without one. The number of
    /// steps.
    int undoToMark();

signals:
    /// The file, or whether the drawing differs from it, may have changed.
    void fileStateChanged();

private:
    std::unique_ptr<OdDbDatabase> m_database;
    QString m_fileName;
    bool m_hasFile;
    bool m_groupOpen = false;
    std::optional<quint64> m_savedStamp; ///< of the edits that the file holds; null: of none
    DocumentFileState m_file;
    QSet<QString> m_marks;
    UndoNames m_undoNames;
    std::vector<std::size_t> m_undoMarks; ///< number of records before each
    DrawingSelection m_selection;
    PickSource m_picks;
    Vec3 m_lastPoint;
};
