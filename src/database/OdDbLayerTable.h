#pragma once

#include "database/OdDbSymbolTable.h"

/// The layer table.
class OdDbLayerTable : public OdDbSymbolTable
{
public:
    static constexpr const char* kClassName = "OdDbLayerTable";
    static bool isKind(OdDbObjectKind kind) { return kind == OdDbObjectKind::SymbolTable; }

    OdDbLayerTable()
        : OdDbSymbolTable(OdDbTableKind::Layer)
    {
    }

    /// Counts, for every layer, the entities of all blocks that lie on it; isInUse() answers from
    /// the last count. One pass over the entity index.
    void generateUsageData() const;

    /// Position of each record in the case-insensitive order of names, by slotsInOrder() position.
    /// Computed when first asked for and after names changed.
    const std::vector<quint32>& nameRanks() const;
};

using OdDbLayerTablePtr = OdSmartPtr<OdDbLayerTable>;
