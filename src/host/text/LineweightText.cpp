#include "host/text/LineweightText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace {
constexpr std::array kWeights{0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                              53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};

int nearestValid(int weight)
{
    return *std::min_element(kWeights.begin(), kWeights.end(), [weight](int a, int b) {
        return std::llabs(qint64(a) - weight) < std::llabs(qint64(b) - weight);
    });
}
} // namespace

std::span<const int> validLineweights()
{
    return kWeights;
}

std::optional<int> lineweightFromText(const QString& typed, bool millimetres)
{
    QString text = typed.trimmed();
    if (text.compare(QLatin1String("Default"), Qt::CaseInsensitive) == 0)
        return -3;
    bool isMillimetres = millimetres;
    if (text.endsWith(QLatin1String("mm"), Qt::CaseInsensitive)) {
        text.chop(2);
        isMillimetres = true;
    } else if (text.endsWith(QLatin1Char('"'))) {
        text.chop(1);
        isMillimetres = false;
    }
    bool isNumber = false;
    const double width = text.trimmed().toDouble(&isNumber) * (isMillimetres ? 100 : 2540);
    // The widest one, 0.083 inches as text, is a little less than that.
    constexpr double kTolerance = 0.5;
    if (!isNumber || !(width >= 0) || width > kWeights.back() + kTolerance)
        return std::nullopt;
    return nearestValid(static_cast<int>(std::lround(width)));
}

QString lineweightText(int weight, bool millimetres)
{
    switch (weight) {
    case -3:
        return QStringLiteral("Default");
    case -2:
        return QStringLiteral("ByBlock");
    case -1:
        return QStringLiteral("ByLayer");
    default:
        break;
    }
    const double value = nearestValid(weight) / 100.0;
    return millimetres ? QStringLiteral("%1 mm").arg(value, 0, 'f', 2)
                       : QStringLiteral("%1\"").arg(value / 25.4, 0, 'f', 3);
}
