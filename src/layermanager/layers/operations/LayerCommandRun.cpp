#include "layermanager/layers/operations/LayerCommandRun.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/layers/LayerTexts.h"
#include "layermanager/layers/operations/LayerActions.h"
#include "layermanager/layers/operations/LayerDeletion.h"
#include "layermanager/layers/operations/LayerOverrides.h"

#include <algorithm>

namespace {

struct Call
{
    OdDbDatabase& database;
    const LayerRows& rows;
    const NewLayerListener& tell;

    OdDbObjectId first() const
    {
        return rows.selected.empty() ? OdDbObjectId() : rows.selected.front();
    }
};

LayerOutcome makeCurrent(const Call& call)
{
    return setCurrentLayer(call.database, call.first());
}

LayerOutcome makeOneCurrent(const Call& call)
{
    return call.rows.selected.size() < 2 ? makeCurrent(call) : LayerOutcome();
}

template <NewLayerKind kind>
LayerOutcome makeNew(const Call& call)
{
    return makeNewLayer(call.database, kind, call.first(), call.tell);
}

LayerOutcome erase(const Call& call)
{
    return deleteLayers(call.database, call.rows.selected);
}

LayerOutcome reconcile(const Call& call)
{
    return reconcileLayers(call.database, call.rows.selected);
}

LayerOutcome isolate(const Call& call)
{
    return isolateLayers(call.database, call.rows.selected, call.rows.listed);
}

template <bool frozen>
LayerOutcome freeze(const Call& call)
{
    return freezeInAllViewports(call.database, call.rows.selected, frozen);
}

template <OverrideScope scope, auto layers>
LayerOutcome removeOverrides(const Call& call)
{
    return removeLayerOverrides(call.database, scope, call.rows.*layers);
}

LayerOutcome sayUnsupported(const Call&)
{
    LayerOutcome outcome;
    outcome.message = KsResString(layerTexts(), 84508);
    return outcome;
}

LayerOutcome doNothing(const Call&)
{
    return {};
}

struct Runner
{
    int id;
    LayerOutcome (*run)(const Call& call);
};

using enum OverrideScope;
constexpr auto kSelected = &LayerRows::selected;
constexpr auto kListed = &LayerRows::listed;

constexpr Runner kRunners[] = {
    {kToolbarDeleteLayers, erase},
    {kToolbarNewLayer, makeNew<NewLayerKind::Plain>},
    {kToolbarSetCurrent, makeOneCurrent},
    {kToolbarNewLayerVpFrozen, makeNew<NewLayerKind::FrozenInNewViewports>},
    {kSetCurrentLayer, makeCurrent},
    {kNewLayer, makeNew<NewLayerKind::Plain>},
    {kNewLayerVpFrozen, makeNew<NewLayerKind::FrozenInAllViewports>},
    {kDeleteLayers, erase},
    {kReconcileLayers, reconcile},
    {kIsolateLayers, isolate},
    {kFreezeInAllViewports, freeze<true>},
    {kThawInAllViewports, freeze<false>},
    {kRemoveListedInViewport, removeOverrides<ActiveViewport, kListed>},
    {kRemoveListedInAllViewports, removeOverrides<AllViewports, kListed>},
    {kRemoveSelectedInViewport, removeOverrides<ActiveViewport, kSelected>},
    {kRemoveSelectedInAllViewports, removeOverrides<AllViewports, kSelected>},
    {kRemovePropertiesInViewport, removeOverrides<PropertiesInActiveViewport, kSelected>},
    {kRemovePropertiesInLayouts, removeOverrides<PropertiesInEachLayout, kSelected>},
    {kUnsupported40040, sayUnsupported},
    {kUnsupported40071, sayUnsupported},
    {kUnsupported40075, sayUnsupported},
    {kDoNothing, doNothing},
};

bool waitsForReview(OdDbObjectId id)
{
    const auto layer = id.openObject<OdDbLayerTableRecord>();
    return layer && !layer->isReconciled();
}

} // namespace

LayerCommandState layerCommandState(const OdDbDatabase& database, const LayerRows& rows)
{
    LayerCommandState state;
    state.rows = static_cast<int>(rows.listed.size());
    state.selected = static_cast<int>(rows.selected.size());
    state.inLayout = !database.getTILEMODE();
    state.hasViewport = !database.activeViewportId().isNull();
    state.selectedHaveOverrides = haveLayerOverrides(database, AllViewports, rows.selected);
    state.listedHaveOverrides = haveLayerOverrides(database, AllViewports, rows.listed);
    state.selectedWaitForReview =
        std::any_of(rows.selected.begin(), rows.selected.end(), waitsForReview);
    return state;
}

std::optional<LayerOutcome> runLayerCommand(OdDbDatabase& database, int id, const LayerRows& rows,
                                            const NewLayerListener& tell)
{
    const auto* found = std::find_if(std::begin(kRunners), std::end(kRunners),
                                     [id](const Runner& runner) { return runner.id == id; });
    if (found == std::end(kRunners))
        return std::nullopt;
    return found->run({database, rows, tell});
}
