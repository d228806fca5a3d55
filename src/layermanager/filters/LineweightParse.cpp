#include "layermanager/filters/FilterExpression.h"
#include "layermanager/filters/LeadingNumber.h"
#include "layermanager/layers/HostVariables.h"

#include <algorithm>
#include <cmath>
#include <limits>

qint32 ParseLineweightText(const QString& text)
{
    if (text.compare(QLatin1String("BYLAYER"), Qt::CaseInsensitive) == 0)
        return -1;
    if (text.compare(QLatin1String("BYBLOCK"), Qt::CaseInsensitive) == 0)
        return -2;
    const std::optional<int> units = readHostInt(QStringLiteral("LWUNITS"));
    if (!units)
        return 0;
    constexpr double kMillimetresPerInch = 25.4;
    const double width = leadingReal(text) * (*units == 0 ? kMillimetresPerInch : 1.0);
    // Cut off, not rounded: "2.11" is 210.
    using Limits = std::numeric_limits<qint32>;
    return static_cast<qint32>(
        std::clamp(std::trunc(width / 0.01), double(Limits::min()), double(Limits::max())));
}
