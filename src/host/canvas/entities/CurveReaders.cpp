#include "host/canvas/entities/EntityReaders.h"
#include "host/canvas/geometry/NurbsCurve.h"

namespace {

/// Circle or arc of a plane, seen from above.
CurveArc planArc(const Ocs& ocs, Vec3 centre, double radius)
{
    return {ocs.toWorld(centre).plan(), ocs.planVector({radius, 0}), ocs.planVector({0, radius})};
}

std::vector<Vec2> plan(const std::vector<Vec3>& points)
{
    std::vector<Vec2> result;
    result.reserve(points.size());
    for (const Vec3& p : points)
        result.push_back(p.plan());
    return result;
}

std::vector<double> valuesOf(const EntityFields& fields, int code)
{
    std::vector<double> result;
    for (const EntityFields::Group& group : fields.groups()) {
        if (group.code == code)
            result.push_back(group.value);
    }
    return result;
}

} // namespace

std::vector<Vec3> pointsOf(const EntityFields& fields, int code)
{
    std::vector<Vec3> result;
    for (const EntityFields::Group& group : fields.groups()) {
        if (group.code == code)
            result.push_back({group.value, 0, 0});
        else if (group.code == code + 10 && !result.empty())
            result.back().y = group.value;
        else if (group.code == code + 20 && !result.empty())
            result.back().z = group.value;
    }
    return result;
}

bool readLine(EntityScope& scope)
{
    scope.sink.line(scope.fields.point(10).plan(), scope.fields.point(11).plan());
    return true;
}

bool readPoint(EntityScope& scope)
{
    scope.sink.point(scope.fields.point(10).plan());
    return true;
}

bool readRay(EntityScope& scope)
{
    scope.sink.ray(scope.fields.point(10).plan(), scope.fields.point(11).plan(), false);
    return true;
}

bool readXLine(EntityScope& scope)
{
    scope.sink.ray(scope.fields.point(10).plan(), scope.fields.point(11).plan(), true);
    return true;
}

bool readCircle(EntityScope& scope)
{
    scope.sink.arc(planArc(scope.fields.ocs(), scope.fields.point(10), scope.fields.real(40)));
    return true;
}

bool readArc(EntityScope& scope)
{
    CurveArc arc = planArc(scope.fields.ocs(), scope.fields.point(10), scope.fields.real(40));
    arc.start = scope.fields.radians(50);
    arc.sweep = scope.fields.radians(51) - arc.start;
    if (arc.sweep <= 0)
        arc.sweep += kTurn;
    scope.sink.arc(arc);
    return true;
}

bool readEllipse(EntityScope& scope)
{
    const EntityFields& fields = scope.fields;
    const Vec3 major = fields.point(11);
    // The default direction is up here too, though the axes are world ones.
    const Ocs ocs = fields.ocs();
    const Vec3 minor = cross(ocs.az, major) * fields.real(40, 1);
    CurveArc arc{fields.point(10).plan(), major.plan(), minor.plan()};
    arc.start = std::fmod(fields.real(41), kTurn);
    arc.sweep = std::fmod(fields.real(42, kTurn) - fields.real(41), kTurn);
    if (arc.sweep <= 1e-12)
        arc.sweep += kTurn;
    scope.sink.arc(arc);
    return true;
}

bool readSpline(EntityScope& scope)
{
    NurbsCurve curve;
    curve.degree = scope.fields.integer(71, 3);
    curve.knots = valuesOf(scope.fields, 40);
    curve.controlPoints = pointsOf(scope.fields, 10);
    curve.weights = valuesOf(scope.fields, 41);
    if (curve.isValid()) {
        scope.sink.path(plan(curve.points()), false);
        return true;
    }
    constexpr int kClosed = 1;
    const std::vector<Vec3> fit = pointsOf(scope.fields, 11);
    const bool closed = (scope.fields.integer(70) & kClosed) != 0;
    scope.sink.path(plan(smoothThrough(fit, closed)), false);
    return fit.size() > 1;
}

bool readLeader(EntityScope& scope)
{
    std::vector<Vec3> points = pointsOf(scope.fields, 10);
    const bool isSpline = scope.fields.integer(72) == 1;
    scope.sink.path(plan(isSpline ? smoothThrough(points, false) : points), false);
    return points.size() > 1;
}

bool readMultiLine(EntityScope& scope)
{
    // Per vertex: position, direction, mitre direction, then per element a count and that many
    // distances; the first of them is the element's offset along the mitre.
    std::vector<std::vector<Vec2>> elements;
    Vec2 vertex;
    Vec2 mitre;
    std::size_t element = 0;
    bool expectsOffset = false;
    for (const EntityFields::Group& group : scope.fields.groups()) {
        switch (group.code) {
        case 11:
            vertex.x = group.value;
            element = 0;
            break;
        case 21:
            vertex.y = group.value;
            break;
        case 13:
            mitre.x = group.value;
            break;
        case 23:
            mitre.y = group.value;
            break;
        case 74:
            expectsOffset = group.value > 0;
            if (!expectsOffset)
                ++element;
            break;
        case 41:
            if (!expectsOffset)
                break;
            expectsOffset = false;
            if (elements.size() <= element)
                elements.resize(element + 1);
            elements[element++].push_back(vertex + mitre * group.value);
            break;
        default:
            break;
        }
    }
    constexpr int kClosed = 2;
    const bool closed = (scope.fields.integer(71) & kClosed) != 0;
    for (const std::vector<Vec2>& line : elements)
        scope.sink.path(line, closed);
    return !elements.empty();
}
