#pragma once

#include "database/states/DrawingLayers.h"

/// Brings saved settings back to layers.
namespace SavedSettings {

/// Sets on the layer, which is open for write, what the mask names and the entry has: on, frozen,
/// locked, plot and frozen-in-new-viewports, colour, linetype, lineweight, plot style,
/// transparency. The current layer is never frozen. A linetype or plot style that is gone leaves
/// the layer's own.
void apply(const StoredLayer& saved, int mask, const DrawingLayers& drawing,
           OdDbLayerTableRecord& layer);

/// Makes colour, linetype, lineweight, plot style and transparency what the viewport shows: an
/// override where the layer's own value differs, none where it is the same.
void applyAsOverrides(const StoredLayer& saved, int mask, const DrawingLayers& drawing,
                      OdDbObjectId viewport, OdDbLayerTableRecord& layer);

} // namespace SavedSettings
