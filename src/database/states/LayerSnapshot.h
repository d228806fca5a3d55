#pragma once

#include "database/states/stored/LayerInfoInLS.h"

#include <vector>

class DrawingLayers;

/// A stored state taken apart for editing: its head, and its layers in their order. Read and
/// written without an edit it gives the same groups.
struct LayerSnapshot
{
    GroupList head;
    std::vector<LayerInfoInLS> layers;

    static LayerSnapshot read(const GroupList& groups, const DrawingLayers& drawing);
    GroupList write() const;
};
