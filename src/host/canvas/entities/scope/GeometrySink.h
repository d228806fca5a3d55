#pragma once

#include "host/canvas/display/DisplayList.h"
#include "host/canvas/scene/lines/PenTable.h"

#include <span>

/// Takes the geometry of one entity after the other into a display list. Coordinates are world plan
/// ones; what is not sane is left out and remembered.
class GeometrySink
{
public:
    explicit GeometrySink(DisplayList& list)
        : m_list(list)
    { }

    /// The next items are of that style and belong to the entity `owner`.
    void begin(Style style, quint32 owner);
    Style style() const { return m_style; }
    /// Which of the entity's pens the next lines and arcs take.
    void setPen(PenTable::Variant variant);

    void line(Vec2 from, Vec2 to, const PathRun& run = {});
    void point(Vec2 at) { line(at, at); }
    /// Each line for itself.
    void polyline(std::span<const Vec2> points, bool closed);
    /// One line along which a linetype runs on.
    void path(std::span<const Vec2> points, bool closed);
    void arc(const CurveArc& arc, const PathRun& run = {});
    void ray(Vec2 from, Vec2 direction, bool isTwoSided);
    /// One filled contour.
    void fill(std::span<const Vec2> contour);
    /// A filled area of several contours, odd-even: contours, then closeFill().
    void fillContour(std::span<const Vec2> contour);
    void closeFill();
    /// `box`: estimated extents in the coordinates of the text's unit vectors.
    void text(TextItem item, const Box2& box);
    /// The placement's result is in world plan coordinates.
    void instance(BlockInstance instance);

    /// What became of the items since begin().
    bool hasDrawn() const { return m_drawn; }
    bool hasRejected() const { return m_rejected; }

private:
    bool accept(bool sane);
    DisplayList::StrokeGroup& group();
    Vec2 local(Vec2 p) const { return p - m_list.basePoint(); }

    DisplayList& m_list;
    DisplayList::StrokeGroup* m_group = nullptr;
    Style m_style;
    PenTable::Variant m_variant = PenTable::kAsStated;
    quint32 m_owner = 0;
    bool m_drawn = false;
    bool m_rejected = false;
    quint32 m_fillBegin = 0;
    Box2 m_fillBox;
    std::vector<Vec2> m_localPoints;
};
