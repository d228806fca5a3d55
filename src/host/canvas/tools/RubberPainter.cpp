#include "host/canvas/tools/RubberPainter.h"

#include <QPainter>
#include <QPalette>

namespace {

using Kind = PointerTool::Rubber::Kind;

constexpr int kFillAlpha = 48;
constexpr double kFarAway = 1e5; ///< pixels: beyond any window, and painters bear it

QPointF bounded(QPointF point)
{
    return {std::clamp(point.x(), -kFarAway, kFarAway), std::clamp(point.y(), -kFarAway, kFarAway)};
}

/// Readable on the background of the palette.
QColor rectangleColour(Kind kind, bool isDark)
{
    if (kind == Kind::Crossing)
        return isDark ? QColor(0x5f, 0xd0, 0x6b) : QColor(0x1b, 0x7f, 0x2a);
    return isDark ? QColor(0x6c, 0xb0, 0xff) : QColor(0x14, 0x56, 0xc8);
}

} // namespace

void RubberPainter::paint(QPainter& painter, Kind kind, QPointF from, QPointF to,
                          const QPalette& palette)
{
    from = bounded(from);
    to = bounded(to);
    const QColor text = palette.color(QPalette::Text);
    painter.setBrush(Qt::NoBrush);
    if (kind == Kind::Line) {
        painter.setPen(QPen(text, 1, Qt::DashLine));
        painter.drawLine(from, to);
        return;
    }
    // On whole pixels, or the edges would smear over two.
    const QRect box = QRectF(from, to).normalized().toAlignedRect();
    if (kind == Kind::Corner) {
        painter.setPen(QPen(text, 1));
    } else {
        const bool isDark = palette.color(QPalette::Base).lightnessF() < 0.5F;
        const QColor colour = rectangleColour(kind, isDark);
        QColor fill = colour;
        fill.setAlpha(kFillAlpha);
        painter.fillRect(box, fill);
        painter.setPen(QPen(colour, 1, kind == Kind::Crossing ? Qt::DashLine : Qt::SolidLine));
    }
    painter.drawRect(box.adjusted(0, 0, -1, -1));
}
