#pragma once

#include "host/canvas/entities/scope/EntityFields.h"
#include "host/canvas/geometry/Box2.h"

/// Boundary paths of a hatch as closed point lists in its plane. A bulge, arc or spline becomes
/// short chords.
class HatchBoundary
{
public:
    using Contour = std::vector<Vec2>;

    /// Reads the paths from the groups of a HATCH. Counts in the file are not trusted: a path ends
    /// where its groups do.
    explicit HatchBoundary(const std::vector<EntityFields::Group>& groups);

    const std::vector<Contour>& contours() const { return m_contours; }
    std::size_t pointCount() const;
    Box2 box() const;

private:
    bool atEnd() const { return m_at >= m_groups.size(); }
    bool isNext(int code) const { return !atEnd() && m_groups[m_at].code == code; }
    /// Value of the next group if it has that code, else the fallback.
    double take(int code, double fallback = 0);
    Vec2 takePoint(int xCode);
    void readPath();
    void readPolyline();
    void readEdges();
    bool readEdge(Contour& edge);
    void readArc(Contour& edge, bool isEllipse);
    void readSpline(Contour& edge);

    const std::vector<EntityFields::Group>& m_groups;
    std::size_t m_at = 0;
    std::vector<Contour> m_contours;
};
