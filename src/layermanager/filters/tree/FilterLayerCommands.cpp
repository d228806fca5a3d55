#include "layermanager/filters/tree/FilterLayerCommands.h"

#include "layermanager/filters/tree/FilterCommands.h"
#include "layermanager/layers/operations/LayerOperations.h"

#include <algorithm>

namespace {

using Layers = std::vector<OdDbObjectId>;

struct LayerCommand
{
    int id;
    Layers FilterLayers::*layers;
    LayerColumn column;
    bool value; ///< of the column's flag: off, frozen, locked
};

constexpr LayerCommand kLayerCommands[] = {
    {kTurnOff, &FilterLayers::in, LayerColumn::On, true},
    {kTurnOn, &FilterLayers::in, LayerColumn::On, false},
    {kThaw, &FilterLayers::in, LayerColumn::Freeze, false},
    {kFreeze, &FilterLayers::in, LayerColumn::Freeze, true},
    {kLock, &FilterLayers::in, LayerColumn::Locked, true},
    {kUnlock, &FilterLayers::in, LayerColumn::Locked, false},
    {kFreezeOthers, &FilterLayers::other, LayerColumn::Freeze, true},
    {kFreezeInViewport, &FilterLayers::in, LayerColumn::VpFreeze, true},
    {kThawInViewport, &FilterLayers::in, LayerColumn::VpFreeze, false},
    {kThawOthersInViewport, &FilterLayers::other, LayerColumn::VpFreeze, false},
};

const LayerCommand* find(int id)
{
    const auto* it = std::find_if(std::begin(kLayerCommands), std::end(kLayerCommands),
                                  [id](const LayerCommand& command) { return command.id == id; });
    return it == std::end(kLayerCommands) ? nullptr : it;
}

} // namespace

bool isFilterLayerCommand(int id)
{
    return find(id) != nullptr;
}

bool changeLayersOfFilter(OdDbDatabase& database, int id, const FilterLayers& layers)
{
    const LayerCommand* command = find(id);
    if (!command)
        return false;
    return !giveEachLayer(database, command->column, command->value, layers.*command->layers)
                .isEmpty();
}
