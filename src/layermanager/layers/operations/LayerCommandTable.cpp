#include "layermanager/layers/operations/LayerCommandTable.h"

#include <QCoreApplication>

#include <algorithm>

using enum LayerMenu;

namespace {

constexpr int kNeedsLayoutSelection = kNeedsLayout | kNeedsSelection;

constexpr LayerGridCommand kCommands[] = {
    {kSetCurrentLayer, Top, QT_TRANSLATE_NOOP("LayerCommands", "Set &Current"), nullptr,
     kNeedsSelection, false},
    {kNewLayer, Top, QT_TRANSLATE_NOOP("LayerCommands", "&New Layer"), nullptr, kNeedsNothing,
     true},
    {kNewLayerVpFrozen, Top,
     QT_TRANSLATE_NOOP("LayerCommands", "New Layer Frozen in All &Viewports"), nullptr,
     kNeedsNothing, false},
    {kRenameLayer, Top, QT_TRANSLATE_NOOP("LayerCommands", "&Rename"), "F2", kNeedsSelection,
     false},
    {kDescribeLayer, Top, QT_TRANSLATE_NOOP("LayerCommands", "Change D&escription"), nullptr,
     kNeedsSelection, false},
    {kDeleteLayers, Top, QT_TRANSLATE_NOOP("LayerCommands", "&Delete"), "Del", kNeedsSelection,
     false},
    {kReconcileLayers, Top, QT_TRANSLATE_NOOP("LayerCommands", "Rec&oncile"), nullptr,
     kNeedsSelection | kNeedsUnreconciled, false},
    {kIsolateLayers, Top, QT_TRANSLATE_NOOP("LayerCommands", "&Isolate (Turn Others Off)"), nullptr,
     kNeedsSelection, true},
    {kFreezeInAllViewports, Viewports, QT_TRANSLATE_NOOP("LayerCommands", "&Freeze"), nullptr,
     kNeedsLayoutSelection, false},
    {kThawInAllViewports, Viewports, QT_TRANSLATE_NOOP("LayerCommands", "&Thaw"), nullptr,
     kNeedsLayoutSelection, false},
    {kRemoveSelectedInViewport, OverridesOfSelected,
     QT_TRANSLATE_NOOP("LayerCommands", "In the &Active Viewport"), nullptr,
     kNeedsSelection | kNeedsViewport | kNeedsSelectedOverrides, false},
    {kRemoveSelectedInAllViewports, OverridesOfSelected,
     QT_TRANSLATE_NOOP("LayerCommands", "In A&ll Viewports"), nullptr,
     kNeedsSelection | kNeedsSelectedOverrides, false},
    {kRemovePropertiesInViewport, OverridesOfSelected,
     QT_TRANSLATE_NOOP("LayerCommands", "&Properties in the Active Viewport"), nullptr,
     kNeedsSelection | kNeedsViewport | kNeedsSelectedOverrides, true},
    {kRemovePropertiesInLayouts, OverridesOfSelected,
     QT_TRANSLATE_NOOP("LayerCommands", "Properties in the Active Viewport of &Each Layout"),
     nullptr, kNeedsSelection | kNeedsSelectedOverrides, false},
    {kRemoveListedInViewport, OverridesOfListed,
     QT_TRANSLATE_NOOP("LayerCommands", "In the &Active Viewport"), nullptr,
     kNeedsRows | kNeedsViewport | kNeedsListedOverrides, false},
    {kRemoveListedInAllViewports, OverridesOfListed,
     QT_TRANSLATE_NOOP("LayerCommands", "In A&ll Viewports"), nullptr,
     kNeedsRows | kNeedsListedOverrides, false},
    {kSelectAllButCurrent, Select, QT_TRANSLATE_NOOP("LayerCommands", "All &but Current"), nullptr,
     kNeedsRows, true},
    {kClearSelection, Select, QT_TRANSLATE_NOOP("LayerCommands", "&Clear"), nullptr,
     kNeedsSelection, false},
    {kInvertSelection, Select, QT_TRANSLATE_NOOP("LayerCommands", "&Invert"), nullptr, kNeedsRows,
     false},
    {kNewLayerState, Top, QT_TRANSLATE_NOOP("LayerCommands", "New Layer &State..."), nullptr,
     kNeedsStateDialogs, true},
    {kLayerStateManager, Top, QT_TRANSLATE_NOOP("LayerCommands", "Layer State &Manager..."),
     nullptr, kNeedsStateDialogs, false},
    {kUnsupported40040, None, nullptr, nullptr, kNeedsNothing, false},
    {kUnsupported40071, None, nullptr, nullptr, kNeedsNothing, false},
    {kUnsupported40075, None, nullptr, nullptr, kNeedsNothing, false},
    {kDoNothing, None, nullptr, nullptr, kNeedsNothing, false},
    {kToolbarDeleteLayers, None, nullptr, nullptr, kNeedsRows, false},
    {kToolbarNewLayer, None, nullptr, nullptr, kNeedsNothing, false},
    {kToolbarNewLayerVpFrozen, None, nullptr, nullptr, kNeedsNothing, false},
    {kToolbarSetCurrent, None, nullptr, nullptr, kNeedsRows, false},
};

/// The needs that the state meets.
int metBy(const LayerCommandState& state)
{
    const struct
    {
        int need;
        bool isMet;
    } needs[] = {
        {kNeedsRows, state.rows > 0},
        {kNeedsSelection, state.selected > 0},
        {kNeedsLayout, state.inLayout},
        {kNeedsViewport, state.inLayout && state.hasViewport},
        {kNeedsSelectedOverrides, state.selectedHaveOverrides},
        {kNeedsListedOverrides, state.listedHaveOverrides},
        {kNeedsUnreconciled, state.selectedWaitForReview},
        {kNeedsStateDialogs, state.hasStateDialogs},
    };
    int met = 0;
    for (const auto& need : needs)
        met |= need.isMet ? need.need : 0;
    return met;
}

} // namespace

std::span<const LayerGridCommand> layerGridCommands()
{
    return kCommands;
}

const LayerGridCommand* layerGridCommand(int id)
{
    const auto* found =
        std::find_if(std::begin(kCommands), std::end(kCommands),
                     [id](const LayerGridCommand& command) { return command.id == id; });
    return found == std::end(kCommands) ? nullptr : found;
}

QString layerGridCommandText(const LayerGridCommand& command)
{
    return command.text ? QCoreApplication::translate("LayerCommands", command.text) : QString();
}

QString layerGridMenuText(LayerMenu menu)
{
    switch (menu) {
    case OverridesOfSelected:
        return QCoreApplication::translate("LayerCommands", "Remove Overrides of Se&lected Layers");
    case OverridesOfListed:
        return QCoreApplication::translate("LayerCommands", "Remove Overrides of &All Layers");
    case Viewports:
        return QCoreApplication::translate("LayerCommands", "In All Vie&wports");
    case Select:
        return QCoreApplication::translate("LayerCommands", "Selec&t");
    case Top:
    case None:
        break;
    }
    return {};
}

bool isLayerCommandEnabled(int id, const LayerCommandState& state)
{
    const LayerGridCommand* command = layerGridCommand(id);
    return command && !state.switchedOff && (command->needs & ~metBy(state)) == 0;
}
