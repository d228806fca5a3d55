#include "host/canvas/entities/EntityReaders.h"

bool readSolid(EntityScope& scope)
{
    const EntityFields& fields = scope.fields;
    const Ocs ocs = fields.ocs();
    // The third and fourth corner are stored crosswise; a missing fourth is the third.
    const Vec3 third = fields.point(12);
    const Vec3 fourth = fields.has(13) ? fields.point(13) : third;
    const std::array<Vec2, 4> corners{ocs.toWorld(fields.point(10)).plan(),
                                      ocs.toWorld(fields.point(11)).plan(),
                                      ocs.toWorld(fourth).plan(), ocs.toWorld(third).plan()};
    scope.sink.fill(corners);
    // The outline keeps slivers visible that are thinner than a pixel.
    scope.sink.setPen(PenTable::kEdge);
    scope.sink.polyline(corners, true);
    return true;
}

bool readFace(EntityScope& scope)
{
    const EntityFields& fields = scope.fields;
    const Vec3 third = fields.point(12);
    const Vec3 fourth = fields.has(13) ? fields.point(13) : third;
    const std::array<Vec2, 4> corners{fields.point(10).plan(), fields.point(11).plan(),
                                      third.plan(), fourth.plan()};
    const int invisibleEdges = fields.integer(70);
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vec2 to = corners[(i + 1) % corners.size()];
        const bool isVisible = (invisibleEdges & (1 << i)) == 0;
        if (isVisible && !(i == 2 && to == corners[i]))
            scope.sink.line(corners[i], to);
    }
    return true;
}
