#include "host/canvas/render/TextPainter.h"

#include "host/canvas/strokes/LineClip.h"
#include "host/canvas/text/TextExtent.h"

#include <QPainter>

namespace {

constexpr double kApart = 2.0; ///< pixels between strokes that stand for lines
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
        paintLines(text, {along, up, position, {}}, m_batcher.bucket(colour));
        return;
    }
    // Letters much larger than any window show nothing but an edge somewhere, at great cost.
    if (up.length() > kLargest || along.length() > kLargest)
        return;
    painter.setTransform(QTransform(along.x, along.y, up.x, up.y, position.x, position.y));
    painter.fillPath(m_shaper.outline(m_pool, text.shape), QColor::fromRgb(colour));
    painter.resetTransform();
}

/// A stroke in place of every line of the text, or of as many as can be told apart.
void TextPainter::paintLines(const TextItem& text, const Affine2& place,
                             LineBatcher::Bucket& bucket)
{
    const Box2& extent = m_pool.extent(text.shape);
    const double step = m_pool[text.shape].lineStep;
    const int lines = step > 0 ? linesIn(extent, step) : 1;
    const double apart = place.ay.length() * std::max(step, 0.0);
    const int stride = apart > 0 ? static_cast<int>(std::ceil(std::min(kApart / apart, 1e6))) : 1;
    for (int line = 0; line < lines; line += stride) {
        const double y = middleOfLine(extent, step, line);
        Vec2 from = place.map({extent.minX, y});
        Vec2 to = place.map({extent.maxX, y});
        if (clipLine(m_visible, from, to))
            m_batcher.add(bucket, from.x, from.y, to.x, to.y);
    }
}
