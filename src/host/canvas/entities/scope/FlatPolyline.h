#pragma once

#include "host/canvas/display/ChunkedList.h"
#include "host/canvas/geometry/CurveArc.h"
#include "host/canvas/geometry/Ocs.h"

#include <vector>

class GeometrySink;

/// Polyline of a plane: straight and arc segments, each with a width at either end.
class FlatPolyline
{
public:
    struct Vertex
    {
        Vec2 at;
        double bulge = 0; ///< of the segment that starts here
        double startWidth = 0;
        double endWidth = 0;
    };

    Ocs ocs;
    double elevation = 0;
    bool isClosed = false;
    bool linetypeRunsOn = false; ///< over the vertices; else it starts anew at each
    std::vector<Vertex> vertices;

    /// Thin segments become strokes, wide ones filled bands.
    void draw(GeometrySink& sink) const;

private:
    std::size_t segmentCount() const;
    const Vertex& endOf(std::size_t segment) const
    {
        return vertices[(segment + 1) % vertices.size()];
    }
    Vec2 toPlan(Vec2 p) const { return ocs.plan(p, elevation); }
    double lengthOf(std::size_t segment) const;
    void drawThin(GeometrySink& sink, std::size_t segment, const PathRun& run) const;
    void drawWide(GeometrySink& sink, std::size_t segment) const;
    void drawParallel(GeometrySink& sink, CurveArc arc, double outwards) const;
    Vec2 tangent(std::size_t segment, bool atEnd) const;
    Vec2 mitre(std::size_t segment, bool atEnd) const;
    bool isDegenerate(std::size_t segment) const;
};
