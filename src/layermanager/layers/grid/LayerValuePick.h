#pragma once

#include "layermanager/layers/operations/LayerOperations.h"

#include <optional>

class QWidget;

/// Asks the host's dialog for colors, linetypes, lineweights or plot styles, which the value given
/// decides, starting from that value. Nothing when the user gave up, and for flags.
std::optional<LayerValue> pickLayerValue(QWidget* parent, const LayerValue& start);
