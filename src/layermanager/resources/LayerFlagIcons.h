#pragma once

#include "layermanager/layers/LayerColumn.h"
#include "layermanager/resources/LayerIcons.h"

#include <optional>

/// The icon of a flag column for the answer to its name: a layer that is on, frozen, plotted and so
/// on, or is not. Nothing for other columns.
std::optional<LayerIcon> layerFlagIcon(LayerColumn column, bool yes);
/// The same by the column's fixed identifier.
std::optional<LayerIcon> layerFlagIcon(int identifier, bool yes);
