#pragma once

#include "base/WildcardPattern.h"
#include "database/objects/OdDbEntity.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/filters/LayerFilterRow.h"

#include <optional>

class OdDbDatabase;

/// A row made ready for many layers: its pattern compiled, the current viewport looked up once. It
/// holds for as long as the drawing's current viewport stays, and keeps that viewport open where
/// the row asks what is frozen there: not to be kept beyond one walk over the layers.
class LayerRowMatcher
{
public:
    LayerRowMatcher(const OdDbDatabase& database, const LayerFilterRow& row)
        : LayerRowMatcher(row, currentViewport(database))
    { }
    /// For many rows of one drawing: with the viewport asked for once.
    LayerRowMatcher(const LayerFilterRow& row, OdDbObjectId viewport);

    /// The viewport that rows ask about; a null id in model space.
    static OdDbObjectId currentViewport(const OdDbDatabase& database);

    /// Whether the layer meets every criterion that the row sets. Usage must have been counted.
    bool matches(const OdDbLayerTableRecord& layer) const;

private:
    bool usageMatches(const OdDbLayerTableRecord& layer) const;
    bool flagsMatch(const OdDbLayerTableRecord& layer) const;
    bool looksMatch(const OdDbLayerTableRecord& layer) const;

    LayerFilterRow m_row;
    std::optional<WildcardPattern> m_name;
    OdDbObjectId m_viewport; ///< null in model space
    OdDbViewportPtr m_freezing; ///< open where the row asks what is frozen there
};

/// Whether one layer meets every criterion that a row sets. Takes the open record and closes it on
/// every path.
bool LayerMatchesRow(const OdDbDatabase& database, const LayerFilterRow& row,
                     OdDbLayerTableRecordPtr layer);
