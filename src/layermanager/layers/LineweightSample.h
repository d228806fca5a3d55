#pragma once

/// Thickness of the sample line of a lineweight cell, in pixels.
/// `weight`: database value, hundredths of a millimetre, negative for the named ones.
/// `dpi`: horizontal pixels per inch of the device. `lwUnits`: LWUNITS; 0 is inches.
double lineweightSampleThickness(int weight, int dpi, int lwUnits);

/// A thickness of exactly 1 is a line of one pixel; any other is a band this high above and below
/// the middle of the cell.
inline double lineweightBandHalfHeight(double thickness)
{
    return (thickness + 1.0) * 0.5;
}
