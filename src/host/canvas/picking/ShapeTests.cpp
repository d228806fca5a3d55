#include "host/canvas/picking/ShapeTests.h"

#include "host/canvas/geometry/ArcChords.h"
#include "host/canvas/strokes/LineClip.h"

namespace shape_tests {

double distance(Vec2 point, Vec2 from, Vec2 to)
{
    const Vec2 along = to - from;
    const Vec2 toPoint = point - from;
    const double square = along.x * along.x + along.y * along.y;
    if (!(square > 0))
        return toPoint.length();
    const double share = std::clamp((toPoint.x * along.x + toPoint.y * along.y) / square, 0.0, 1.0);
    return (toPoint - along * share).length();
}

bool touches(const Box2& box, Vec2 from, Vec2 to)
{
    if (!Box2::of(from, to).meets(box))
        return false;
    return box.contains(from) || box.contains(to) || clipLine(box, from, to);
}

bool touches(const Box2& box, const Ray& ray)
{
    const double length = ray.direction.length();
    if (!(length > 0))
        return box.contains(ray.from);
    // Far enough to pass the box.
    const double reach = (box.centre() - ray.from).length() + box.width() + box.height();
    const Vec2 end = ray.direction * (reach / length);
    return touches(box, ray.isTwoSided ? ray.from - end : ray.from, ray.from + end);
}

bool anyChord(const CurveArc& arc, const Box2& box, double tolerance,
              const std::function<bool(Vec2, Vec2)>& call)
{
    // A chord of angle s keeps within r s^2 / 8 of its arc; numbers end somewhere, too.
    constexpr double kFinest = 1e-15;
    const double radius = arc.u.length() + arc.v.length();
    const double finest = std::max(tolerance, radius * kFinest);
    const double longest = radius > 0 ? std::sqrt(8 * finest / radius) : kTurn;
    return anyChordNear(arc, box, longest, call);
}

bool isAround(std::span<const Vec2> contour, Vec2 point)
{
    bool isInside = false;
    for (std::size_t i = 0; i < contour.size(); ++i) {
        const Vec2 a = contour[i];
        const Vec2 b = contour[(i + 1) % contour.size()];
        if ((a.y > point.y) == (b.y > point.y))
            continue;
        const double x = a.x + (b.x - a.x) * ((point.y - a.y) / (b.y - a.y));
        isInside ^= point.x < x;
    }
    return isInside;
}

bool edgeTouches(const Box2& box, std::span<const Vec2> contour)
{
    for (std::size_t i = 0; i < contour.size(); ++i) {
        if (touches(box, contour[i], contour[(i + 1) % contour.size()]))
            return true;
    }
    return false;
}

} // namespace shape_tests
