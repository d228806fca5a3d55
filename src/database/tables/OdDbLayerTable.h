#pragma once

#include "database/tables/OdDbSymbolTable.h"

#include <optional>
#include <unordered_map>

struct LayerState;

/// The layer table.
class OdDbLayerTable : public OdDbSymbolTable
{
public:
    static constexpr const char* kClassName = "OdDbLayerTable";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::LayerTable; }

    OdDbLayerTable()
        : OdDbSymbolTable(OdDbTableKind::Layer)
    { }

    OdDbObjectKind kind() const override { return OdDbObjectKind::LayerTable; }

    /// Adds a layer with the properties of a new one: on, thawed, colour 7, Continuous, default
    /// lineweight, the plot style of layer 0. Undoable. Raises OdError with InvalidKey (empty
    /// name) or DuplicateKey.
    OdDbObjectId add(const QString& name);
    /// Adds a layer in that state. Raises as above.
    OdDbObjectId add(const LayerState& state);
    /// The state that add() gives a layer of that name.
    LayerState newLayerState(const QString& name) const;

    /// Counts, for every layer, the entities of all blocks, their vertices and attributes and the
    /// block frames that lie on it. The first call makes one pass over the record index; edits,
    /// undo and redo keep the counts right from then on.
    void generateUsageData() const;
    /// Number of references to a layer; 0 before the first generateUsageData().
    quint32 useCount(quint32 layerSlot) const;
    void useChanged(quint32 layerSlot, int by);

    /// Whether any layer has a stored reconciled flag: without one there is no baseline that a
    /// layer could be new against. The first call reads all layers.
    bool hasReconciledBaseline() const;
    /// Marks all layers as reviewed where there is no baseline, so that a layer which is marked as
    /// new then is the only new one. Undoable.
    void startReconciledBaseline();
    void reconciledRecordsChanged(int by);

    /// Position of each record in the case-insensitive order of names, by slotsInOrder() position.
    /// Computed when first asked for and after names changed.
    const std::vector<quint32>& nameRanks() const;

protected:
    void namesChanged() override { m_ranks.clear(); }

private:
    mutable std::vector<quint32> m_ranks;
    mutable std::unordered_map<quint32, quint32> m_uses; ///< by layer slot; layers in use only
    mutable bool m_usesKnown = false;
    mutable std::optional<int> m_reconciledRecords;
};
