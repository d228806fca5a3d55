#include "layermanager/filter_editor/FilterValueIcons.h"

#include "layermanager/filter_editor/FilterColumn.h"

#include <QPainter>

namespace {

struct ValueIcons
{
    LayerColumn property;
    LayerIcon first;
    LayerIcon second;
};
constexpr ValueIcons kValueIcons[] = {
    {LayerColumn::Status, LayerIcon::StatusInUse, LayerIcon::StatusNotInUse},
    {LayerColumn::On, LayerIcon::On, LayerIcon::Off},
    {LayerColumn::Freeze, LayerIcon::Frozen, LayerIcon::Thawed},
    {LayerColumn::Locked, LayerIcon::Locked, LayerIcon::Unlocked},
    {LayerColumn::Plot, LayerIcon::Plot, LayerIcon::NoPlot},
    {LayerColumn::NewVpFreeze, LayerIcon::NewViewportFrozen, LayerIcon::NewViewportThawed},
    {LayerColumn::VpFreeze, LayerIcon::ViewportFrozen, LayerIcon::ViewportThawed},
};

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
    for (const ValueIcons& icons : kValueIcons) {
        const bool marked = icons.property == LayerColumn::Status && value > 2;
        const int plain = marked ? value - 2 : value;
        if (icons.property != property || plain < 1 || plain > 2)
            continue;
        QPixmap picture =
            m_icons.pixmap(plain == 1 ? icons.first : icons.second, size, ratio, ground);
        if (marked)
            paintMark(picture, size, ground);
        return picture;
    }
    return {};
}
