#include "toolkit/MessageSign.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QWidget>

namespace {

/// Signs are drawn on a grid of 32 x 32, whatever their size.
constexpr qreal kSignGrid = 32;
constexpr qreal kPen = 3.2;

const QColor kBlue(0x2F, 0x7C, 0xC4);
const QColor kAmber(0xE8, 0xA3, 0x17);
const QColor kRed(0xD0, 0x3A, 0x3A);
const QColor kInkOnAmber(0x2B, 0x22, 0x08);

QPainterPath disc()
{
    QPainterPath path;
    path.addEllipse(QRectF(2, 2, 28, 28));
    return path;
}

QPainterPath triangle()
{
    QPainterPath path;
    path.moveTo(16, 3);
    path.lineTo(30, 28);
    path.lineTo(2, 28);
    path.closeSubpath();
    return path;
}

/// The strokes of the sign; a dot is a stroke of no length.
QPainterPath strokes(MessageSign sign)
{
    QPainterPath path;
    switch (sign) {
    case MessageSign::Information:
        path.moveTo(16, 14.5);
        path.lineTo(16, 23);
        path.moveTo(16, 9);
        path.lineTo(16, 9.01);
        break;
    case MessageSign::Warning:
        path.moveTo(16, 12);
        path.lineTo(16, 19);
        path.moveTo(16, 24);
        path.lineTo(16, 24.01);
        break;
    case MessageSign::Error:
        path.moveTo(11, 11);
        path.lineTo(21, 21);
        path.moveTo(21, 11);
        path.lineTo(11, 21);
        break;
    case MessageSign::Question:
        path.moveTo(11.5, 12.5);
        path.cubicTo(11.5, 6.5, 20.5, 6.5, 20.5, 12.5);
        path.cubicTo(20.5, 16, 16, 15.5, 16, 19);
        path.moveTo(16, 24);
        path.lineTo(16, 24.01);
        break;
    }
    return path;
}

} // namespace

QPixmap messageSign(MessageSign sign, const QWidget& widget)
{
    const int extent = widget.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &widget);
    const qreal ratio = widget.devicePixelRatioF();
    QPixmap picture(QSize(extent, extent) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(extent / kSignGrid, extent / kSignGrid);
    const bool isWarning = sign == MessageSign::Warning;
    const QColor ground = isWarning ? kAmber : sign == MessageSign::Error ? kRed : kBlue;
    // The pen rounds the corners of the triangle.
    painter.setPen(QPen(ground, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(ground);
    painter.drawPath(isWarning ? triangle() : disc());
    painter.setPen(QPen(isWarning ? kInkOnAmber : Qt::white, kPen, Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(strokes(sign));
    return picture;
}
