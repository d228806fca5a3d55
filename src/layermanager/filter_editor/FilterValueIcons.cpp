#include "layermanager/filter_editor/FilterValueIcons.h"

#include "layermanager/filter_editor/core/FilterColumn.h"
#include "layermanager/resources/LayerFlagIcons.h"

#include <QPainter>

namespace {

/// The icon of the first or the second value of a property.
std::optional<LayerIcon> valueIcon(LayerColumn property, bool first)
{
    if (property == LayerColumn::Status)
        return first ? LayerIcon::StatusInUse : LayerIcon::StatusNotInUse;
    return layerFlagIcon(property, first);
}

constexpr QRgb kMarkOnLight = 0xff1f78c1;
constexpr QRgb kMarkOnDark = 0xff8fd0ff;

/// The mark of viewport overrides: a small frame in the lower right corner.
void paintMark(QPixmap& pixmap, int size, LayerIconGround ground)
{
    QPainter painter(&pixmap);
    const int side = size / 2;
    const QRect frame(size - side, size - side, side, side);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillRect(frame.adjusted(-1, -1, 0, 0), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    const QColor color(ground == LayerIconGround::Light ? kMarkOnLight : kMarkOnDark);
    painter.fillRect(frame, color);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillRect(frame.adjusted(1, 2, -1, -1), Qt::transparent);
}

} // namespace

QPixmap FilterValueIcons::pixmap(int column, int value, int size, qreal ratio,
                                 LayerIconGround ground) const
{
    const std::optional<LayerColumn> property =
        filterColumns().at(static_cast<std::size_t>(column)).property;
    if (!property)
        return {};
    const bool marked = property == LayerColumn::Status && value > 2;
    const int plain = marked ? value - 2 : value;
    const auto icon = valueIcon(*property, plain == 1);
    if (!icon || plain < 1 || plain > 2)
        return {};
    QPixmap picture = m_icons.pixmap(*icon, size, ratio, ground);
    if (marked)
        paintMark(picture, size, ground);
    return picture;
}
