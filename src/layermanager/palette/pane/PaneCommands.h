#pragma once

#include "layermanager/resources/LayerIcons.h"

#include <QIcon>
#include <QString>

#include <span>

class QPalette;

/// Commands of the palette by their identifiers, beside those of the grid and of the tree.
enum PaneCommandId {
    kInvertFilter = 100, ///< the check box
    kSearchButton = 1003,
    kSearchBox = 1010,
    kLayerStates = 40026,
    kRefreshList = 40085,
    kLayerSettings = 40088,
    kShowFilterTree = 40101,
};

/// The palette's toolbars by their identifiers.
enum PaneToolbarId {
    kToolbarMiddle = 110,
    kToolbarRight = 116,
    kToolbarLeft = 117,
};

/// A button of a toolbar.
struct PaneTool
{
    int toolbar;
    int id;
    LayerIcon icon;
    const char* text;
    bool isCheckable = false;
};

/// All buttons, those of each toolbar in their order.
std::span<const PaneTool> paneTools();
QString paneToolText(const PaneTool& tool);

/// The icon in tints that suit the ground of buttons, sharp at the usual scales.
QIcon paneIcon(LayerIcon icon, const QPalette& palette);

/// The key of a button in the palette's table of texts: all toolbars share one numbering. -1 for
/// an unknown toolbar.
int paneToolTextKey(int toolbar, int id);
