#pragma once

#include "layermanager/layers/operations/LayerCommandTable.h"
#include "layermanager/layers/operations/NewLayer.h"

#include <optional>
#include <vector>

/// The rows of a grid, top to bottom.
struct LayerRows
{
    std::vector<OdDbObjectId> selected;
    std::vector<OdDbObjectId> listed;
};

/// The state of a grid over the drawing, for isLayerCommandEnabled(). Reads the layers: to be asked
/// for when a menu opens, not with every repaint.
LayerCommandState layerCommandState(const OdDbDatabase& database, const LayerRows& rows);

/// Runs a command that changes layers or only has something to say. Nothing for commands that need
/// the grid or a dialog (rename, describe, selections, layer states), and for identifiers that are
/// none.
std::optional<LayerOutcome> runLayerCommand(OdDbDatabase& database, int id, const LayerRows& rows,
                                            const NewLayerListener& tell = {});
