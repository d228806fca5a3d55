#pragma once

#include "host/canvas/display/ChunkedList.h"
#include "host/canvas/display/DisplayItems.h"

#include <QByteArray>
#include <QHash>

#include <span>

/// What is to be drawn of one block or space, in its own coordinates (relative to its base point):
/// strokes grouped by style, fills in drawing order, texts, and references to other blocks.
class DisplayList
{
public:
    struct StrokeGroup
    {
        Style style;
        ChunkedList<Segment> segments;
        ChunkedList<CurveArc> arcs;
        std::vector<Ray> rays; ///< they have no extents
    };

    DisplayList(quint32 slot, Vec2 basePoint)
        : m_slot(slot)
        , m_basePoint(basePoint)
    { }

    /// Slot of the block.
    quint32 slot() const { return m_slot; }
    Vec2 basePoint() const { return m_basePoint; }

    /// The group of a style; valid until the next call for another style.
    StrokeGroup& group(Style style);
    void addSegment(StrokeGroup& group, const Segment& segment, quint32 owner, const PathRun& run);
    void addArc(StrokeGroup& group, const CurveArc& arc, quint32 owner, const PathRun& run);
    void addFill(const FillItem& fill, quint32 owner);
    void addContour(std::span<const Vec2> points);
    void addText(const TextItem& text, quint32 owner) { m_texts.append(text, text.bounds, owner); }
    void addInstance(const BlockInstance& instance, quint32 owner)
    {
        m_instances.append(instance, {}, owner);
    }
    void addViewport(const SheetViewport& viewport) { m_viewports.push_back(viewport); }
    void setUndrawn(const QHash<QByteArray, int>& undrawn) { m_undrawn = undrawn; }
    void countUndrawn(const QByteArray& type, int count = 1) { m_undrawn[type] += count; }

    /// Arranges strokes for painting parts of the list; to be called when all are there.
    void sortStrokes();
    /// Takes what these entities, in ascending order, have in the list out of sight for good.
    void retire(const std::vector<quint32>& owners);

    const std::vector<StrokeGroup>& groups() const { return m_groups; }
    const ChunkedList<FillItem>& fills() const { return m_fills; }
    quint32 contourCount() const { return static_cast<quint32>(m_contourEnds.size()); }
    std::span<const Vec2> contour(quint32 index) const;
    const ChunkedList<TextItem>& texts() const { return m_texts; }
    const ChunkedList<BlockInstance>& instances() const { return m_instances; }
    ChunkedList<BlockInstance>& instances() { return m_instances; }
    const std::vector<SheetViewport>& viewports() const { return m_viewports; }
    std::vector<SheetViewport>& viewports() { return m_viewports; }
    /// Entities that are not drawn, by type.
    const QHash<QByteArray, int>& undrawn() const { return m_undrawn; }

    /// Facts about the block with everything it refers to, known when the scene is linked.
    struct Totals
    {
        Box2 box; ///< of all items, visible or not
        quint64 items = 0; ///< to be painted, nested ones counted as often as they appear
        int depth = 0; ///< of nesting below
        bool hasFills = false;
        bool hasTexts = false;
        bool isLinked = false;
    };
    const Totals& totals() const { return m_totals; }
    void setTotals(const Totals& totals) { m_totals = totals; }
    /// Totals of the list's own items.
    Totals ownTotals() const;

private:
    StrokeGroup& plainGroup(Style style);
    StrokeGroup& otherGroup(Style style);

    quint32 m_slot;
    Vec2 m_basePoint;
    std::vector<StrokeGroup> m_groups;
    QHash<Style, quint32> m_groupIndex;
    std::vector<quint32> m_plainGroups; ///< by layer: those of entities without own properties
    ChunkedList<FillItem> m_fills;
    std::vector<Vec2> m_fillPoints;
    std::vector<quint32> m_contourEnds;
    ChunkedList<TextItem> m_texts;
    ChunkedList<BlockInstance> m_instances;
    std::vector<SheetViewport> m_viewports;
    QHash<QByteArray, int> m_undrawn;
    Totals m_totals;
    bool m_isSorted = false;
};
