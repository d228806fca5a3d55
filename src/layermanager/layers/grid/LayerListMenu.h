#pragma once

#include "layermanager/layers/operations/LayerCommandTable.h"

#include <QMenu>

#include <functional>
#include <memory>

/// The context menu on the selected rows of the layer grid. Each action's data is its command's
/// identifier.
std::unique_ptr<QMenu> makeLayerMenu(const LayerCommandState& state,
                                     const std::function<void(int)>& run);
