#pragma once

#include "host/canvas/strokes/StrokeLook.h"
#include "host/canvas/strokes/StrokePainter.h"

class DashWalk;

/// Paints strokes of linetypes with gaps. Lengths of patterns count in the coordinates of the
/// display list, so a pattern grows with the reference that it stands in.
class DashedPainter
{
public:
    explicit DashedPainter(StrokePainter& strokes)
        : m_strokes(strokes)
    { }

    /// Whether the gaps can be told from the dashes at that scale.
    static bool isWorthIt(const StrokeLook& look, const Affine2& map);

    using Bucket = LineBatcher::Bucket;
    void segments(const ChunkedList<Segment>& list, std::size_t chunk, const Affine2& map,
                  const StrokeLook& look, Bucket& bucket);
    void arcs(const ChunkedList<CurveArc>& list, std::size_t chunk, const Affine2& map,
              const StrokeLook& look, Bucket& bucket);
    void rays(const std::vector<Ray>& rays, const Affine2& map, const StrokeLook& look,
              Bucket& bucket);

private:
    void segment(const Segment& segment, const PathRun& run, const Affine2& map,
                 const StrokeLook& look, Bucket& bucket);
    void arc(const CurveArc& arc, const PathRun& run, const Affine2& map, const StrokeLook& look,
             Bucket& bucket);
    void arcPart(const CurveArc& part, double along, double length, const DashWalk& walk,
                 const Affine2& map, Bucket& bucket);

    StrokePainter& m_strokes;
};
