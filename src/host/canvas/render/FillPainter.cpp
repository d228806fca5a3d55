#include "host/canvas/render/FillPainter.h"

#include "host/canvas/strokes/LineClip.h"

#include <QPainter>
#include <QPainterPath>

namespace {

// The painter's own numbers end not far beyond this distance from the image.
constexpr double kSafeDistance = 16000;

} // namespace

void FillPainter::paint(QPainter& painter, const DisplayList& list, const FillItem& fill,
                        const Affine2& map, QRgb colour)
{
    const Box2 box = map.mapBox(fill.bounds);
    // Slivers and dots are left to the outline that goes with every fill.
    if (!box.meets(m_visible) || (box.width() < 0.5 && box.height() < 0.5))
        return;
    const bool isFar = !m_visible.grown(kSafeDistance).contains(box);
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    for (quint32 contour = fill.firstContour; contour < fill.endContour; ++contour) {
        m_points.clear();
        for (const Vec2 p : list.contour(contour))
            m_points.push_back(map.map(p));
        if (isFar)
            clipContour(m_visible.grown(kSafeDistance / 2), m_points);
        if (m_points.size() < 3)
            continue;
        path.moveTo(m_points.front().x, m_points.front().y);
        for (std::size_t i = 1; i < m_points.size(); ++i)
            path.lineTo(m_points[i].x, m_points[i].y);
        path.closeSubpath();
    }
    painter.fillPath(path, QColor::fromRgba(colour));
}
