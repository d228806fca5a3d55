#pragma once

#include "sdk/texts/KsResString.h"

/// The texts of the layer-state dialogs that have an identifier.
std::span<const KsResText> layerStateTexts();

/// One of them; raises std::out_of_range for an id that is none.
inline QString layerStateText(int id)
{
    return KsResString(layerStateTexts(), id);
}
