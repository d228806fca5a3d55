#include "host/commands/drawing/PointText.h"

#include "host/text/HostText.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace point_text {
namespace {

constexpr int kMostPlaces = 12; // behind the point

QString number(double value)
{
    // "-0" would surprise whoever reads it.
    return QString::number(value == 0 ? 0.0 : value, 'g', QLocale::FloatingPointShortest);
}

std::optional<Vec3> coordinates(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() < 2 || parts.size() > 3)
        return std::nullopt;
    double values[3] = {0, 0, 0};
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const auto value = parseNumber(parts[i]);
        if (!value)
            return std::nullopt;
        values[i] = *value;
    }
    return Vec3{values[0], values[1], values[2]};
}

std::optional<Vec3> polar(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char('<'));
    const auto distance = parts.size() == 2 ? parseNumber(parts[0]) : std::nullopt;
    const auto degrees = parts.size() == 2 ? parseNumber(parts[1]) : std::nullopt;
    if (!distance || !degrees)
        return std::nullopt;
    const double angle = std::fmod(*degrees, 360) * std::numbers::pi / 180;
    return Vec3{*distance * std::cos(angle), *distance * std::sin(angle), 0};
}

} // namespace

std::optional<double> parseNumber(const QString& text)
{
    bool isNumber = false;
    // A comma parts coordinates, never thousands: QLocale would read "10,200" as a number.
    const double value = text.trimmed().toDouble(&isNumber);
    if (!isNumber || !(std::abs(value) <= kLargestCoordinate))
        return std::nullopt;
    return value;
}

std::optional<Vec3> parse(const QString& text, Vec3 base)
{
    QString rest = text.trimmed();
    const bool isRelative = rest.startsWith(QLatin1Char('@'));
    if (isRelative)
        rest.remove(0, 1);
    if (isRelative && rest.isEmpty())
        return base;
    const auto point = rest.contains(QLatin1Char('<')) ? polar(rest) : coordinates(rest);
    if (!point)
        return std::nullopt;
    const Vec3 result = isRelative ? base + *point : *point;
    const bool isGood = isSane(result.plan()) && std::abs(result.z) <= kLargestCoordinate;
    return isGood ? std::optional(result) : std::nullopt;
}

QString complaint(const QString& text)
{
    return HostText::tr("A point is needed, such as 10,20 or @5,0 or @5<90; \"%1\" is none.")
        .arg(text);
}

QString of(Vec3 point)
{
    const QString plan = of(point.plan());
    return point.z == 0 ? plan : plan + QLatin1Char(',') + number(point.z);
}

QString of(Vec2 point)
{
    return number(point.x) + QLatin1Char(',') + number(point.y);
}

QString pointedAt(Vec2 point, double reach)
{
    // A thousandth of that is no more to be seen.
    const int places = 3 - static_cast<int>(std::floor(std::log10(reach)));
    const double scale = std::pow(10.0, std::clamp(places, 0, kMostPlaces));
    return of(Vec2{std::round(point.x * scale) / scale, std::round(point.y * scale) / scale});
}

} // namespace point_text
