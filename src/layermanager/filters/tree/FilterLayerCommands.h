#pragma once

#include "database/values/OdDbObjectId.h"

#include <vector>

class OdDbDatabase;

/// The layers of a filter, and the drawing's other ones.
struct FilterLayers
{
    std::vector<OdDbObjectId> in;
    std::vector<OdDbObjectId> other;
};

/// Whether a command of the tree changes layers.
bool isFilterLayerCommand(int id);

/// Does a command of the tree to layers, in one undo record. Layers that cannot be opened are left
/// as they are, and the current layer is not frozen. Commands for the viewport worked in do nothing
/// without one, or without layers. False where nothing was to be done.
bool changeLayersOfFilter(OdDbDatabase& database, int id, const FilterLayers& layers);
