#include "host/text/LineweightText.h"

#include "host/text/HostText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace {
constexpr double kMillimetresPerInch = 25.4;

constexpr std::array kWeights{0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                              53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};

int nearestValid(int weight)
{
    return *std::min_element(kWeights.begin(), kWeights.end(), [weight](int a, int b) {
        return std::llabs(qint64(a) - weight) < std::llabs(qint64(b) - weight);
    });
}

/// What readers of lineweight texts make of a number: hundredths of a millimetre, cut off.
int readBack(double inches)
{
    return static_cast<int>(inches * kMillimetresPerInch / 0.01);
}

/// Three decimals, as other programs print them; four where three would be read back as another
/// weight.
QString inchText(int weight)
{
    const double value = weight / 100.0 / kMillimetresPerInch;
    const QString text = QString::number(value, 'f', 3);
    if (readBack(text.toDouble()) == weight)
        return text;
    return QString::number(std::ceil(value * 1e4) / 1e4, 'f', 4);
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
    const int valid = nearestValid(weight);
    return millimetres ? QStringLiteral("%1 mm").arg(valid / 100.0, 0, 'f', 2)
                       : inchText(valid) + QLatin1Char('"');
}

QString lineweightRefusal(const QString& text, bool millimetres)
{
    return HostText::tr("A lineweight is Default or a width from %1 to %2; \"%3\" is none.")
        .arg(lineweightText(0, millimetres), lineweightText(kWeights.back(), millimetres), text);
}
