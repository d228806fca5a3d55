#include "host/canvas/entities/scope/GeometrySink.h"

#include <algorithm>

void GeometrySink::begin(Style style, quint32 owner)
{
    m_style = style;
    m_owner = owner;
    m_group = nullptr;
    m_variant = PenTable::kAsStated;
    m_drawn = false;
    m_rejected = false;
    m_fillBegin = m_list.contourCount();
    m_fillBox = {};
}

bool GeometrySink::accept(bool sane)
{
    (sane ? m_drawn : m_rejected) = true;
    return sane;
}

void GeometrySink::setPen(PenTable::Variant variant)
{
    m_variant = variant;
    m_group = nullptr;
}

DisplayList::StrokeGroup& GeometrySink::group()
{
    if (!m_group)
        m_group = &m_list.group({m_style.layer, m_style.colour, m_style.pen + m_variant});
    return *m_group;
}

void GeometrySink::line(Vec2 from, Vec2 to, const PathRun& run)
{
    if (!accept(isSane(from) && isSane(to)))
        return;
    const Segment segment{local(from), local(to)};
    m_list.addSegment(group(), segment, m_owner, run);
}

void GeometrySink::path(std::span<const Vec2> points, bool closed)
{
    if (points.size() < 2)
        return;
    const bool closes = closed && points.size() > 2;
    double total = 0;
    for (std::size_t i = 1; i < points.size(); ++i)
        total += (points[i] - points[i - 1]).length();
    if (closes)
        total += (points.front() - points.back()).length();
    PathRun run{0, total};
    for (std::size_t i = 1; i < points.size(); ++i) {
        line(points[i - 1], points[i], run);
        run.along += (points[i] - points[i - 1]).length();
    }
    if (closes)
        line(points.back(), points.front(), run);
}

void GeometrySink::polyline(std::span<const Vec2> points, bool closed)
{
    for (std::size_t i = 1; i < points.size(); ++i)
        line(points[i - 1], points[i]);
    if (closed && points.size() > 2)
        line(points.back(), points.front());
}

void GeometrySink::arc(const CurveArc& arc, const PathRun& run)
{
    if (!accept(arc.isSane()))
        return;
    CurveArc moved = arc;
    moved.centre = local(arc.centre);
    m_list.addArc(group(), moved, m_owner, run);
}

void GeometrySink::ray(Vec2 from, Vec2 direction, bool isTwoSided)
{
    if (accept(isSane(from) && isSane(direction)))
        group().rays.push_back({local(from), direction, isTwoSided, m_owner});
}

void GeometrySink::fill(std::span<const Vec2> contour)
{
    fillContour(contour);
    closeFill();
}

void GeometrySink::fillContour(std::span<const Vec2> contour)
{
    if (contour.size() < 3 || !accept(std::all_of(contour.begin(), contour.end(), isSane)))
        return;
    m_localPoints.clear();
    for (const Vec2 p : contour) {
        m_localPoints.push_back(local(p));
        m_fillBox.add(m_localPoints.back());
    }
    m_list.addContour(m_localPoints);
}

void GeometrySink::closeFill()
{
    const quint32 end = m_list.contourCount();
    if (end > m_fillBegin)
        m_list.addFill({m_style, m_fillBegin, end, m_fillBox}, m_owner);
    m_fillBegin = end;
    m_fillBox = {};
}

void GeometrySink::text(TextItem item, const Box2& box)
{
    if (!accept(isSane(item.position) && isSane(item.along) && isSane(item.up)))
        return;
    item.style = m_style;
    item.position = local(item.position);
    item.bounds = Affine2{item.along, item.up, item.position, {}}.mapBox(box);
    m_list.addText(item, m_owner);
}

void GeometrySink::instance(BlockInstance instance)
{
    const Affine2& placement = instance.placement;
    if (!accept(isSane(placement.t) && isSane(placement.ax) && isSane(placement.ay)
                && isSane(instance.columnStep) && isSane(instance.rowStep)))
    {
        return;
    }
    instance.style = m_style;
    instance.placement.t = local(placement.t);
    m_list.addInstance(instance, m_owner);
}
