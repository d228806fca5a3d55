#include "host/canvas/render/ViewTransform.h"

namespace {

constexpr double kMargin = 1.06;
// A window this many units wide or high is the least and the most to be seen; the least also
// follows the precision of numbers at the place.
constexpr double kSmallestExtent = 1e-9;
constexpr double kRelativeExtent = 1e-12;
constexpr double kLargestExtent = 1e17;

} // namespace

void ViewTransform::pan(QPointF by)
{
    m_centre = m_centre - Vec2{by.x() / m_scale, -by.y() / m_scale};
}

void ViewTransform::zoomAbout(QPointF point, double factor)
{
    const double extent = std::max(m_size.width(), m_size.height());
    const double place = std::max(std::abs(m_centre.x), std::abs(m_centre.y));
    const double least = std::max(kSmallestExtent, place * kRelativeExtent);
    const Vec2 fixed = toWorld(point);
    m_scale = std::clamp(m_scale * factor, extent / kLargestExtent, extent / least);
    m_centre = m_centre + (fixed - toWorld(point));
}

void ViewTransform::fit(const Box2& box)
{
    const bool isSound =
        !box.isEmpty() && isSane({box.minX, box.minY}) && isSane({box.maxX, box.maxY});
    const Box2 shown = isSound ? box : Box2{0, 0, 1, 1};
    m_centre = shown.centre();
    // A lone point has no extent: a unit around it will do.
    const bool isPoint = shown.width() <= 0 && shown.height() <= 0;
    const double width = isPoint ? 1 : std::max(shown.width(), 1e-12);
    const double height = isPoint ? 1 : std::max(shown.height(), 1e-12);
    m_scale = std::min(m_size.width() / (width * kMargin), m_size.height() / (height * kMargin));
    zoomAbout(QPointF(m_size.width() / 2, m_size.height() / 2), 1);
}

Affine2 ViewTransform::toWindow() const
{
    return {{m_scale, 0}, {0, -m_scale}, {m_size.width() / 2, m_size.height() / 2}, m_centre};
}

QPointF ViewTransform::toWindow(Vec2 world) const
{
    const Vec2 p = toWindow().map(world);
    return {p.x, p.y};
}

Vec2 ViewTransform::toWorld(QPointF window) const
{
    return m_centre
        + Vec2{(window.x() - m_size.width() / 2) / m_scale,
               (m_size.height() / 2 - window.y()) / m_scale};
}
