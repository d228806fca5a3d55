#pragma once

#include "layermanager/layers/LayerCells.h"

#include <vector>

/// What the grid's rows are ordered by.
struct LayerSortOrder
{
    LayerColumn column = LayerColumn::Name;
    bool ascending = true;
};

/// Orders the layers of one drawing; each layer's key is read once. Layers with equal keys follow
/// each other by name, A to Z in both directions. O(n log n), and O(n) by name.
void sortLayers(std::vector<OdDbObjectId>& layers, LayerSortOrder order,
                const LayerCellContext& context);
