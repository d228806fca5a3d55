#pragma once

#include <span>

/// Controls of the layer-state manager.
namespace StateControl {
enum Id : int {
    kRestore = 1,
    kClose = 2,
    kSelectAll = 3,
    kClearAll = 4,
    kList = 1010,
    kHelp = 1011,
    kNew = 1012,
    kEdit = 1013,
    kSave = 1014,
    kRename = 1015,
    kDelete = 1016,
    kImport = 1017,
    kExport = 1018,
    kHideExternal = 1019,
    kTurnOffOthers = 1020,
    kAsOverrides = 1021,
    kMore = 1022,
    kOn = 1024,
    kFrozen = 1025,
    kViewportFrozen = 1026,
    kLocked = 1027,
    kPlot = 1028,
    kColor = 1029,
    kLinetype = 1030,
    kLineweight = 1031,
    kPlotStyle = 1032,
    kNewViewportFrozen = 1033,
    kLess = 1035,
};
} // namespace StateControl

/// A check box of the layer-state manager and the bit of the restore mask that it stands for.
struct RestoreOption
{
    int control;
    int bit; ///< of LayerStateMask
    const char* label; ///< to be translated in the context "CLayerStateManDlg"
};

/// The check boxes by ascending control. One bit of the mask, for transparency, has none: a stored
/// mask keeps it.
std::span<const RestoreOption> restoreOptions();

/// Where the drawing is worked in.
struct StateSpace
{
    bool isModel = true;
    bool isSheet = false; ///< CVPORT reads exactly 1
};

/// Whether a control of the layer-state manager is enabled while that many states are selected.
/// The choice of properties is not the same for both spaces, deliberately: on/off and frozen are
/// for model space, frozen in the viewport is for layouts.
bool isStateControlEnabled(int control, int selected, StateSpace space);

/// The controls that the rule above is about.
std::span<const int> ruledStateControls();
