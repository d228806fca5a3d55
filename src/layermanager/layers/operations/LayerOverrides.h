#pragma once

#include "layermanager/layers/operations/LayerOutcome.h"

#include <span>

class OdDbDatabase;

/// Which of the things that differ in viewports are taken back.
enum class OverrideScope {
    ActiveViewport, ///< all of a layer, in the active viewport
    AllViewports, ///< all of a layer
    PropertiesInActiveViewport, ///< color, linetype, lineweight and plot style
    PropertiesInEachLayout, ///< the same, in the active viewport of each layout
};

/// Takes overrides back, in one undo record. Without an active viewport, as in model space, there
/// is nothing to do in one.
LayerOutcome removeLayerOverrides(OdDbDatabase& database, OverrideScope scope,
                                  std::span<const OdDbObjectId> layers);

/// Whether any of the layers has an override that removeLayerOverrides() would take back.
bool haveLayerOverrides(const OdDbDatabase& database, OverrideScope scope,
                        std::span<const OdDbObjectId> layers);
