#include "host/canvas/Crosshair.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QWidget>

qreal Crosshair::armLength() const
{
    return QFontMetricsF(m_widget.font()).height() * 4;
}

qreal Crosshair::boxSize() const
{
    return QFontMetricsF(m_widget.font()).height() / 2;
}

QRegion Crosshair::region() const
{
    if (!m_isShown)
        return {};
    const qreal arm = armLength() + 2;
    const qreal thickness = boxSize() + 4;
    const QRectF across(m_at.x() - arm, m_at.y() - thickness / 2, 2 * arm, thickness);
    const QRectF down(m_at.x() - thickness / 2, m_at.y() - arm, thickness, 2 * arm);
    return QRegion(across.toAlignedRect()) + QRegion(down.toAlignedRect());
}

void Crosshair::paint(QPainter& painter) const
{
    if (!m_isShown)
        return;
    // On whole pixels, or the hairlines would smear over two.
    const QPointF at(std::floor(m_at.x()) + 0.5, std::floor(m_at.y()) + 0.5);
    const qreal arm = std::round(armLength());
    const qreal half = std::round(boxSize() / 2);
    const qreal gap = m_shape == Shape::Both ? half : 0;
    painter.setPen(QPen(m_widget.palette().color(QPalette::Text), 1));
    if (m_shape != Shape::Box) {
        painter.drawLine(at - QPointF(arm, 0), at - QPointF(gap, 0));
        painter.drawLine(at + QPointF(gap, 0), at + QPointF(arm, 0));
        painter.drawLine(at - QPointF(0, arm), at - QPointF(0, gap));
        painter.drawLine(at + QPointF(0, gap), at + QPointF(0, arm));
    }
    if (m_shape != Shape::Cross) {
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(at.x() - half, at.y() - half, 2 * half, 2 * half));
    }
}
