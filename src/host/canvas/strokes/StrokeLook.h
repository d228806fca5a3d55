#pragma once

#include <QRgb>

class DashPattern;

/// What a line is painted with.
struct StrokeLook
{
    QRgb colour = 0;
    int width = 1; ///< pixels
    const DashPattern* pattern = nullptr; ///< null: no gaps
    double patternScale = 1; ///< units of the display list per unit of the pattern
};
