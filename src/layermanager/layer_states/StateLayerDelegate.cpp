#include "layermanager/layer_states/StateLayerDelegate.h"

#include "layermanager/layer_states/StateLayerListModel.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include <algorithm>

using enum StateLayerColumn;

namespace {

struct FlagIcons
{
    StateLayerColumn column;
    LayerIcon set;
    LayerIcon notSet;
};
constexpr FlagIcons kFlagIcons[] = {
    {On, LayerIcon::On, LayerIcon::Off},
    {Freeze, LayerIcon::Frozen, LayerIcon::Thawed},
    {Locked, LayerIcon::Locked, LayerIcon::Unlocked},
    {Plot, LayerIcon::Plot, LayerIcon::NoPlot},
    {NewVpFreeze, LayerIcon::NewViewportFrozen, LayerIcon::NewViewportThawed},
};

bool isDark(const QColor& color)
{
    return qGray(color.rgb()) < 128;
}

LayerIconGround groundOf(const QStyleOptionViewItem& option)
{
    if (option.state & QStyle::State_Selected)
        return isDark(option.palette.color(QPalette::HighlightedText)) ? LayerIconGround::Light
                                                                       : LayerIconGround::Selection;
    return isDark(option.palette.color(QPalette::Base)) ? LayerIconGround::Dark
                                                        : LayerIconGround::Light;
}

QPixmap swatch(const QStyleOptionViewItem& option, const OdCmColor& color, int size, qreal ratio)
{
    QPixmap pixmap(qRound(size * ratio), qRound(size * ratio));
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(QColor::fromRgb(color.rgb(isDark(option.palette.color(QPalette::Base)))));
    QColor frame = option.palette.color(QPalette::Text);
    frame.setAlphaF(0.5F);
    QPainter painter(&pixmap);
    painter.setPen(frame);
    painter.drawRect(QRectF(0.5, 0.5, size - 1.0, size - 1.0));
    return pixmap;
}

} // namespace

StateLayerDelegate::StateLayerDelegate(const StateLayerListModel& model, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_model(model)
{ }

void StateLayerDelegate::initStyleOption(QStyleOptionViewItem* option,
                                         const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const StateLayerListModel::ColumnInfo& column =
        StateLayerListModel::columns()[static_cast<std::size_t>(index.column())];
    const LayerInfoInLS& layer = m_model.layer(index.row());
    const QWidget* widget = option->widget;
    const qreal ratio = widget ? widget->devicePixelRatioF() : 1.0;
    const QStyle* style = widget ? widget->style() : QApplication::style();
    const int size = style->pixelMetric(QStyle::PM_SmallIconSize, nullptr, widget);
    if (column.column == Color) {
        const int side = std::min(option->fontMetrics.ascent(), size);
        option->icon = QIcon(swatch(*option, layer.fullColor(), side, ratio));
        option->decorationSize = QSize(side, side);
        option->features |= QStyleOptionViewItem::HasDecoration;
        return;
    }
    const auto icons = std::ranges::find(kFlagIcons, column.column, &FlagIcons::column);
    if (icons == std::end(kFlagIcons))
        return;
    const LayerIcon icon = layer.flags & column.flag ? icons->set : icons->notSet;
    option->icon = QIcon(m_icons.pixmap(icon, size, ratio, groundOf(*option)));
    option->decorationSize = QSize(size, size);
    // Above a text that is not there: in the middle of the cell.
    option->decorationPosition = QStyleOptionViewItem::Top;
    option->decorationAlignment = Qt::AlignCenter;
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->features &= ~QStyleOptionViewItem::HasDisplay;
}
