#include "host/canvas/display/DisplayList.h"

#include "database/values/OdCmColor.h"

#include <algorithm>

namespace {

template <class Item>
Box2 boxOf(const ChunkedList<Item>& list)
{
    Box2 box;
    for (const auto& chunk : list.chunks())
        box.add(chunk.box);
    return box;
}

} // namespace

DisplayList::StrokeGroup& DisplayList::group(Style style)
{
    constexpr quint32 kByLayer = quint32(OdCmColor::kByLayer) << 24;
    return style.colour == kByLayer && style.pen == 0 ? plainGroup(style) : otherGroup(style);
}

/// Most entities have everything from their layer: no hashing for those.
DisplayList::StrokeGroup& DisplayList::plainGroup(Style style)
{
    if (style.layer >= m_plainGroups.size())
        m_plainGroups.resize(style.layer + 1, kNoIndex);
    quint32& known = m_plainGroups[style.layer];
    if (known == kNoIndex) {
        known = static_cast<quint32>(m_groups.size());
        m_groups.push_back({style, {}, {}, {}});
    }
    return m_groups[known];
}

DisplayList::StrokeGroup& DisplayList::otherGroup(Style style)
{
    const auto known = m_groupIndex.constFind(style);
    if (known != m_groupIndex.cend())
        return m_groups[known.value()];
    m_groupIndex.insert(style, static_cast<quint32>(m_groups.size()));
    m_groups.push_back({style, {}, {}, {}});
    return m_groups.back();
}

void DisplayList::addSegment(StrokeGroup& group, const Segment& segment, quint32 owner,
                             const PathRun& run)
{
    if (m_isSorted)
        group.segments.append(segment, segment.box(), owner, run);
    else
        group.segments.collect(segment, owner, run);
}

void DisplayList::addArc(StrokeGroup& group, const CurveArc& arc, quint32 owner, const PathRun& run)
{
    if (m_isSorted)
        group.arcs.append(arc, arc.box(), owner, run);
    else
        group.arcs.collect(arc, owner, run);
}

void DisplayList::sortStrokes()
{
    // What edits add later stays at the end.
    if (m_isSorted)
        return;
    m_isSorted = true;
    for (StrokeGroup& group : m_groups) {
        group.segments.sortByPlace();
        group.arcs.sortByPlace();
    }
}

void DisplayList::retire(const std::vector<quint32>& owners)
{
    const auto isRetired = [&](quint32 owner) {
        return std::binary_search(owners.begin(), owners.end(), owner);
    };
    for (StrokeGroup& group : m_groups) {
        group.segments.retire(owners);
        group.arcs.retire(owners);
        std::erase_if(group.rays, [&](const Ray& ray) { return isRetired(ray.owner); });
    }
    m_fills.retire(owners);
    m_texts.retire(owners);
    m_instances.retire(owners);
    std::erase_if(m_viewports, [&](const SheetViewport& v) { return isRetired(v.slot); });
}

void DisplayList::addFill(const FillItem& fill, quint32 owner)
{
    m_fills.append(fill, fill.bounds, owner);
}

void DisplayList::addContour(std::span<const Vec2> points)
{
    m_fillPoints.insert(m_fillPoints.end(), points.begin(), points.end());
    m_contourEnds.push_back(static_cast<quint32>(m_fillPoints.size()));
}

std::span<const Vec2> DisplayList::contour(quint32 index) const
{
    const quint32 begin = index == 0 ? 0 : m_contourEnds[index - 1];
    return std::span(m_fillPoints).subspan(begin, m_contourEnds[index] - begin);
}

DisplayList::Totals DisplayList::ownTotals() const
{
    Totals totals;
    for (const StrokeGroup& group : m_groups) {
        totals.box.add(boxOf(group.segments));
        totals.box.add(boxOf(group.arcs));
        totals.items += group.segments.size() + group.arcs.size() + group.rays.size();
    }
    totals.box.add(boxOf(m_fills));
    totals.box.add(boxOf(m_texts));
    totals.items += m_fills.size() + m_texts.size();
    totals.hasFills = !m_fills.isEmpty();
    totals.hasTexts = !m_texts.isEmpty();
    return totals;
}
