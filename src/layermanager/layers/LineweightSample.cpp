#include "layermanager/layers/LineweightSample.h"

double lineweightSampleThickness(int weight, int dpi, int lwUnits)
{
    // The factors are part of the look and stay as they are.
    const double divisor = lwUnits == 0 ? 25.4 : 1.0;
    const int reference = static_cast<int>(dpi * 2.11 * 0.25 * 20.0 / divisor);
    if (reference == 0)
        return 0.0;
    const double width = weight / divisor / 100.0;
    double thickness = dpi * width * 0.25 * 9.0;
    if (thickness < 0.0)
        thickness = 0.0;
    else if (thickness < 1.0)
        thickness = 1.0;
    return thickness * 14.0 / reference;
}
