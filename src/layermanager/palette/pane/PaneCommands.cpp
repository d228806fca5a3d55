#include "layermanager/palette/pane/PaneCommands.h"

#include "layermanager/filters/tree/FilterCommands.h"
#include "layermanager/layers/operations/LayerCommandTable.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPalette>

namespace {

constexpr PaneTool kTools[] = {
    {kToolbarLeft, kToolbarNewPropertyFilter, LayerIcon::ToolNewPropertyFilter,
     QT_TRANSLATE_NOOP("PaneCommands", "New Properties Filter")},
    {kToolbarLeft, kToolbarNewGroupFilter, LayerIcon::ToolNewGroupFilter,
     QT_TRANSLATE_NOOP("PaneCommands", "New Group Filter")},
    {kToolbarLeft, kLayerStates, LayerIcon::ToolLayerStates,
     QT_TRANSLATE_NOOP("PaneCommands", "Layer States Manager")},
    {kToolbarMiddle, kToolbarNewLayer, LayerIcon::ToolNewLayer,
     QT_TRANSLATE_NOOP("PaneCommands", "New Layer")},
    {kToolbarMiddle, kToolbarNewLayerVpFrozen, LayerIcon::ToolNewLayerFrozen,
     QT_TRANSLATE_NOOP("PaneCommands", "New Layer Frozen in New Viewports")},
    {kToolbarMiddle, kToolbarDeleteLayers, LayerIcon::ToolDeleteLayer,
     QT_TRANSLATE_NOOP("PaneCommands", "Delete Layers (Del)")},
    {kToolbarMiddle, kToolbarSetCurrent, LayerIcon::ToolSetCurrent,
     QT_TRANSLATE_NOOP("PaneCommands", "Set Current")},
    {kToolbarRight, kShowFilterTree, LayerIcon::ToolFilterTree,
     QT_TRANSLATE_NOOP("PaneCommands", "Show the Filter Tree"), true},
    {kToolbarRight, kRefreshList, LayerIcon::ToolRefresh,
     QT_TRANSLATE_NOOP("PaneCommands", "Refresh")},
    {kToolbarRight, kLayerSettings, LayerIcon::ToolSettings,
     QT_TRANSLATE_NOOP("PaneCommands", "Layer Settings")},
};

constexpr int kIconPixels[] = {16, 20, 24, 28, 32, 40, 48};
constexpr qreal kDimmedOpacity = 0.35;

/// What styles make of an icon for a disabled button is hardly told from others on a dark ground.
QPixmap dimmed(const QPixmap& icon)
{
    QPixmap result(icon.size());
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setOpacity(kDimmedOpacity);
    painter.drawPixmap(0, 0, icon);
    return result;
}

} // namespace

std::span<const PaneTool> paneTools()
{
    return kTools;
}

QString paneToolText(const PaneTool& tool)
{
    return QCoreApplication::translate("PaneCommands", tool.text);
}

QIcon paneIcon(LayerIcon icon, const QPalette& palette)
{
    const LayerIconGround ground = iconGround(palette.color(QPalette::Button));
    const LayerIcons icons;
    QIcon result;
    for (const int size : kIconPixels) {
        const QPixmap drawn = icons.pixmap(icon, size, 1.0, ground);
        result.addPixmap(drawn);
        result.addPixmap(dimmed(drawn), QIcon::Disabled);
    }
    return result;
}

int paneToolTextKey(int toolbar, int id)
{
    switch (toolbar) {
    case kToolbarLeft:
        return id - 1;
    case kToolbarMiddle:
        return id + 2;
    case kToolbarRight:
        return id + 6;
    default:
        return -1;
    }
}
