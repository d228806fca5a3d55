#include "database/values/OdCmColor.h"
#include "host/canvas/entities/EntityReaders.h"
#include "host/canvas/entities/HatchPattern.h"

#include <optional>

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
    scope.sink.setPen(PenTable::kEdge);
    for (const HatchBoundary::Contour& contour : boundary.contours()) {
        Vec2 previous = contour.back();
        for (const Vec2 p : contour) {
            scope.sink.line(ocs.plan(previous, elevation), ocs.plan(p, elevation));
            previous = p;
        }
    }
}

/// Gradients are painted in the colour half-way between their two.
std::optional<quint32> gradientColour(const EntityFields& fields)
{
    enum { kIsGradient = 450, kGradientColour = 421 };
    if (fields.integer(kIsGradient) != 1)
        return std::nullopt;
    std::vector<quint32> colours;
    for (const EntityFields::Group& group : fields.groups()) {
        if (group.code == kGradientColour && group.value >= 0 && group.value <= 0xFFFFFF)
            colours.push_back(static_cast<quint32>(group.value));
    }
    if (colours.empty())
        return std::nullopt;
    const auto middle = [&](int shift) {
        const quint32 first = colours.front() >> shift & 0xFFu;
        const quint32 last = colours.back() >> shift & 0xFFu;
        return (first + last) / 2 << shift;
    };
    return quint32(OdCmColor::kByColor) << 24 | middle(16) | middle(8) | middle(0);
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
        const Style style = scope.sink.style();
        if (const auto colour = gradientColour(scope.fields))
            scope.sink.begin({style.layer, *colour, style.pen}, scope.slot);
        fillAll(scope, boundary, ocs, elevation);
        // Areas thinner than a pixel would vanish without their outline.
        outlineAll(scope, boundary, ocs, elevation);
        return true;
    }
    std::vector<std::pair<Vec2, Vec2>> strokes;
    const HatchPattern pattern(scope.fields.groups());
    if (!pattern.strokes(boundary, strokes) || strokes.size() > scope.patternStrokes) {
        outlineAll(scope, boundary, ocs, elevation);
        scope.list.countUndrawn(QByteArrayLiteral("HATCH pattern"));
        return true;
    }
    scope.patternStrokes -= strokes.size();
    scope.sink.setPen(PenTable::kUnbroken);
    for (const auto& [from, to] : strokes)
        scope.sink.line(ocs.plan(from, elevation), ocs.plan(to, elevation));
    return true;
}
