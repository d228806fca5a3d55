#pragma once

struct Rgb
{
    int red;
    int green;
    int blue;
};

/// The colour of index 1 to 255.
Rgb paletteColour(int index);

/// Nearest index of 1 to 255 by squared distance; the lowest wins ties.
int nearestPaletteIndex(const Rgb& colour);
