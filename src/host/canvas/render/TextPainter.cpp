#include "host/canvas/render/TextPainter.h"

#include "host/canvas/render/LineClip.h"

#include <QPainter>

namespace {

constexpr double kReadable = 2.0; ///< height of a capital letter in pixels
constexpr double kLargest = 20000;

} // namespace

void TextPainter::paint(QPainter& painter, const TextItem& text, const Affine2& map, QRgb colour)
{
    const Box2 box = map.mapBox(text.bounds);
    if (!box.meets(m_visible))
        return;
    const Vec2 position = map.map(text.position);
    const Vec2 along = map.mapVector(text.along);
    const Vec2 up = map.mapVector(text.up);
    const bool isLegible = std::abs(along.x * up.y - along.y * up.x) >= kReadable * kReadable * 0.25
        && up.length() >= kReadable;
    if (!isLegible) {
        const Box2& extent = m_pool.extent(text.shape);
        const double middle = extent.centre().y;
        Vec2 from = position + along * extent.minX + up * middle;
        Vec2 to = position + along * extent.maxX + up * middle;
        if (clipLine(m_visible, from, to))
            m_batcher.add(m_batcher.bucket(colour), from.x, from.y, to.x, to.y);
        return;
    }
    // Letters much larger than any window show nothing but an edge somewhere, at great cost.
    if (up.length() > kLargest || along.length() > kLargest)
        return;
    painter.setTransform(QTransform(along.x, along.y, up.x, up.y, position.x, position.y));
    painter.fillPath(m_shaper.outline(m_pool, text.shape), QColor::fromRgb(colour));
    painter.resetTransform();
}
