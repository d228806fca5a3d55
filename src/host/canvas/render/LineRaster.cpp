#include "host/canvas/render/LineRaster.h"

#include "host/canvas/render/LineClip.h"

#include <algorithm>

LineRaster::LineRaster(QImage& image, int thickness)
    : m_pixels(reinterpret_cast<QRgb*>(image.bits()))
    , m_stride(image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb)))
    , m_thickness(thickness)
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

void LineRaster::line(double x1, double y1, double x2, double y2, QRgb colour)
{
    if (m_thickness <= 1) {
        thinLine(x1, y1, x2, y2, colour);
        return;
    }
    const bool isFlat = std::abs(x2 - x1) >= std::abs(y2 - y1);
    for (int i = 0; i < m_thickness; ++i) {
        const double aside = i - (m_thickness - 1) / 2.0;
        const double dx = isFlat ? 0 : aside;
        const double dy = isFlat ? aside : 0;
        thinLine(x1 + dx, y1 + dy, x2 + dx, y2 + dy, colour);
    }
}

void LineRaster::thinLine(double x1, double y1, double x2, double y2, QRgb colour)
{
    if (!(std::min(x1, x2) >= m_left && std::max(x1, x2) <= m_right && std::min(y1, y2) >= m_top
          && std::max(y1, y2) <= m_bottom))
    {
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
    }
    const bool isFlat = std::abs(x2 - x1) >= std::abs(y2 - y1);
    const bool isForward = isFlat ? x1 <= x2 : y1 <= y2;
    if (!isForward) {
        std::swap(x1, x2);
        std::swap(y1, y2);
    }
    if (isFlat)
        walk({x1, x2, y1, y2}, 1, m_stride, colour);
    else
        walk({y1, y2, x1, x2}, m_stride, 1, colour);
}

/// Sets one pixel per step along the major axis.
void LineRaster::walk(const Span& span, std::ptrdiff_t majorStep, std::ptrdiff_t minorStep,
                      QRgb colour)
{
    constexpr int kFraction = 20;
    constexpr double kOne = 1 << kFraction;
    const auto begin = static_cast<std::ptrdiff_t>(span.from);
    const auto end = static_cast<std::ptrdiff_t>(span.to);
    const std::ptrdiff_t steps = end - begin;
    auto across = static_cast<std::int64_t>(span.first * kOne);
    const std::int64_t slope =
        steps > 0 ? static_cast<std::int64_t>((span.last - span.first) * kOne) / steps : 0;
    QRgb* at = m_pixels + begin * majorStep;
    for (std::ptrdiff_t i = 0; i <= steps; ++i) {
        at[(across >> kFraction) * minorStep] = colour;
        at += majorStep;
        across += slope;
    }
}
