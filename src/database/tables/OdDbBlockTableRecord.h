#pragma once

#include "database/tables/OdDbSymbolTable.h"

#include <utility>
#include <vector>

struct BlockState
{
    QString name;
    OdDbObjectId layout; ///< null for plain blocks
    double basePoint[3] = {0, 0, 0};
    int flags = 0; ///< 1 anonymous, 2 attributes, 4 xref, 8 overlay, 16 dependent, 32 resolved
    QString path; ///< of the external reference
    bool unloaded = false;
};

/// Entities of a block: consecutive slots [first, end). Other records may stand between them.
struct EntityRun
{
    quint32 first = 0;
    quint32 end = 0;
};

/// A block: a plain one, or the space of a layout.
class OdDbBlockTableRecord : public OdDbStateful<OdDbSymbolTableRecord, BlockState>
{
public:
    static constexpr const char* kClassName = "OdDbBlockTableRecord";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::BlockTableRecord; }

    OdDbObjectKind kind() const override { return OdDbObjectKind::BlockTableRecord; }
    QString getName() const override { return m_state.name; }
    bool isDependent() const override { return (m_state.flags & 16) != 0; }
    bool isFromExternalReference() const { return (m_state.flags & 4) != 0; }
    /// An overlay does not show in drawings that refer to this one.
    bool isFromOverlayReference() const { return (m_state.flags & 12) == 12; }
    /// False where the file of the reference was not found when the drawing was written.
    bool isResolved() const { return (m_state.flags & 32) != 0; }
    bool isUnloaded() const { return m_state.unloaded; }
    /// Path of the external reference as the drawing has it; nothing is read from there.
    const QString& pathName() const { return m_state.path; }
    bool isLayout() const { return !m_state.layout.isNull(); }
    OdDbObjectId getLayoutId() const { return m_state.layout; }
    const double* origin() const { return m_state.basePoint; }

    /// Where the block's entities stand in the object store, in drawing order. Filter with
    /// ObjectStore::owner(), since runs of the ENTITIES section mix spaces.
    const std::vector<EntityRun>& entityRuns() const { return m_runs; }
    void addRun(EntityRun run)
    {
        if (!m_runs.empty() && m_runs.back().end == run.first)
            m_runs.back().end = run.end;
        else
            m_runs.push_back(run);
    }
    /// Slot of the record that opens the block's definition; kNoSlot where there is none.
    quint32 blockSlot() const { return m_blockSlot; }
    void setBlockSlot(quint32 slot) { m_blockSlot = slot; }

private:
    std::vector<EntityRun> m_runs;
    quint32 m_blockSlot = OdDbObjectId::kNoSlot;
};

using OdDbBlockTableRecordPtr = OdSmartPtr<OdDbBlockTableRecord>;
