#include "layermanager/layer_states/parts/StateLayerDelegate.h"

#include "layermanager/layer_states/core/StateLayerListModel.h"
#include "layermanager/layers/grid/CellLook.h"
#include "layermanager/resources/LayerFlagIcons.h"

#include <QPainter>

using enum StateLayerColumn;

namespace {

QPixmap swatch(const CellLook& look, const OdCmColor& color)
{
    const int side = look.swatchSize();
    QPixmap pixmap(qRound(side * look.ratio), qRound(side * look.ratio));
    pixmap.setDevicePixelRatio(look.ratio);
    pixmap.fill(QColor::fromRgb(color.rgb(look.isGroundDark())));
    QPainter painter(&pixmap);
    painter.setPen(look.thinFrame());
    painter.drawRect(QRectF(0.5, 0.5, side - 1.0, side - 1.0));
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
    const CellLook look(*option);
    const QPixmap pixmap = swatch(look, m_model.layer(index.row()).fullColor());
    option->icon = QIcon(pixmap);
    option->icon.addPixmap(pixmap, QIcon::Selected); // a selected row does not tint it
    option->decorationSize = QSize(look.swatchSize(), look.swatchSize());
    option->features |= QStyleOptionViewItem::HasDecoration;
}

void StateLayerDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const StateLayerListModel::ColumnInfo& column =
        StateLayerListModel::columns()[static_cast<std::size_t>(index.column())];
    const bool isSet = (m_model.layer(index.row()).flags & column.flag) != 0;
    const auto icon = layerFlagIcon(column.identifier, isSet);
    if (!icon)
        return;
    const CellLook look(option);
    look.paintIcon(*painter, m_icons.pixmap(*icon, look.iconSize, look.ratio, look.iconGround()));
}
