#include "host/canvas/entities/HatchBoundary.h"

#include "host/canvas/geometry/CurveArc.h"
#include "host/canvas/geometry/NurbsCurve.h"

#include <algorithm>

namespace {

enum BoundaryGroup {
    kPathCount = 91,
    kPathFlags = 92,
    kCount = 93,
    kEdgeType = 72,
    kSourceCount = 97
};
constexpr int kPolylinePath = 2;
constexpr double kChordStep = kTurn / 96;
// A boundary of very many arcs has small ones.
constexpr double kCoarseStep = kTurn / 8;
constexpr std::size_t kManyPoints = 20'000;
constexpr double kDegree = std::numbers::pi / 180;

void appendArc(const CurveArc& arc, HatchBoundary::Contour& points)
{
    if (!arc.isSane())
        return;
    const double chord = points.size() < kManyPoints ? kChordStep : kCoarseStep;
    const int steps = std::max(1, static_cast<int>(std::ceil(std::abs(arc.sweep) / chord)));
    for (int step = 0; step <= steps; ++step)
        points.push_back(arc.at(arc.start + arc.sweep * step / steps));
}

/// Adds an edge to a path, turned round where its end is nearer than its start.
void joinEdge(HatchBoundary::Contour& path, HatchBoundary::Contour& edge)
{
    if (edge.empty())
        return;
    if (!path.empty()) {
        const Vec2 end = path.back();
        if ((edge.back() - end).length() < (edge.front() - end).length())
            std::reverse(edge.begin(), edge.end());
    }
    path.insert(path.end(), edge.begin(), edge.end());
}

} // namespace

HatchBoundary::HatchBoundary(const std::vector<EntityFields::Group>& groups)
    : m_groups(groups)
{
    while (!atEnd() && !isNext(kPathCount))
        ++m_at;
    const double count = take(kPathCount);
    for (int path = 0; path < count && !atEnd(); ++path) {
        while (!atEnd() && !isNext(kPathFlags) && !isNext(75))
            ++m_at;
        if (!isNext(kPathFlags))
            break;
        readPath();
    }
}

double HatchBoundary::take(int code, double fallback)
{
    return isNext(code) ? m_groups[m_at++].value : fallback;
}

Vec2 HatchBoundary::takePoint(int xCode)
{
    const double x = take(xCode);
    return {x, take(xCode + 10)};
}

void HatchBoundary::readPath()
{
    const auto flags = static_cast<int>(take(kPathFlags));
    if ((flags & kPolylinePath) != 0)
        readPolyline();
    else
        readEdges();
    if (!m_contours.empty() && m_contours.back().size() < 3)
        m_contours.pop_back();
}

void HatchBoundary::readPolyline()
{
    take(72); // whether bulges follow: seen from the groups themselves
    take(73);
    const double count = take(kCount);
    Contour corners;
    std::vector<double> bulges;
    for (int i = 0; i < count && isNext(10); ++i) {
        corners.push_back(takePoint(10));
        bulges.push_back(take(42));
    }
    Contour& contour = m_contours.emplace_back();
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vec2 next = corners[(i + 1) % corners.size()];
        if (std::abs(bulges[i]) > 1e-9 && !(corners[i] == next))
            appendArc(CurveArc::fromBulge(corners[i], next, bulges[i]), contour);
        else
            contour.push_back(corners[i]);
    }
}

void HatchBoundary::readEdges()
{
    const double count = take(kCount);
    Contour path;
    for (int i = 0; i < count && isNext(kEdgeType); ++i) {
        Contour edge;
        if (!readEdge(edge))
            break;
        joinEdge(path, edge);
    }
    m_contours.push_back(std::move(path));
}

bool HatchBoundary::readEdge(Contour& edge)
{
    switch (static_cast<int>(take(kEdgeType))) {
    case 1:
        edge.push_back(takePoint(10));
        edge.push_back(takePoint(11));
        return true;
    case 2:
        readArc(edge, false);
        return true;
    case 3:
        readArc(edge, true);
        return true;
    case 4:
        readSpline(edge);
        return true;
    default:
        return false;
    }
}

void HatchBoundary::readArc(Contour& edge, bool isEllipse)
{
    CurveArc arc;
    arc.centre = takePoint(10);
    const Vec2 major = isEllipse ? takePoint(11) : Vec2{};
    const double size = take(40);
    arc.u = isEllipse ? major : Vec2{size, 0};
    arc.v = isEllipse ? major.left() * size : Vec2{0, size};
    const double start = take(50) * kDegree;
    const double end = take(51, 360) * kDegree;
    const bool counterClockwise = take(73, 1) != 0;
    arc.sweep = std::fmod(end - start, kTurn);
    if (arc.sweep <= 1e-9)
        arc.sweep += kTurn;
    arc.start = start;
    // Clockwise edges count their angles clockwise too.
    if (!counterClockwise) {
        arc.start = -start;
        arc.sweep = -arc.sweep;
    }
    appendArc(arc, edge);
}

void HatchBoundary::readSpline(Contour& edge)
{
    NurbsCurve curve;
    curve.degree = static_cast<int>(take(94, 3));
    take(73);
    take(74);
    take(95);
    take(96);
    while (isNext(40))
        curve.knots.push_back(take(40));
    while (isNext(10)) {
        const Vec2 p = takePoint(10);
        curve.controlPoints.push_back({p.x, p.y, 0});
        if (isNext(42))
            curve.weights.push_back(take(42));
    }
    if (isNext(kSourceCount) && m_at + 1 < m_groups.size() && m_groups[m_at + 1].code == 11)
        take(kSourceCount);
    std::vector<Vec3> fit;
    while (isNext(11)) {
        const Vec2 p = takePoint(11);
        fit.push_back({p.x, p.y, 0});
    }
    while (isNext(12) || isNext(22) || isNext(13) || isNext(23))
        ++m_at;
    const std::vector<Vec3> points = curve.isValid() ? curve.points() : smoothThrough(fit, false);
    for (const Vec3& p : points)
        edge.push_back(p.plan());
}

std::size_t HatchBoundary::pointCount() const
{
    std::size_t count = 0;
    for (const Contour& contour : m_contours)
        count += contour.size();
    return count;
}

Box2 HatchBoundary::box() const
{
    Box2 box;
    for (const Contour& contour : m_contours) {
        for (const Vec2 p : contour)
            box.add(p);
    }
    return box;
}
