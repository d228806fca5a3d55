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

int iconSize(const QStyleOptionViewItem& option)
{
    const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
    return style->pixelMetric(QStyle::PM_SmallIconSize, nullptr, option.widget);
}

qreal ratioOf(const QStyleOptionViewItem& option)
{
    return option.widget ? option.widget->devicePixelRatioF() : 1.0;
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
    if (index.column() != static_cast<int>(Color))
        return;
    const int side = std::min(option->fontMetrics.ascent(), iconSize(*option));
    const QPixmap pixmap =
        swatch(*option, m_model.layer(index.row()).fullColor(), side, ratioOf(*option));
    option->icon = QIcon(pixmap);
    option->icon.addPixmap(pixmap, QIcon::Selected); // a selected row does not tint it
    option->decorationSize = QSize(side, side);
    option->features |= QStyleOptionViewItem::HasDecoration;
}

void StateLayerDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const StateLayerListModel::ColumnInfo& column =
        StateLayerListModel::columns()[static_cast<std::size_t>(index.column())];
    const auto icons = std::ranges::find(kFlagIcons, column.column, &FlagIcons::column);
    if (icons == std::end(kFlagIcons))
        return;
    const bool isSet = (m_model.layer(index.row()).flags & column.flag) != 0;
    const int size = iconSize(option);
    QRect place(0, 0, size, size);
    place.moveCenter(option.rect.center());
    painter->drawPixmap(place.topLeft(),
                        m_icons.pixmap(isSet ? icons->set : icons->notSet, size, ratioOf(option),
                                       groundOf(option)));
}
