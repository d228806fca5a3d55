#pragma once

#include "layermanager/layers/LayerCells.h"
#include "layermanager/layers/operations/LayerOperations.h"

#include <span>
#include <vector>

// Edits of one layer, each after its rule. None opens an undo record. Of all parameters `layer` may
// be an id of any kind: what is no layer is refused.

/// What became of an edit.
struct LayerEditOutcome
{
    bool changed = false;
    QString refusal; ///< why the layer stays as it is, as a message tells it; else empty
};

/// Gives a property a value: in the context's viewport for the columns of viewports, which need
/// one. Whether the current layer may be turned off was asked before.
LayerEditOutcome giveLayerValue(OdDbObjectId layer, LayerColumn column, const LayerValue& value,
                                const LayerCellContext& context);
LayerEditOutcome renameLayer(OdDbObjectId layer, const QString& name);
LayerEditOutcome describeLayer(OdDbObjectId layer, const QString& text);
LayerEditOutcome makeLayerCurrent(OdDbObjectId layer);

/// The layers that are not frozen, or not thawed, in the viewport yet, each once.
std::vector<OdDbObjectId> layersToFreeze(OdDbObjectId viewport,
                                         std::span<const OdDbObjectId> layers, bool frozen);

/// Freezes or thaws layers in a viewport, all at once. Those that changed.
std::vector<OdDbObjectId> freezeLayersInViewport(OdDbObjectId viewport,
                                                 std::span<const OdDbObjectId> layers, bool frozen);

/// Marks layers as reviewed, or as new. In a drawing that was never reviewed a new layer would make
/// new ones of all others too; they are marked as reviewed then. Those that changed.
std::vector<OdDbObjectId>
markLayersReconciled(OdDbDatabase& database, std::span<const OdDbObjectId> layers, bool reconciled);

/// Why the layer cannot be current; empty where it can.
QString currentLayerRefusal(const OdDbLayerTableRecord& layer);
/// Why no layer may have that name; empty where one may.
QString layerNameRefusal(const QString& name);
/// What is said to somebody who wants to make several layers current.
QString severalCurrentLayersText();
