#pragma once

/// How lines look in a picture, or a part of it, apart from what layers and entities say.
struct LineSettings
{
    double patternScale = 1; ///< drawing units per unit of a linetype's lengths
    bool showsWeights = false;
    double paperUnits = 0; ///< sheet units per millimetre of lineweight; 0: weights in pixels
    int defaultWeight = 25; ///< hundredths of a millimetre
    int lockedFade = 50; ///< per cent by which locked layers fade, 0 or less: not at all

    friend bool operator==(const LineSettings&, const LineSettings&) = default;
};
