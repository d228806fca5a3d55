#include "generator/Palette.h"

#include <array>
#include <limits>

namespace {

/// Index 10 to 249: the hue steps by 15 degrees with the tens; the last digit gives the value, and
/// odd ones have half the saturation.
Rgb hueColour(int index)
{
    static constexpr double kValues[] = {1.0, 0.8, 0.6, 0.5, 0.3};
    const double value = kValues[index % 10 / 2];
    const double least = index % 2 == 0 ? 0 : value / 2;
    const int hue = index / 10 - 1;
    const double rise = (value - least) * (hue % 4) / 4;
    const auto channel = [](double share) { return static_cast<int>(255 * share + 1e-9); };
    const int high = channel(value);
    const int low = channel(least);
    const int up = channel(least + rise);
    const int down = channel(value - rise);
    switch (hue / 4) {
    case 0:
        return {high, up, low};
    case 1:
        return {down, high, low};
    case 2:
        return {low, high, up};
    case 3:
        return {low, down, high};
    case 4:
        return {up, low, high};
    default:
        return {high, low, down};
    }
}

const std::array<Rgb, 256>& palette()
{
    static const std::array<Rgb, 256> colours = [] {
        std::array<Rgb, 256> table{};
        constexpr Rgb kFirst[] = {{0, 0, 0},       {255, 0, 0},    {255, 255, 0}, {0, 255, 0},
                                  {0, 255, 255},   {0, 0, 255},    {255, 0, 255}, {255, 255, 255},
                                  {128, 128, 128}, {192, 192, 192}};
        constexpr int kGreys[] = {51, 91, 132, 173, 214, 255};
        for (int index = 0; index < 256; ++index) {
            Rgb& colour = table[static_cast<std::size_t>(index)];
            if (index < 10)
                colour = kFirst[index];
            else if (index < 250)
                colour = hueColour(index);
            else
                colour = {kGreys[index - 250], kGreys[index - 250], kGreys[index - 250]};
        }
        return table;
    }();
    return colours;
}

} // namespace

Rgb paletteColour(int index)
{
    return palette()[static_cast<std::size_t>(index)];
}

int nearestPaletteIndex(const Rgb& colour)
{
    int best = 1;
    int bestDistance = std::numeric_limits<int>::max();
    for (int index = 1; index < 256; ++index) {
        const Rgb other = paletteColour(index);
        const int red = colour.red - other.red;
        const int green = colour.green - other.green;
        const int blue = colour.blue - other.blue;
        const int distance = red * red + green * green + blue * blue;
        if (distance < bestDistance) {
            best = index;
            bestDistance = distance;
        }
    }
    return best;
}
