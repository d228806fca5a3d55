#pragma once

#include "layermanager/resources/LayerIcons.h"

#include <QColor>
#include <QFontMetrics>
#include <QRect>

#include <algorithm>

class QPainter;
class QPixmap;
class QStyleOptionViewItem;

/// Colors and measures of one cell, and the strokes that the tables of this module have in common.
struct CellLook
{
    explicit CellLook(const QStyleOptionViewItem& option);

    QRect inner() const { return rect.adjusted(margin, 0, -margin, 0); }
    int gap() const { return margin + 1; }
    int swatchSize() const { return std::min(metrics.ascent(), iconSize); }
    bool isGroundDark() const { return isDark(ground); }
    LayerIconGround iconGround() const;

    /// Fills the cell where it is selected.
    void paintGround(QPainter& painter) const;
    void paintFocus(QPainter& painter) const;
    /// Centred.
    void paintIcon(QPainter& painter, const QPixmap& icon) const;
    /// One line, elided at the right.
    void paintText(QPainter& painter, const QRect& place, const QString& words) const;
    /// A framed square of a color at the left, and a text beside it.
    void paintSwatch(QPainter& painter, const QColor& color, const QColor& frame,
                     const QString& words) const;
    /// A frame that keeps a swatch apart from a ground of its own color.
    QColor thinFrame() const;

    QRect rect;
    bool selected;
    bool focused;
    qreal ratio; ///< device pixels for each pixel
    QFontMetrics metrics;
    QColor ground;
    QColor text;
    int margin = 0;
    int iconSize = 0;
};
