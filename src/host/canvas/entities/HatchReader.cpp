#include "host/canvas/entities/EntityReaders.h"
#include "host/canvas/entities/HatchPattern.h"

namespace {

void fillAll(EntityScope& scope, const HatchBoundary& boundary, const Ocs& ocs, double elevation)
{
    std::vector<Vec2> planar;
    for (const HatchBoundary::Contour& contour : boundary.contours()) {
        planar.clear();
        for (const Vec2 p : contour)
            planar.push_back(ocs.plan(p, elevation));
        scope.sink.fillContour(planar);
    }
    scope.sink.closeFill();
}

void outlineAll(EntityScope& scope, const HatchBoundary& boundary, const Ocs& ocs, double elevation)
{
    for (const HatchBoundary::Contour& contour : boundary.contours()) {
        Vec2 previous = contour.back();
        for (const Vec2 p : contour) {
            scope.sink.line(ocs.plan(previous, elevation), ocs.plan(p, elevation));
            previous = p;
        }
    }
}

} // namespace

bool readHatch(EntityScope& scope)
{
    const HatchBoundary boundary(scope.fields.groups());
    if (boundary.contours().empty())
        return false;
    const Ocs ocs = scope.fields.ocs();
    const double elevation = scope.fields.real(30);
    const bool isSolid = scope.fields.integer(70) == 1;
    if (isSolid) {
        fillAll(scope, boundary, ocs, elevation);
        // Areas thinner than a pixel would vanish without their outline.
        outlineAll(scope, boundary, ocs, elevation);
        return true;
    }
    std::vector<std::pair<Vec2, Vec2>> strokes;
    const HatchPattern pattern(scope.fields.groups());
    if (!pattern.strokes(boundary, strokes)) {
        outlineAll(scope, boundary, ocs, elevation);
        scope.list.countUndrawn(QByteArrayLiteral("HATCH pattern"));
        return true;
    }
    for (const auto& [from, to] : strokes)
        scope.sink.line(ocs.plan(from, elevation), ocs.plan(to, elevation));
    return true;
}
