#include "layermanager/layer_states/core/LayerStateControls.h"

#include "database/states/LayerStateMask.h"

#include <QtGlobal>

#include <algorithm>

using namespace StateControl;

namespace {

constexpr RestoreOption kOptions[] = {
    {kOn, LayerStateMask::kOn, QT_TRANSLATE_NOOP("CLayerStateManDlg", "On or o&ff")},
    {kFrozen, LayerStateMask::kFrozen, QT_TRANSLATE_NOOP("CLayerStateManDlg", "Frozen or tha&wed")},
    {kViewportFrozen, LayerStateMask::kViewportFrozen,
     QT_TRANSLATE_NOOP("CLayerStateManDlg", "Frozen or thawed in current &viewport")},
    {kLocked, LayerStateMask::kLocked,
     QT_TRANSLATE_NOOP("CLayerStateManDlg", "Loc&ked or unlocked")},
    {kPlot, LayerStateMask::kPlot, QT_TRANSLATE_NOOP("CLayerStateManDlg", "&Plot or no plot")},
    {kColor, LayerStateMask::kColor, QT_TRANSLATE_NOOP("CLayerStateManDlg", "Co&lor")},
    {kLinetype, LayerStateMask::kLinetype, QT_TRANSLATE_NOOP("CLayerStateManDlg", "L&inetype")},
    {kLineweight, LayerStateMask::kLineWeight,
     QT_TRANSLATE_NOOP("CLayerStateManDlg", "Linewei&ght")},
    {kPlotStyle, LayerStateMask::kPlotStyle, QT_TRANSLATE_NOOP("CLayerStateManDlg", "Plot style")},
    {kNewViewportFrozen, LayerStateMask::kNewViewportFrozen,
     QT_TRANSLATE_NOOP("CLayerStateManDlg", "Fro&zen in new viewports")},
};

constexpr int kRuled[] = {
    kOn,         kFrozen,    kViewportFrozen,    kLocked, kPlot,          kColor,       kLinetype,
    kLineweight, kPlotStyle, kNewViewportFrozen, kSave,   kEdit,          kRename,      kExport,
    kSelectAll,  kClearAll,  kRestore,           kDelete, kTurnOffOthers, kAsOverrides,
};

bool isOption(int control)
{
    return std::ranges::find(kOptions, control, &RestoreOption::control) != std::end(kOptions);
}

} // namespace

std::span<const RestoreOption> restoreOptions()
{
    return kOptions;
}

std::span<const int> ruledStateControls()
{
    return kRuled;
}

bool isStateControlEnabled(int control, int selected, StateSpace space)
{
    const bool one = selected == 1;
    if (isOption(control)) {
        const bool offered =
            space.isModel ? control != kViewportFrozen : control != kOn && control != kFrozen;
        return one && offered;
    }
    switch (control) {
    case kDelete:
    case kTurnOffOthers:
        return selected != 0;
    case kAsOverrides:
        return one ? !space.isModel && space.isSheet : selected > 1;
    case kSave:
    case kEdit:
    case kRename:
    case kExport:
    case kSelectAll:
    case kClearAll:
    case kRestore:
        return one;
    default:
        return true;
    }
}
