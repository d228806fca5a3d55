#include "toolkit/CTaskLinkButton.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>

namespace {

/// The arrow is drawn on a grid of 20 x 20, whatever its size.
constexpr qreal kGrid = 20.0;
constexpr qreal kArrowPen = 2.0;
constexpr qreal kFrameRadius = 3.0;
constexpr int kFocusTint = 40;

QPainterPath arrowPath(bool leftToRight)
{
    QPainterPath path;
    path.moveTo(3, 10);
    path.lineTo(16, 10);
    path.moveTo(11, 5);
    path.lineTo(16, 10);
    path.lineTo(11, 15);
    if (leftToRight)
        return path;
    return QTransform(-1, 0, 0, 1, kGrid, 0).map(path);
}

} // namespace

CTaskLinkButton::CTaskLinkButton(const QString& heading, const QString& explanation,
                                 QWidget* parent)
    : QCommandLinkButton(heading, explanation, parent)
{
    drawArrow();
}

void CTaskLinkButton::drawArrow()
{
    const int extent = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    QPixmap arrow(QSize(extent, extent) * devicePixelRatio());
    arrow.setDevicePixelRatio(devicePixelRatio());
    arrow.fill(Qt::transparent);
    QPainter painter(&arrow);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(extent / kGrid, extent / kGrid);
    const QColor colour = palette().color(QPalette::Link);
    painter.setPen(QPen(colour, kArrowPen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(arrowPath(layoutDirection() == Qt::LeftToRight));
    painter.end();
    setIconSize(QSize(extent, extent));
    setIcon(arrow);
}

void CTaskLinkButton::paintEvent(QPaintEvent* event)
{
    if (hasFocus()) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QColor colour = palette().color(QPalette::Highlight);
        QColor tint = colour;
        tint.setAlpha(kFocusTint);
        painter.setPen(colour);
        painter.setBrush(tint);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kFrameRadius,
                                kFrameRadius);
    }
    QCommandLinkButton::paintEvent(event);
}

void CTaskLinkButton::changeEvent(QEvent* event)
{
    QCommandLinkButton::changeEvent(event);
    switch (event->type()) {
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
    case QEvent::LayoutDirectionChange:
        drawArrow();
        break;
    default:
        break;
    }
}
