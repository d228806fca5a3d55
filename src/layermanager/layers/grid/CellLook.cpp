#include "layermanager/layers/grid/CellLook.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionViewItem>

#include <algorithm>

namespace {

constexpr qsizetype kMostDrawn = 2000; ///< characters; no cell has room for more

} // namespace

CellLook::CellLook(const QStyleOptionViewItem& option)
    : rect(option.rect)
    , selected(option.state & QStyle::State_Selected)
    , focused(option.state & QStyle::State_HasFocus)
    , ratio(option.widget ? option.widget->devicePixelRatioF() : 1.0)
    , metrics(option.fontMetrics)
{
    const QPalette::ColorGroup group = !(option.state & QStyle::State_Enabled) ? QPalette::Disabled
        : option.state & QStyle::State_Active                                  ? QPalette::Active
                                                                               : QPalette::Inactive;
    ground = option.palette.color(group, selected ? QPalette::Highlight : QPalette::Base);
    text = option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
    iconSize = style->pixelMetric(QStyle::PM_SmallIconSize, nullptr, option.widget);
}

LayerIconGround CellLook::iconGround() const
{
    return selected ? iconGroundOfSelection(text) : ::iconGround(ground);
}

void CellLook::paintGround(QPainter& painter) const
{
    if (selected)
        painter.fillRect(rect, ground);
}

void CellLook::paintFocus(QPainter& painter) const
{
    if (!focused)
        return;
    painter.setPen(text);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
}

void CellLook::paintIcon(QPainter& painter, const QPixmap& icon) const
{
    if (icon.isNull())
        return;
    const QPoint offset((rect.width() - iconSize) / 2, (rect.height() - iconSize) / 2);
    painter.drawPixmap(rect.topLeft() + offset, icon);
}

void CellLook::paintText(QPainter& painter, const QRect& place, const QString& words) const
{
    if (words.isEmpty() || place.width() <= 0)
        return;
    painter.setPen(text);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     metrics.elidedText(words.left(kMostDrawn), Qt::ElideRight, place.width()));
}

void CellLook::paintSwatch(QPainter& painter, const QColor& color, const QColor& frame,
                           const QString& words) const
{
    QRect place = inner();
    const int size = std::min(swatchSize(), place.width());
    const QRect swatch(place.left(), place.top() + (place.height() - size) / 2, size, size);
    if (color.isValid())
        painter.fillRect(swatch, color);
    painter.setPen(frame);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(swatch.adjusted(0, 0, -1, -1));
    place.setLeft(swatch.right() + 1 + gap());
    paintText(painter, place, words);
}

QColor CellLook::thinFrame() const
{
    QColor frame = text;
    frame.setAlphaF(0.5F);
    return frame;
}
