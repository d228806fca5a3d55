#include "host/canvas/strokes/LineRaster.h"

#include "host/canvas/strokes/LineClip.h"
#include "host/canvas/strokes/WideLine.h"

#include <algorithm>

LineRaster::LineRaster(QImage& image)
    : m_pixels(reinterpret_cast<QRgb*>(image.bits()))
    , m_stride(image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb)))
{
    setClip(image.rect());
}

void LineRaster::setClip(const QRect& clip)
{
    // A little less than the edge on the far side, so that cutting off the fraction stays inside.
    constexpr double kInside = 1.0 / 1024;
    m_left = clip.left();
    m_top = clip.top();
    m_right = clip.left() + clip.width() - kInside;
    m_bottom = clip.top() + clip.height() - kInside;
}

void LineRaster::setMask(const QImage& mask)
{
    m_mask.clear();
    if (mask.isNull())
        return;
    m_mask.resize(static_cast<std::size_t>(m_stride) * static_cast<std::size_t>(mask.height()));
    for (int y = 0; y < mask.height(); ++y) {
        const uchar* const line = mask.constScanLine(y);
        std::copy(line, line + mask.width(), m_mask.begin() + y * m_stride);
    }
}

void LineRaster::thickLine(double x1, double y1, double x2, double y2, QRgb colour, int thickness)
{
    const bool isFlat = std::abs(x2 - x1) >= std::abs(y2 - y1);
    for (int i = 0; i < thickness; ++i) {
        const double aside = i - (thickness - 1) / 2.0;
        const double dx = isFlat ? 0 : aside;
        const double dy = isFlat ? aside : 0;
        thinLine(x1 + dx, y1 + dy, x2 + dx, y2 + dy, colour);
    }
}

void LineRaster::wideLine(double x1, double y1, double x2, double y2, QRgb colour, int width)
{
    const Box2 reach = Box2{m_left, m_top, m_right, m_bottom}.grown(width);
    Vec2 from{x1, y1};
    Vec2 to{x2, y2};
    if (reach.isEmpty() || !clipLine(reach, from, to) || !reach.grown(1).contains(from)
        || !reach.grown(1).contains(to))
    {
        return;
    }
    const WideLine line(from.x, from.y, to.x, to.y, width);
    const bool isFlat = line.isFlat();
    const WideLine::Reach along = line.along();
    const auto first = static_cast<int>(std::max(along.low, isFlat ? m_left : m_top));
    const auto last = static_cast<int>(std::min(along.high, isFlat ? m_right : m_bottom));
    for (int major = first; major <= last; ++major) {
        const WideLine::Reach across = line.across(major + 0.5);
        const auto low = static_cast<int>(std::max(across.low, isFlat ? m_top : m_left));
        const auto high = static_cast<int>(std::min(across.high, isFlat ? m_bottom : m_right));
        for (int minor = low; minor <= high; ++minor) {
            const int x = isFlat ? major : minor;
            const int y = isFlat ? minor : major;
            const double share = line.coverage(x + 0.5, y + 0.5);
            const std::ptrdiff_t pixel = y * m_stride + x;
            if (share > 0 && (m_mask.empty() || m_mask[static_cast<std::size_t>(pixel)] != 0))
                m_pixels[pixel] = share >= 1 ? colour : blended(m_pixels[pixel], colour, share);
        }
    }
}

/// Calls for one pixel per step along the major axis, by its index in the image.
template <class Set>
void LineRaster::walk(const Span& span, std::ptrdiff_t majorStep, std::ptrdiff_t minorStep, Set set)
{
    constexpr int kFraction = 20;
    constexpr double kOne = 1 << kFraction;
    const auto begin = static_cast<std::ptrdiff_t>(span.from);
    const auto end = static_cast<std::ptrdiff_t>(span.to);
    const std::ptrdiff_t steps = end - begin;
    auto across = static_cast<std::int64_t>(span.first * kOne);
    const std::int64_t slope =
        steps > 0 ? static_cast<std::int64_t>((span.last - span.first) * kOne) / steps : 0;
    std::ptrdiff_t at = begin * majorStep;
    for (std::ptrdiff_t i = 0; i <= steps; ++i) {
        set(at + (across >> kFraction) * minorStep);
        at += majorStep;
        across += slope;
    }
}

void LineRaster::thinLine(double x1, double y1, double x2, double y2, QRgb colour)
{
    // Ends that are no numbers are inside of nothing, before or after.
    if (!isInside(x1, y1) || !isInside(x2, y2)) {
        Vec2 from{x1, y1};
        Vec2 to{x2, y2};
        const Box2 box{m_left, m_top, m_right, m_bottom};
        if (box.isEmpty() || !clipLine(box, from, to))
            return;
        // Rounding may leave a cut end a hair outside.
        x1 = std::clamp(from.x, m_left, m_right);
        y1 = std::clamp(from.y, m_top, m_bottom);
        x2 = std::clamp(to.x, m_left, m_right);
        y2 = std::clamp(to.y, m_top, m_bottom);
        if (!isInside(x1, y1) || !isInside(x2, y2))
            return;
    }
    const bool isFlat = std::abs(x2 - x1) >= std::abs(y2 - y1);
    const bool isForward = isFlat ? x1 <= x2 : y1 <= y2;
    if (!isForward) {
        std::swap(x1, x2);
        std::swap(y1, y2);
    }
    const Span span = isFlat ? Span{x1, x2, y1, y2} : Span{y1, y2, x1, x2};
    const std::ptrdiff_t majorStep = isFlat ? 1 : m_stride;
    const std::ptrdiff_t minorStep = isFlat ? m_stride : 1;
    if (m_mask.empty()) {
        walk(span, majorStep, minorStep, [&](std::ptrdiff_t pixel) { m_pixels[pixel] = colour; });
    } else {
        walk(span, majorStep, minorStep, [&](std::ptrdiff_t pixel) {
            if (m_mask[static_cast<std::size_t>(pixel)] != 0)
                m_pixels[pixel] = colour;
        });
    }
}
