#include "host/canvas/picking/EntityPicker.h"

#include "host/canvas/picking/ItemWalk.h"
#include "host/canvas/picking/ShapeTests.h"

namespace {

constexpr double kChordShare = 1e-3; ///< of the box: how near chords keep to their arc

/// Mapped contours of a fill.
class FillShape
{
public:
    FillShape(const DisplayList& list, const FillItem& fill, const Affine2& map)
    {
        for (quint32 i = fill.firstContour; i < fill.endContour; ++i) {
            std::vector<Vec2> contour;
            for (const Vec2 p : list.contour(i))
                contour.push_back(map.map(p));
            m_contours.push_back(std::move(contour));
        }
    }
    bool contains(Vec2 point) const
    {
        bool isInside = false;
        for (const auto& contour : m_contours)
            isInside ^= shape_tests::isAround(contour, point);
        return isInside;
    }
    bool touches(const Box2& box) const
    {
        for (const auto& contour : m_contours) {
            if (shape_tests::edgeTouches(box, contour))
                return true;
        }
        return contains(box.centre());
    }

private:
    std::vector<std::vector<Vec2>> m_contours;
};

bool touchesText(const Box2& box, const std::array<Vec2, 4>& corners)
{
    return shape_tests::edgeTouches(box, corners) || shape_tests::isAround(corners, box.centre());
}

/// Looks for what comes nearest to a point.
class NearestItem : public ItemVisitor
{
public:
    NearestItem(Vec2 point, double halfSide)
        : m_point(point)
        , m_square(Box2::of(point, point).grown(halfSide))
        , m_halfSide(halfSide)
    { }

    std::optional<quint32> owner() const { return m_owner; }

    Box2 region() const override { return m_square; }
    Interest interest(const Box2& box) const override
    {
        return box.meets(m_square) ? Interest::Items : Interest::None;
    }
    bool wants(quint32) const override { return true; }
    void whole(quint32) override { }
    void segment(quint32 owner, Vec2 from, Vec2 to) override
    {
        if (shape_tests::touches(m_square, from, to))
            offer(owner, Rank::Stroke, shape_tests::distance(m_point, from, to));
    }
    void arc(quint32 owner, const CurveArc& arc) override
    {
        shape_tests::anyChord(arc, m_square, m_halfSide * kChordShare, [&](Vec2 from, Vec2 to) {
            segment(owner, from, to);
            return false;
        });
    }
    void ray(quint32 owner, const Ray& ray) override
    {
        if (!shape_tests::touches(m_square, ray))
            return;
        const Vec2 along = ray.direction * (1 / std::max(ray.direction.length(), 1e-300));
        const Vec2 to = m_point - ray.from;
        const double share = to.x * along.x + to.y * along.y;
        const double near = ray.isTwoSided ? share : std::max(share, 0.0);
        offer(owner, Rank::Stroke, (to - along * near).length());
    }
    void text(quint32 owner, const std::array<Vec2, 4>& corners) override
    {
        if (touchesText(m_square, corners))
            offer(owner, Rank::Text, 0);
    }
    void fill(quint32 owner, const DisplayList& list, const FillItem& fill,
              const Affine2& map) override
    {
        if (FillShape(list, fill, map).touches(m_square))
            offer(owner, Rank::Area, 0);
    }

private:
    enum class Rank { Stroke, Text, Area };

    /// Equal ones: entities stand in the drawing in the order in which they are drawn.
    void offer(quint32 owner, Rank rank, double distance)
    {
        const bool isBetter = !m_owner || rank < m_rank
            || (rank == m_rank
                && (distance < m_distance || (distance == m_distance && owner > *m_owner)));
        if (!isBetter)
            return;
        m_owner = owner;
        m_rank = rank;
        m_distance = distance;
    }

    Vec2 m_point;
    Box2 m_square;
    double m_halfSide;
    std::optional<quint32> m_owner;
    Rank m_rank = Rank::Area;
    double m_distance = 0;
};

/// A set of slots.
class SlotSet
{
public:
    bool has(quint32 slot) const { return slot < m_marks.size() && m_marks[slot]; }
    void add(quint32 slot)
    {
        if (has(slot))
            return;
        if (m_marks.size() <= slot)
            m_marks.resize(std::max<std::size_t>(slot + 1, 2 * m_marks.size()));
        m_marks[slot] = true;
        m_slots.push_back(slot);
    }
    std::vector<quint32> sorted() const
    {
        std::vector<quint32> all = m_slots;
        std::sort(all.begin(), all.end());
        return all;
    }

private:
    std::vector<bool> m_marks;
    std::vector<quint32> m_slots;
};

/// Collects what a box touches.
class TouchedItems : public ItemVisitor
{
public:
    explicit TouchedItems(const Box2& window)
        : m_window(window)
        , m_tolerance(std::max(window.width(), window.height()) * kChordShare)
    { }

    std::vector<quint32> owners() const { return m_found.sorted(); }

    Box2 region() const override { return m_window; }
    Interest interest(const Box2& box) const override
    {
        if (!box.meets(m_window))
            return Interest::None;
        return m_window.contains(box) ? Interest::Whole : Interest::Items;
    }
    bool wants(quint32 owner) const override { return !m_found.has(owner); }
    void whole(quint32 owner) override { m_found.add(owner); }
    void segment(quint32 owner, Vec2 from, Vec2 to) override
    {
        if (shape_tests::touches(m_window, from, to))
            m_found.add(owner);
    }
    void arc(quint32 owner, const CurveArc& arc) override
    {
        const bool touches =
            shape_tests::anyChord(arc, m_window, m_tolerance, [this](Vec2 from, Vec2 to) {
                return shape_tests::touches(m_window, from, to);
            });
        if (touches)
            m_found.add(owner);
    }
    void ray(quint32 owner, const Ray& ray) override
    {
        if (shape_tests::touches(m_window, ray))
            m_found.add(owner);
    }
    void text(quint32 owner, const std::array<Vec2, 4>& corners) override
    {
        if (touchesText(m_window, corners))
            m_found.add(owner);
    }
    void fill(quint32 owner, const DisplayList& list, const FillItem& fill,
              const Affine2& map) override
    {
        if (FillShape(list, fill, map).touches(m_window))
            m_found.add(owner);
    }

private:
    Box2 m_window;
    double m_tolerance;
    SlotSet m_found;
};

/// Collects what is wholly inside a box. What lies elsewhere must be looked at too: it may be a
/// part of something that has another part inside.
class EnclosedItems : public ItemVisitor
{
public:
    explicit EnclosedItems(const Box2& window)
        : m_window(window)
    { }

    std::vector<quint32> owners() const
    {
        std::vector<quint32> all = m_inside.sorted();
        std::erase_if(all, [this](quint32 slot) { return m_outside.has(slot); });
        return all;
    }

    Box2 region() const override
    {
        constexpr double kInfinite = std::numeric_limits<double>::infinity();
        return {-kInfinite, -kInfinite, kInfinite, kInfinite};
    }
    Interest interest(const Box2& box) const override
    {
        const bool isInside = !box.isEmpty() && m_window.contains(box);
        return isInside ? Interest::Whole : Interest::Items;
    }
    bool wants(quint32 owner) const override { return !m_outside.has(owner); }
    void whole(quint32 owner) override { m_inside.add(owner); }
    void segment(quint32 owner, Vec2 from, Vec2 to) override
    {
        note(owner, m_window.contains(from) && m_window.contains(to));
    }
    void arc(quint32 owner, const CurveArc& arc) override
    {
        note(owner, m_window.contains(arc.box()));
    }
    void ray(quint32 owner, const Ray&) override { note(owner, false); }
    void text(quint32 owner, const std::array<Vec2, 4>& corners) override
    {
        note(owner, std::all_of(corners.begin(), corners.end(), [this](Vec2 p) {
                 return m_window.contains(p);
             }));
    }
    void fill(quint32 owner, const DisplayList&, const FillItem& fill, const Affine2& map) override
    {
        note(owner, m_window.contains(map.mapBox(fill.bounds)));
    }

private:
    void note(quint32 owner, bool isInside) { (isInside ? m_inside : m_outside).add(owner); }

    Box2 m_window;
    SlotSet m_inside;
    SlotSet m_outside;
};

} // namespace

std::optional<quint32> EntityPicker::nearest(Vec2 point, double halfSide) const
{
    if (m_picks.isEmpty())
        return std::nullopt;
    NearestItem visitor(point, halfSide);
    ItemWalk(m_picks, visitor).run();
    return visitor.owner();
}

std::vector<quint32> EntityPicker::inside(const Box2& window) const
{
    if (m_picks.isEmpty())
        return {};
    EnclosedItems visitor(window);
    ItemWalk(m_picks, visitor).run();
    return visitor.owners();
}

std::vector<quint32> EntityPicker::touched(const Box2& window) const
{
    if (m_picks.isEmpty())
        return {};
    TouchedItems visitor(window);
    ItemWalk(m_picks, visitor).run();
    return visitor.owners();
}
