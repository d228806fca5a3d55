#pragma once

#include "layermanager/layers/operations/LayerOutcome.h"

#include <span>

class OdDbDatabase;
class OdDbLayerTableRecord;

/// What keeps a layer in the drawing.
enum class LayerKeeper {
    None,
    EveryDrawing, ///< layer 0 and Defpoints
    Current,
    Objects, ///< entities of any block, their vertices and attributes, viewports, block frames
    ExternalReference,
};

/// What keeps the layer. Whether objects do is answered by the table's usage data, which has to be
/// there.
LayerKeeper layerKeeper(const OdDbLayerTableRecord& layer);
/// A reason as part of a refusal: "objects lie on it".
QString layerKeeperText(LayerKeeper keeper);

/// Erases the layers that nothing keeps, in one undo record, with what hangs on them and what in
/// viewports, groups and layer states refers to them. The message tells once that others stay.
LayerOutcome deleteLayers(OdDbDatabase& database, std::span<const OdDbObjectId> layers);
