#include "host/canvas/entities/scope/FlatPolyline.h"

#include "host/canvas/entities/scope/GeometrySink.h"

namespace {

// Flatter bulges are rounding of straight segments, and their circles too large to compute with.
constexpr double kFlattestBulge = 1e-9;
// Twice the length of a bevel at most: sharper corners stay open as they would stand out like
// needles.
constexpr double kSharpestMitre = 0.25;
constexpr double kBandStep = kTurn / 48;

bool isArc(double bulge)
{
    return std::abs(bulge) > kFlattestBulge;
}

Vec2 unit(Vec2 v)
{
    const double length = v.length();
    return length > 0 ? v * (1 / length) : Vec2{1, 0};
}

} // namespace

std::size_t FlatPolyline::segmentCount() const
{
    if (vertices.size() < 2)
        return 0;
    return isClosed ? vertices.size() : vertices.size() - 1;
}

void FlatPolyline::draw(GeometrySink& sink) const
{
    if (vertices.size() == 1)
        sink.point(toPlan(vertices.front().at));
    PathRun run;
    for (std::size_t i = 0; linetypeRunsOn && i < segmentCount(); ++i)
        run.total += lengthOf(i);
    for (std::size_t i = 0; i < segmentCount(); ++i) {
        const Vertex& v = vertices[i];
        const bool wide = v.startWidth > 0 || v.endWidth > 0;
        if (wide && !isDegenerate(i))
            drawWide(sink, i);
        else
            drawThin(sink, i, run);
        run.along += linetypeRunsOn ? lengthOf(i) : 0;
    }
}

double FlatPolyline::lengthOf(std::size_t segment) const
{
    const Vertex& from = vertices[segment];
    const Vertex& to = endOf(segment);
    if (!isArc(from.bulge) || isDegenerate(segment))
        return (to.at - from.at).length();
    const CurveArc arc = CurveArc::fromBulge(from.at, to.at, from.bulge);
    return arc.u.x * std::abs(arc.sweep);
}

bool FlatPolyline::isDegenerate(std::size_t segment) const
{
    return vertices[segment].at == endOf(segment).at;
}

void FlatPolyline::drawThin(GeometrySink& sink, std::size_t segment, const PathRun& run) const
{
    const Vertex& from = vertices[segment];
    const Vertex& to = endOf(segment);
    if (!isArc(from.bulge) || isDegenerate(segment)) {
        sink.line(toPlan(from.at), toPlan(to.at), run);
        return;
    }
    CurveArc arc = CurveArc::fromBulge(from.at, to.at, from.bulge);
    arc.centre = toPlan(arc.centre);
    arc.u = ocs.planVector(arc.u);
    arc.v = ocs.planVector(arc.v);
    sink.arc(arc, run);
}

Vec2 FlatPolyline::tangent(std::size_t segment, bool atEnd) const
{
    const Vertex& from = vertices[segment];
    const Vec2 chord = unit(endOf(segment).at - from.at);
    const double half = 2 * std::atan(from.bulge);
    return chord.turned(atEnd ? half : -half);
}

/// Half-width direction at an end of a segment: its normal, or half-way to the neighbour's so that
/// the bands of both meet.
Vec2 FlatPolyline::mitre(std::size_t segment, bool atEnd) const
{
    const std::size_t n = segmentCount();
    const Vec2 own = tangent(segment, atEnd).left();
    const bool hasNeighbour = isClosed || (atEnd ? segment + 1 < n : segment > 0);
    if (!hasNeighbour)
        return own;
    const std::size_t neighbour = (segment + (atEnd ? 1 : n - 1)) % n;
    const double ownWidth = atEnd ? vertices[segment].endWidth : vertices[segment].startWidth;
    const double otherWidth = atEnd ? vertices[neighbour].startWidth : vertices[neighbour].endWidth;
    if (isDegenerate(neighbour) || ownWidth != otherWidth)
        return own;
    const Vec2 other = tangent(neighbour, !atEnd).left();
    const double spread = 1 + own.x * other.x + own.y * other.y;
    return spread > kSharpestMitre ? (own + other) * (1 / spread) : own;
}

void FlatPolyline::drawParallel(GeometrySink& sink, CurveArc arc, double outwards) const
{
    const double radius = arc.u.x + outwards;
    if (radius <= 0)
        return;
    arc.centre = toPlan(arc.centre);
    arc.u = ocs.planVector({radius, 0});
    arc.v = ocs.planVector({0, radius});
    sink.arc(arc);
}

void FlatPolyline::drawWide(GeometrySink& sink, std::size_t segment) const
{
    const Vertex& from = vertices[segment];
    const Vertex& to = endOf(segment);
    CurveArc arc;
    int steps = 1;
    if (isArc(from.bulge)) {
        arc = CurveArc::fromBulge(from.at, to.at, from.bulge);
        steps = static_cast<int>(std::ceil(std::abs(arc.sweep) / kBandStep));
    }
    std::vector<Vec2> left;
    std::vector<Vec2> right;
    for (int step = 0; step <= steps; ++step) {
        const double f = static_cast<double>(step) / steps;
        const bool inner = step > 0 && step < steps;
        const Vec2 normal =
            inner ? tangent(segment, false).left().turned(arc.sweep * f) : mitre(segment, step > 0);
        const Vec2 at = inner ? arc.at(arc.start + arc.sweep * f) : (step > 0 ? to.at : from.at);
        const Vec2 half = normal * ((from.startWidth + (from.endWidth - from.startWidth) * f) / 2);
        left.push_back(toPlan(at + half));
        right.push_back(toPlan(at - half));
    }
    const bool isEven = from.startWidth == from.endWidth;
    const Vec2 ends[] = {left.front(), right.front(), left.back(), right.back()};
    left.insert(left.end(), right.rbegin(), right.rend());
    sink.fill(left);
    sink.setPen(PenTable::kEdge);
    if (steps == 1 || !isEven) {
        sink.polyline(left, true);
        sink.setPen(PenTable::kAsStated);
        return;
    }
    // A band of one width has arcs for edges, which stay round however close one looks.
    drawParallel(sink, arc, from.startWidth / 2);
    drawParallel(sink, arc, -from.startWidth / 2);
    sink.line(ends[0], ends[1]);
    sink.line(ends[2], ends[3]);
    sink.setPen(PenTable::kAsStated);
}
