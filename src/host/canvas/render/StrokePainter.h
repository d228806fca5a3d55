#pragma once

#include "host/canvas/render/ErasedFilter.h"
#include "host/canvas/render/LineBatcher.h"
#include "host/canvas/scene/DisplayList.h"

/// Maps strokes to the image, leaves out what is out of sight, and hands the rest to a batcher.
class StrokePainter
{
public:
    StrokePainter(LineBatcher& batcher, const ErasedFilter& erased)
        : m_batcher(batcher)
        , m_erased(erased)
    { }

    /// What can be seen, in pixels of the image.
    void setVisible(const Box2& visible) { m_visible = visible; }

    using Bucket = LineBatcher::Bucket;
    void segments(const ChunkedList<Segment>& list, std::size_t chunk, const Affine2& map,
                  Bucket& bucket);
    void arcs(const ChunkedList<CurveArc>& list, std::size_t chunk, const Affine2& map,
              Bucket& bucket);
    void rays(const std::vector<Ray>& rays, const Affine2& map, Bucket& bucket);

private:
    template <class Chunk>
    bool isDone(const Chunk& chunk, const Box2& box, Bucket& bucket);
    void line(Vec2 from, Vec2 to, Bucket& bucket);
    void arc(const CurveArc& arc, Bucket& bucket);
    void arcBySteps(const CurveArc& arc, int steps, Bucket& bucket);
    void arcByHalves(const CurveArc& arc, double longestStep, Bucket& bucket);

    LineBatcher& m_batcher;
    const ErasedFilter& m_erased;
    Box2 m_visible;
};
