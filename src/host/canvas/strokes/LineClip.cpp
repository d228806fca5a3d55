#include "host/canvas/strokes/LineClip.h"

namespace {

/// One side of a box as a half-plane: inside where distance() is not negative.
struct Side
{
    Vec2 normal;
    double offset;

    double distance(Vec2 p) const { return normal.x * p.x + normal.y * p.y + offset; }
};

struct Sides
{
    Side all[4];

    explicit Sides(const Box2& box)
        : all{{{1, 0}, -box.minX}, {{-1, 0}, box.maxX}, {{0, 1}, -box.minY}, {{0, -1}, box.maxY}}
    { }
};

} // namespace

bool clipLine(const Box2& box, Vec2& from, Vec2& to)
{
    for (const Side& side : Sides(box).all) {
        const double a = side.distance(from);
        const double b = side.distance(to);
        if (!(a >= 0) && !(b >= 0))
            return false;
        if (a < 0)
            from = from + (to - from) * (a / (a - b));
        else if (b < 0)
            to = to + (from - to) * (b / (b - a));
    }
    return true;
}

void clipContour(const Box2& box, std::vector<Vec2>& contour)
{
    std::vector<Vec2> kept;
    for (const Side& side : Sides(box).all) {
        kept.clear();
        for (std::size_t i = 0; i < contour.size(); ++i) {
            const Vec2 from = contour[i];
            const Vec2 to = contour[(i + 1) % contour.size()];
            const double a = side.distance(from);
            const double b = side.distance(to);
            if (a >= 0)
                kept.push_back(from);
            if ((a < 0) != (b < 0))
                kept.push_back(from + (to - from) * (a / (a - b)));
        }
        contour.swap(kept);
    }
}
