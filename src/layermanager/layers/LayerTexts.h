#pragma once

#include "sdk/texts/KsResString.h"

/// The resource strings of the list of layers and of what is done in it.
std::span<const KsResText> layerTexts();
