#pragma once

#include "host/canvas/display/DisplayList.h"
#include "host/canvas/render/ErasedFilter.h"
#include "host/canvas/strokes/LineBatcher.h"

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
    const Box2& visible() const { return m_visible; }

    using Bucket = LineBatcher::Bucket;
    void segments(const ChunkedList<Segment>& list, std::size_t chunk, const Affine2& map,
                  Bucket& bucket);
    void arcs(const ChunkedList<CurveArc>& list, std::size_t chunk, const Affine2& map,
              Bucket& bucket);
    void rays(const std::vector<Ray>& rays, const Affine2& map, Bucket& bucket);

    // Pieces, in pixels of the image.
    /// What is smaller, in pixels, is drawn as a dot.
    static constexpr double kDot = 1.0;
    /// Settles chunks that are out of sight or shrink to one pixel.
    template <class Chunk>
    bool isDone(const Chunk& chunk, const Box2& box, Bucket& bucket);
    bool isErased(quint32 owner) const { return m_erased.isErased(owner); }
    void line(Vec2 from, Vec2 to, Bucket& bucket);
    /// A line that may have no length, and is a dot then.
    void dash(Vec2 from, Vec2 to, Bucket& bucket);
    void arc(const CurveArc& arc, Bucket& bucket);
    /// Ends of a ray outside of all that is in sight; false where it has no direction.
    bool endsOf(const Ray& ray, const Affine2& map, Vec2& first, Vec2& last) const;

private:
    void arcBySteps(const CurveArc& arc, int steps, Bucket& bucket);
    void arcByHalves(const CurveArc& arc, double longestStep, Bucket& bucket);

    LineBatcher& m_batcher;
    const ErasedFilter& m_erased;
    Box2 m_visible;
};

template <class Chunk>
bool StrokePainter::isDone(const Chunk& chunk, const Box2& box, Bucket& bucket)
{
    if (!box.meets(m_visible))
        return true;
    if (box.width() >= kDot || box.height() >= kDot || m_erased.touches(chunk))
        return false;
    m_batcher.addDot(bucket, box.minX, box.minY);
    return true;
}
