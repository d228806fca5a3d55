#pragma once

#include <QString>

#include <span>

/// Commands on the grid's layers by their identifiers.
enum LayerCommandId {
    kToolbarDeleteLayers = 40001,
    kToolbarNewLayer = 40002,
    kToolbarSetCurrent = 40003,
    kToolbarNewLayerVpFrozen = 40010, ///< in new viewports only
    kSetCurrentLayer = 40028,
    kNewLayer = 40029,
    kRemoveListedInViewport = 40030,
    kRenameLayer = 40031,
    kRemoveListedInAllViewports = 40032,
    kDeleteLayers = 40033,
    kReconcileLayers = 40034,
    kRemoveSelectedInAllViewports = 40035,
    kDescribeLayer = 40036,
    kRemoveSelectedInViewport = 40038,
    kUnsupported40040 = 40040,
    kNewLayerVpFrozen = 40043,
    kFreezeInAllViewports = 40046,
    kThawInAllViewports = 40049,
    kIsolateLayers = 40052,
    kDoNothing = 40055,
    kClearSelection = 40059,
    kSelectAllButCurrent = 40061,
    kUnsupported40071 = 40071,
    kUnsupported40075 = 40075,
    kNewLayerState = 40078,
    kLayerStateManager = 40081,
    kInvertSelection = 40083,
    kRemovePropertiesInViewport = 40092,
    kRemovePropertiesInLayouts = 40094,
};
/// The commands of the grid; those of the toolbar are not among them.
inline constexpr int kFirstLayerCommand = kSetCurrentLayer;
inline constexpr int kLastLayerCommand = kRemovePropertiesInLayouts;

/// Where in the context menu a command stands.
enum class LayerMenu { Top, OverridesOfSelected, OverridesOfListed, Viewports, Select, None };

/// What a command needs to be enabled, as bits.
enum LayerNeed {
    kNeedsNothing = 0,
    kNeedsRows = 1, ///< a layer is listed
    kNeedsSelection = 2,
    kNeedsLayout = 4, ///< TILEMODE is 0
    kNeedsViewport = 8, ///< a layout is current and has an active viewport
    kNeedsSelectedOverrides = 16, ///< a selected layer differs in some viewport
    kNeedsListedOverrides = 32, ///< a listed layer does
    kNeedsUnreconciled = 64, ///< a selected layer waits to be reviewed
    kNeedsStateDialogs = 128, ///< there are dialogs for layer states
};

struct LayerGridCommand
{
    int id;
    LayerMenu menu;
    const char* text; ///< null for commands of no menu
    const char* shortcut; ///< portable text of a key sequence; null for none
    int needs; ///< LayerNeed bits
    bool separatorBefore; ///< in front of its submenu where it is the first of one
};

/// All commands, those of the context menu in its order.
std::span<const LayerGridCommand> layerGridCommands();
/// Null for an identifier that is none.
const LayerGridCommand* layerGridCommand(int id);
QString layerGridCommandText(const LayerGridCommand& command);
/// The label of a submenu; empty for the menu itself.
QString layerGridMenuText(LayerMenu menu);

/// What the enabling of commands depends on.
struct LayerCommandState
{
    bool switchedOff = false; ///< the grid is
    int rows = 0;
    int selected = 0;
    bool inLayout = false;
    bool hasViewport = false; ///< an active one
    bool selectedHaveOverrides = false;
    bool listedHaveOverrides = false;
    bool selectedWaitForReview = false;
    bool hasStateDialogs = false;
};

/// Whether menu, toolbar and keyboard offer the command. The commands themselves do nothing where
/// there is nothing to do, and do not ask.
bool isLayerCommandEnabled(int id, const LayerCommandState& state);
