#include "host/canvas/geometry/CurveArc.h"

namespace {

/// Adds the points where one coordinate, cosPart cos(t) + sinPart sin(t), turns round.
void addTurningPoints(const CurveArc& arc, double cosPart, double sinPart, Box2& box)
{
    const double low = std::min(arc.start, arc.start + arc.sweep);
    const double high = std::max(arc.start, arc.start + arc.sweep);
    const double extreme = std::atan2(sinPart, cosPart);
    constexpr double kHalf = std::numbers::pi;
    double t = extreme + std::ceil((low - extreme) / kHalf) * kHalf;
    for (; t <= high; t += kHalf)
        box.add(arc.at(t));
}

} // namespace

Box2 CurveArc::box() const
{
    if (std::abs(sweep) >= kTurn) {
        const Vec2 half{std::hypot(u.x, v.x), std::hypot(u.y, v.y)};
        return Box2::of(centre - half, centre + half);
    }
    Box2 box = Box2::of(first(), last());
    addTurningPoints(*this, u.x, v.x, box);
    addTurningPoints(*this, u.y, v.y, box);
    return box;
}

bool CurveArc::isSane() const
{
    return ::isSane(centre) && ::isSane(u) && ::isSane(v) && std::abs(start) <= 1e6
        && std::abs(sweep) <= kTurn * 1.000001;
}

CurveArc CurveArc::fromBulge(Vec2 from, Vec2 to, double bulge)
{
    const Vec2 chord = to - from;
    const Vec2 middle = from + chord * 0.5;
    const Vec2 centre = middle + chord.left() * ((1 - bulge * bulge) / (4 * bulge));
    const Vec2 toFirst = from - centre;
    const double radius = toFirst.length();
    return {
        centre, {radius, 0}, {0, radius}, std::atan2(toFirst.y, toFirst.x), 4 * std::atan(bulge)};
}
