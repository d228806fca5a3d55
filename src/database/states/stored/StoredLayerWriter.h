#pragma once

#include "database/states/stored/LayerInfoInLS.h"

/// Appends a layer to a stored state. An entry that was read before keeps the groups it had, in
/// their order; only what was edited since is spelled anew.
void appendStoredLayer(GroupList& groups, const LayerInfoInLS& layer);
