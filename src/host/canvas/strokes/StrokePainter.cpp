#include "host/canvas/strokes/StrokePainter.h"

#include "host/canvas/geometry/ArcChords.h"
#include "host/canvas/strokes/LineClip.h"

namespace {

// Chords stay this close to their arc, in pixels.
constexpr double kTolerance = 0.2;
// An arc of more steps is too large to be seen whole: only the part in sight is worth stepping
// through.
constexpr int kMostSteps = 512;

} // namespace

void StrokePainter::segments(const ChunkedList<Segment>& list, std::size_t chunk,
                             const Affine2& map, Bucket& bucket)
{
    const auto& head = list.chunks()[chunk];
    const Box2 box = map.mapBox(head.box);
    if (isDone(head, box, bucket))
        return;
    const bool isInside = m_visible.contains(box);
    const bool hasErased = m_erased.touches(head);
    for (std::size_t i = list.chunkBegin(chunk); i < list.chunkEnd(chunk); ++i) {
        if (hasErased && m_erased.isErased(list.owner(i)))
            continue;
        const Vec2 from = map.map(list[i].from);
        const Vec2 to = map.map(list[i].to);
        if (isInside)
            m_batcher.add(bucket, from.x, from.y, to.x, to.y);
        else
            line(from, to, bucket);
    }
}

void StrokePainter::line(Vec2 from, Vec2 to, Bucket& bucket)
{
    if (!Box2::of(from, to).meets(m_visible))
        return;
    const bool isInside = m_visible.contains(from) && m_visible.contains(to);
    if (isInside || clipLine(m_visible, from, to))
        m_batcher.add(bucket, from.x, from.y, to.x, to.y);
}

void StrokePainter::dash(Vec2 from, Vec2 to, Bucket& bucket)
{
    if (from == to)
        m_batcher.addDot(bucket, from.x, from.y);
    else
        line(from, to, bucket);
}

void StrokePainter::arcs(const ChunkedList<CurveArc>& list, std::size_t chunk, const Affine2& map,
                         Bucket& bucket)
{
    const auto& head = list.chunks()[chunk];
    if (isDone(head, map.mapBox(head.box), bucket))
        return;
    const bool hasErased = m_erased.touches(head);
    for (std::size_t i = list.chunkBegin(chunk); i < list.chunkEnd(chunk); ++i) {
        if (!hasErased || !m_erased.isErased(list.owner(i)))
            arc(list[i].mapped(map), bucket);
    }
}

void StrokePainter::rays(const std::vector<Ray>& rays, const Affine2& map, Bucket& bucket)
{
    for (const Ray& ray : rays) {
        Vec2 first;
        Vec2 last;
        if (!m_erased.isErased(ray.owner) && endsOf(ray, map, first, last))
            line(first, last, bucket);
    }
}

bool StrokePainter::endsOf(const Ray& ray, const Affine2& map, Vec2& first, Vec2& last) const
{
    const Vec2 from = map.map(ray.from);
    const Vec2 direction = map.mapVector(ray.direction);
    const double length = direction.length();
    // Far enough to pass all that is in sight.
    const double reach =
        (m_visible.centre() - from).length() + m_visible.width() + m_visible.height();
    if (!(length > 0) || !std::isfinite(length) || !std::isfinite(reach))
        return false;
    const Vec2 end = direction * (reach / length);
    first = ray.isTwoSided ? from - end : from;
    last = from + end;
    return true;
}

void StrokePainter::arc(const CurveArc& arc, Bucket& bucket)
{
    // The longest half-axis of the ellipse is at most the length of both vectors together.
    const double radius = arc.u.length() + arc.v.length();
    const Vec2 reach{radius, radius};
    if (!Box2::of(arc.centre - reach, arc.centre + reach).meets(m_visible))
        return;
    if (radius < kDot) {
        const Vec2 middle = arc.at(arc.start + arc.sweep / 2);
        m_batcher.addDot(bucket, middle.x, middle.y);
        return;
    }
    const double longestStep = std::sqrt(8 * kTolerance / arc.radius());
    const double steps = std::ceil(std::abs(arc.sweep) / longestStep);
    if (steps <= kMostSteps)
        arcBySteps(arc, std::max(static_cast<int>(steps), 1), bucket);
    else
        arcByHalves(arc, longestStep, bucket);
}

void StrokePainter::arcBySteps(const CurveArc& arc, int steps, Bucket& bucket)
{
    const double step = arc.sweep / steps;
    const double cosStep = std::cos(step);
    const double sinStep = std::sin(step);
    double c = std::cos(arc.start);
    double s = std::sin(arc.start);
    Vec2 from = arc.centre + arc.u * c + arc.v * s;
    for (int i = 1; i <= steps; ++i) {
        const double turned = c * cosStep - s * sinStep;
        s = s * cosStep + c * sinStep;
        c = turned;
        const Vec2 to = i == steps ? arc.last() : arc.centre + arc.u * c + arc.v * s;
        line(from, to, bucket);
        from = to;
    }
}

void StrokePainter::arcByHalves(const CurveArc& whole, double longestStep, Bucket& bucket)
{
    anyChordNear(whole, m_visible, longestStep, [&](Vec2 from, Vec2 to) {
        line(from, to, bucket);
        return false;
    });
}
