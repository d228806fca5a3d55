#include "generator/GeneratedLayer.h"

#include "generator/DrawingPlan.h"
#include "generator/Palette.h"
#include "generator/RandomStream.h"

#include <array>
#include <cstdio>

namespace {

constexpr std::array<GeneratedLinetype, DrawingPlan::kLinetypes> kLinetypes{{
    {"ByBlock", "", 0, {}},
    {"ByLayer", "", 0, {}},
    {"Continuous", "Solid line", 0, {}},
    {"CENTER", "Center ____ _ ____ _ ____ _ ____", 4, {31.75, -6.35, 6.35, -6.35}},
    {"DASHDOT", "Dash dot __ . __ . __ . __ .", 4, {12.7, -6.35, 0.0, -6.35}},
    {"DASHED", "Dashed __ __ __ __ __ __ __", 2, {12.7, -6.35}},
    {"DIVIDE", "Divide __ . . __ . . __ . .", 6, {12.7, -6.35, 0.0, -6.35, 0.0, -6.35}},
    {"DOT", "Dot . . . . . . . . . . . .", 2, {0.0, -6.35}},
    {"HIDDEN", "Hidden _ _ _ _ _ _ _ _ _ _", 2, {6.35, -3.175}},
    {"PHANTOM", "Phantom ____ _ _ ____ _ _ __", 6, {31.75, -6.35, 6.35, -6.35, 6.35, -6.35}},
}};
constexpr int kContinuous = 2;

constexpr std::array kDisciplines{'A', 'S', 'M', 'E', 'P', 'F', 'I', 'L', 'C', 'T'};
constexpr std::array kMajors{"WALL", "DOOR", "GLAZ", "FLOR", "CLNG", "COLS", "BEAM", "DUCT",
                             "PIPE", "LITE", "POWR", "FURN", "EQPM", "SANR", "ANNO", "GRID"};
constexpr std::array kMinors{"FULL", "PRHT", "IDEN", "PATT", "DIMS",
                             "TEXT", "NEWW", "DEMO", "EXST", "SYMB"};
constexpr std::array kPlaces{"basement", "ground floor", "upper floors", "roof", "core", "facade"};
constexpr std::array kLineweights{5, 9, 13, 15, 18, 20, 25, 30, 35, 40, 50, 70, 100};
constexpr std::array kTransparencies{10, 25, 50, 70, 90};

template <class Table>
const auto& pick(const Table& table, RandomStream& random)
{
    return table[random.below(table.size())];
}

void setColour(GeneratedLayer& layer, const DrawingOptions& options, RandomStream& random)
{
    layer.colourIndex = static_cast<int>(1 + random.below(255));
    const bool trueColour = random.percent(20);
    const auto packed = static_cast<std::int32_t>(random.below(0x1000000));
    if (!trueColour || !options.isAtLeast(DrawingVersion::V2004))
        return;
    layer.trueColour = packed;
    layer.colourIndex = nearestPaletteIndex({packed >> 16, (packed >> 8) & 0xFF, packed & 0xFF});
}

} // namespace

const GeneratedLinetype& generatedLinetype(int index)
{
    return kLinetypes[static_cast<std::size_t>(index)];
}

bool isLayerUsed(int index)
{
    return index % 8 != 5;
}

std::string generatedLayerName(const DrawingOptions& options, int index)
{
    if (index == 0)
        return "0";
    if (index == 1)
        return "Defpoints";
    RandomStream random = RandomStream::forItem(options.seed, static_cast<std::uint64_t>(index));
    char name[40];
    std::snprintf(name, sizeof name, "%c-%s-%s-%05d", pick(kDisciplines, random),
                  pick(kMajors, random), pick(kMinors, random), index);
    std::string result = name;
    // A few names need the encoding: code page 1252 in older files, UTF-8 in newer ones.
    if (index % 50 == 9)
        result += options.isAtLeast(DrawingVersion::V2013) ? " H\xC3\xB6he" : " H\xF6he";
    return result;
}

GeneratedLayer generatedLayer(const DrawingOptions& options, int index)
{
    GeneratedLayer layer;
    layer.name = generatedLayerName(options, index);
    layer.linetype = kContinuous;
    layer.plots = index != 1;
    if (index < 2)
        return layer;

    RandomStream random = RandomStream::forItem(~options.seed, static_cast<std::uint64_t>(index));
    setColour(layer, options, random);
    if (random.percent(5))
        layer.colourIndex = -layer.colourIndex;
    layer.flags =
        (random.percent(4) ? 1 : 0) | (random.percent(2) ? 2 : 0) | (random.percent(4) ? 4 : 0);
    if (random.percent(30))
        layer.linetype = static_cast<int>(3 + random.below(DrawingPlan::kLinetypes - 3));
    if (random.percent(60))
        layer.lineweight = pick(kLineweights, random);
    layer.plots = !random.percent(4);
    if (random.percent(30))
        layer.description = layer.name.substr(2, 9) + ", " + pick(kPlaces, random);
    if (random.percent(10)) {
        const int opaque = 100 - pick(kTransparencies, random);
        layer.transparency = 0x02000000 + 255 * opaque / 100;
    }
    return layer;
}
