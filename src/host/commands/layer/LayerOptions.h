#pragma once

#include <span>

class LayerEdit;

/// An option of the layer command. `run` raises OdError when it cannot go on.
struct LayerOption
{
    const char* keyword; ///< with the capitals that suffice
    void (*run)(LayerEdit& edit);
};

/// Options that switch layers: on, off, frozen, locked, plotted.
std::span<const LayerOption> layerFlagOptions();
/// Options that give layers a value: colour, linetype and so on.
std::span<const LayerOption> layerValueOptions();
/// Options about the table itself: list, make, rename, erase, make current.
std::span<const LayerOption> layerTableOptions();
/// Layer states.
std::span<const LayerOption> layerStateOptions();
