#include "host/canvas/entities/EntityReaders.h"

namespace {

/// Outline of an image in its pixels, y down from the upper edge, as the entity clips it.
std::vector<Vec2> outlineInPixels(const EntityFields& fields, Vec2 size)
{
    enum { kClips = 280, kClipVertex = 14 };
    constexpr double kHalf = 0.5; // pixel (0, 0) is a square around that point
    std::vector<Vec2> corners;
    if (fields.integer(kClips, 1) != 0) {
        for (const Vec3& p : pointsOf(fields, kClipVertex))
            corners.push_back(p.plan());
    }
    if (corners.size() < 2)
        corners = {{-kHalf, -kHalf}, size - Vec2{kHalf, kHalf}};
    // Two points are the corners of a rectangle.
    if (corners.size() == 2) {
        const Box2 box = Box2::of(corners[0], corners[1]);
        corners = {
            {box.minX, box.minY}, {box.maxX, box.minY}, {box.maxX, box.maxY}, {box.minX, box.maxY}};
    }
    return corners;
}

} // namespace

/// The frame is drawn; pictures, and what a wipeout hides, are not.
bool readImageFrame(EntityScope& scope)
{
    const EntityFields& fields = scope.fields;
    const Vec2 corner = fields.point(10).plan();
    const Vec2 across = fields.point(11).plan();
    const Vec2 up = fields.point(12).plan();
    const Vec2 size{fields.real(13, 1), fields.real(23, 1)};
    std::vector<Vec2> outline;
    for (const Vec2 p : outlineInPixels(fields, size))
        outline.push_back(corner + across * (p.x + 0.5) + up * (size.y - p.y - 0.5));
    scope.sink.setPen(PenTable::kUnbroken);
    scope.sink.polyline(outline, true);
    return false;
}
