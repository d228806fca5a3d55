#pragma once

#include "database/OdDbSymbolTable.h"

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

    /// Finds, for every layer, whether an entity of any block lies on it; isInUse() answers from
    /// the last pass. One pass over the entity index.
    void generateUsageData() const;

    /// Position of each record in the case-insensitive order of names, by slotsInOrder() position.
    /// Computed when first asked for and after names changed.
    const std::vector<quint32>& nameRanks() const;

protected:
    void namesChanged() override { m_ranks.clear(); }

private:
    mutable std::vector<quint32> m_ranks;
};

using OdDbLayerTablePtr = OdSmartPtr<OdDbLayerTable>;
