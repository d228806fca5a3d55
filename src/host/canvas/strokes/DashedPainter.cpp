#include "host/canvas/strokes/DashedPainter.h"

#include "host/canvas/strokes/DashWalk.h"
#include "host/canvas/strokes/LineClip.h"

#include <limits>

namespace {

// Dashes with their gaps that are shorter, in pixels, run together.
constexpr double kFinestPitch = 2.0;
// Arcs longer than this, in pixels, are halved until they are out of sight or shorter.
constexpr double kLongestPart = 1024;
// An ellipse is measured in so many parts a turn.
constexpr double kPartsPerTurn = 64;

bool isCircle(const CurveArc& arc)
{
    const double a = arc.u.length();
    const double b = arc.v.length();
    const double slant = arc.u.x * arc.v.x + arc.u.y * arc.v.y;
    return std::abs(a - b) <= 1e-9 * a && std::abs(slant) <= 1e-9 * a * b;
}

/// Length of a short part of an ellipse, by Simpson's rule.
double lengthOf(const CurveArc& part)
{
    const auto speed = [&](double t) {
        return (part.v * std::cos(t) - part.u * std::sin(t)).length();
    };
    const double middle = speed(part.start + part.sweep / 2);
    return std::abs(part.sweep) / 6
        * (speed(part.start) + 4 * middle + speed(part.start + part.sweep));
}

CurveArc cut(const CurveArc& arc, double from, double to)
{
    CurveArc part = arc;
    part.start = arc.start + arc.sweep * from;
    part.sweep = arc.sweep * (to - from);
    return part;
}

} // namespace

bool DashedPainter::isWorthIt(const StrokeLook& look, const Affine2& map)
{
    return look.pattern && look.pattern->pitch() * look.patternScale * map.scale() >= kFinestPitch;
}

void DashedPainter::segments(const ChunkedList<Segment>& list, std::size_t chunk,
                             const Affine2& map, const StrokeLook& look, Bucket& bucket)
{
    const auto& head = list.chunks()[chunk];
    if (m_strokes.isDone(head, map.mapBox(head.box), bucket))
        return;
    for (std::size_t i = list.chunkBegin(chunk); i < list.chunkEnd(chunk); ++i) {
        if (!m_strokes.isErased(list.owner(i)))
            segment(list[i], list.run(i), map, look, bucket);
    }
}

void DashedPainter::segment(const Segment& segment, const PathRun& run, const Affine2& map,
                            const StrokeLook& look, Bucket& bucket)
{
    const Vec2 from = map.map(segment.from);
    const Vec2 to = map.map(segment.to);
    const Vec2 whole = to - from;
    const double pixels = whole.length();
    const double length = (segment.to - segment.from).length();
    Vec2 first = from;
    Vec2 last = to;
    if (!clipLine(m_strokes.visible(), first, last))
        return;
    const DashWalk walk(*look.pattern, look.patternScale, run.total > 0 ? run.total : length);
    if (!(pixels > 1) || !(length > 0)) {
        m_strokes.line(from, to, bucket);
        return;
    }
    const double begin = run.along + (first - from).length() / pixels * length;
    const double end = run.along + (last - from).length() / pixels * length;
    walk.between(begin, end, [&](double a, double b) {
        m_strokes.dash(from + whole * ((a - run.along) / length),
                       from + whole * ((b - run.along) / length), bucket);
    });
}

void DashedPainter::arcs(const ChunkedList<CurveArc>& list, std::size_t chunk, const Affine2& map,
                         const StrokeLook& look, Bucket& bucket)
{
    const auto& head = list.chunks()[chunk];
    if (m_strokes.isDone(head, map.mapBox(head.box), bucket))
        return;
    for (std::size_t i = list.chunkBegin(chunk); i < list.chunkEnd(chunk); ++i) {
        if (!m_strokes.isErased(list.owner(i)))
            arc(list[i], list.run(i), map, look, bucket);
    }
}

void DashedPainter::arc(const CurveArc& arc, const PathRun& run, const Affine2& map,
                        const StrokeLook& look, Bucket& bucket)
{
    std::vector<CurveArc> parts{arc};
    std::vector<double> lengths;
    if (isCircle(arc)) {
        lengths.push_back(arc.u.length() * std::abs(arc.sweep));
    } else {
        parts.clear();
        const int count =
            std::max(1, static_cast<int>(std::ceil(std::abs(arc.sweep) / kTurn * kPartsPerTurn)));
        for (int i = 0; i < count; ++i) {
            parts.push_back(cut(arc, 1.0 * i / count, (i + 1.0) / count));
            lengths.push_back(lengthOf(parts.back()));
        }
    }
    double total = 0;
    for (const double length : lengths)
        total += length;
    const DashWalk walk(*look.pattern, look.patternScale, run.total > 0 ? run.total : total);
    double along = run.along;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        arcPart(parts[i], along, lengths[i], walk, map, bucket);
        along += lengths[i];
    }
}

/// No recursion deeper than halving a double allows, and only along what is in sight.
void DashedPainter::arcPart(const CurveArc& part, double along, double length, const DashWalk& walk,
                            const Affine2& map, Bucket& bucket)
{
    const CurveArc mapped = part.mapped(map);
    if (!mapped.box().meets(m_strokes.visible()))
        return;
    constexpr double kSmallestSweep = 1e-9;
    const double pixels = mapped.radius() * std::abs(part.sweep);
    if (pixels > kLongestPart && std::abs(part.sweep) > kSmallestSweep) {
        arcPart(cut(part, 0, 0.5), along, length / 2, walk, map, bucket);
        arcPart(cut(part, 0.5, 1), along + length / 2, length / 2, walk, map, bucket);
        return;
    }
    if (!(length > 0)) {
        m_strokes.arc(mapped, bucket);
        return;
    }
    walk.between(along, along + length, [&](double a, double b) {
        const CurveArc dash = cut(mapped, (a - along) / length, (b - along) / length);
        if (dash.sweep == 0)
            m_strokes.dash(dash.first(), dash.first(), bucket);
        else
            m_strokes.arc(dash, bucket);
    });
}

void DashedPainter::rays(const std::vector<Ray>& rays, const Affine2& map, const StrokeLook& look,
                         Bucket& bucket)
{
    const DashWalk walk(*look.pattern, look.patternScale, std::numeric_limits<double>::infinity());
    for (const Ray& ray : rays) {
        Vec2 first;
        Vec2 last;
        if (m_strokes.isErased(ray.owner) || !m_strokes.endsOf(ray, map, first, last)
            || !clipLine(m_strokes.visible(), first, last))
        {
            continue;
        }
        const double unit = map.mapVector(ray.direction).length() / ray.direction.length();
        const Vec2 from = map.map(ray.from);
        const Vec2 step = map.mapVector(ray.direction) * (1 / ray.direction.length());
        const auto placeOf = [&](Vec2 p) {
            const Vec2 off = p - from;
            return (off.x * step.x + off.y * step.y) / (unit * unit);
        };
        walk.between(placeOf(first), placeOf(last), [&](double a, double b) {
            m_strokes.dash(from + step * a, from + step * b, bucket);
        });
    }
}
