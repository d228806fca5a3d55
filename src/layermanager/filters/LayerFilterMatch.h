#pragma once

#include "base/WildcardPattern.h"
#include "database/OdDbLayerTableRecord.h"
#include "layermanager/filters/LayerFilterRow.h"

#include <optional>

class OdDbDatabase;

/// A row made ready for many layers: its pattern compiled, the current viewport looked up once. It
/// holds for as long as the drawing's current viewport and what is frozen there stay.
class LayerRowMatcher
{
public:
    LayerRowMatcher(const OdDbDatabase& database, const LayerFilterRow& row);

    /// Whether the layer meets every criterion that the row sets. Usage must have been counted.
    bool matches(const OdDbLayerTableRecord& layer) const;

private:
    LayerFilterRow m_row;
    std::optional<WildcardPattern> m_name;
    OdDbObjectId m_viewport; ///< null in model space
};

/// Whether one layer meets every criterion that a row sets. Takes the open record and closes it on
/// every path.
bool LayerMatchesRow(const OdDbDatabase& database, const LayerFilterRow& row,
                     OdDbLayerTableRecordPtr layer);
