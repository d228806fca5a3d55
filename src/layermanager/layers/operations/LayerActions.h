#pragma once

#include "layermanager/layers/operations/LayerOutcome.h"
#include "layermanager/layers/operations/UndoRecordOnDemand.h"

#include <span>

// Commands on selected layers. Each opens one undo record, where there is anything to change.

/// Makes the layer current; the message tells that it cannot be. Nothing changes where it is
/// already.
LayerOutcome setCurrentLayer(OdDbDatabase& database, OdDbObjectId layer);

/// Turns the selected layers on and the other listed ones off, then makes the first selected one
/// current where it can be. Nothing without a selection.
LayerOutcome isolateLayers(OdDbDatabase& database, std::span<const OdDbObjectId> selected,
                           std::span<const OdDbObjectId> listed);

/// Marks layers as reviewed.
LayerOutcome reconcileLayers(OdDbDatabase& database, std::span<const OdDbObjectId> layers);

/// Freezes or thaws layers in every viewport of every layout, those of the sheets themselves
/// included. Only while a layout is current. The changed layers are those that differ in any
/// viewport.
LayerOutcome freezeInAllViewports(OdDbDatabase& database, std::span<const OdDbObjectId> layers,
                                  bool frozen, LayerUndo undo = LayerUndo::Opens);
