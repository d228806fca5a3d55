#include "layermanager/filters/tree/FilterLayerCommands.h"

#include "database/OdDbDatabase.h"
#include "database/OdDbEntity.h"
#include "database/OdDbLayerTableRecord.h"
#include "database/OdError.h"
#include "layermanager/filters/tree/FilterCommands.h"
#include "layermanager/layers/LayerUndoRecord.h"

#include <algorithm>

namespace {

using Record = OdDbLayerTableRecord;
using Layers = std::vector<OdDbObjectId>;

struct LayerCommand
{
    int id;
    Layers FilterLayers::*layers;
    bool (Record::*get)() const;
    void (Record::*set)(bool);
    bool value;
};

constexpr LayerCommand kLayerCommands[] = {
    {kTurnOff, &FilterLayers::in, &Record::isOff, &Record::setIsOff, true},
    {kTurnOn, &FilterLayers::in, &Record::isOff, &Record::setIsOff, false},
    {kThaw, &FilterLayers::in, &Record::isFrozen, &Record::setIsFrozen, false},
    {kFreeze, &FilterLayers::in, &Record::isFrozen, &Record::setIsFrozen, true},
    {kLock, &FilterLayers::in, &Record::isLocked, &Record::setIsLocked, true},
    {kUnlock, &FilterLayers::in, &Record::isLocked, &Record::setIsLocked, false},
    {kFreezeOthers, &FilterLayers::other, &Record::isFrozen, &Record::setIsFrozen, true},
};

struct ViewportCommand
{
    int id;
    Layers FilterLayers::*layers;
    void (OdDbViewport::*change)(const OdDbObjectIdArray& layers);
};

constexpr ViewportCommand kViewportCommands[] = {
    {kFreezeInViewport, &FilterLayers::in, &OdDbViewport::freezeLayersInViewport},
    {kThawInViewport, &FilterLayers::in, &OdDbViewport::thawLayersInViewport},
    {kThawOthersInViewport, &FilterLayers::other, &OdDbViewport::thawLayersInViewport},
};

template <class Table>
const auto* find(const Table& table, int id)
{
    const auto it = std::find_if(std::begin(table), std::end(table),
                                 [id](const auto& command) { return command.id == id; });
    return it == std::end(table) ? nullptr : it;
}

void changeLayer(OdDbObjectId id, const LayerCommand& command)
{
    try {
        const auto layer = id.openObject<Record>();
        if (!layer || (*layer.*command.get)() == command.value)
            return;
        (*id.safeOpenObject<Record>(OdDb::kForWrite).*command.set)(command.value);
    } catch (const OdError&) {
        return; // one layer that cannot be written is left as it is
    }
}

bool changeLayers(OdDbDatabase& database, const LayerCommand& command, const Layers& layers)
{
    beginLayerUndoRecord(database);
    const bool freezes = command.set == &Record::setIsFrozen && command.value;
    const OdDbObjectId spared = freezes ? database.getCLAYER() : OdDbObjectId();
    for (const OdDbObjectId layer : layers) {
        if (layer != spared)
            changeLayer(layer, command);
    }
    return true;
}

bool changeInViewport(OdDbDatabase& database, const ViewportCommand& command, const Layers& layers)
{
    const OdDbObjectId active = database.activeViewportId();
    if (layers.empty() || !active.openObject<OdDbViewport>())
        return false;
    beginLayerUndoRecord(database);
    (*active.safeOpenObject<OdDbViewport>(OdDb::kForWrite).*command.change)(layers);
    return true;
}

} // namespace

bool isFilterLayerCommand(int id)
{
    return find(kLayerCommands, id) || find(kViewportCommands, id);
}

bool changeLayersOfFilter(OdDbDatabase& database, int id, const FilterLayers& layers)
{
    if (const auto* command = find(kLayerCommands, id))
        return changeLayers(database, *command, layers.*command->layers);
    if (const auto* command = find(kViewportCommands, id))
        return changeInViewport(database, *command, layers.*command->layers);
    return false;
}
