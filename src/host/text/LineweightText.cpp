#include "host/text/LineweightText.h"

#include <algorithm>
#include <array>
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
