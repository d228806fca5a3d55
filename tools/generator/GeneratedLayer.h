#pragma once

#include "generator/DrawingOptions.h"

#include <cstdint>
#include <string>

/// One record of the LAYER table, as a function of its position and the seed alone.
struct GeneratedLayer
{
    static constexpr std::int32_t kNoTrueColour = -1;
    static constexpr std::int32_t kNoTransparency = -1;

    std::string name; ///< in the encoding of the file
    std::string description; ///< empty for none
    int flags = 0; ///< 1 frozen, 2 frozen in new viewports, 4 locked
    int colourIndex = 7; ///< negative while the layer is off
    std::int32_t trueColour = kNoTrueColour; ///< 0x00RRGGBB
    int linetype = 0; ///< index of generatedLinetype()
    int lineweight = -3; ///< hundredths of a millimetre; -3 is "default"
    bool plots = true;
    std::int32_t transparency = kNoTransparency; ///< packed, as group 1071 has it
};

GeneratedLayer generatedLayer(const DrawingOptions& options, int index);

/// The name alone; entities ask for it a million times.
std::string generatedLayerName(const DrawingOptions& options, int index);

/// False for the layers that stay empty, so that a drawing has unused layers to be found.
bool isLayerUsed(int index);

/// Name, description and dash lengths (millimetres; negative for gaps) of a linetype.
struct GeneratedLinetype
{
    static constexpr int kMaxDashes = 6;
    const char* name;
    const char* description;
    int dashes;
    double lengths[kMaxDashes];
};
/// index 0 to DrawingPlan::kLinetypes - 1: "ByBlock", "ByLayer", "Continuous", then dashed ones.
const GeneratedLinetype& generatedLinetype(int index);
