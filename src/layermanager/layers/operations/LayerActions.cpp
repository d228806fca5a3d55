#include "layermanager/layers/operations/LayerActions.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/layers/operations/LayerEdits.h"
#include "layermanager/layers/operations/UndoRecordOnDemand.h"

#include <unordered_set>

namespace {

using Record = OdDbLayerTableRecord;
using Ids = std::span<const OdDbObjectId>;
using Slots = std::unordered_set<quint32>;

Slots slotsOf(Ids layers)
{
    Slots found;
    for (const OdDbObjectId layer : layers)
        found.insert(layer.slot());
    return found;
}

void turn(UndoRecordOnDemand& record, LayerOutcome& outcome, OdDbObjectId id, bool off)
{
    try {
        const auto layer = id.openObject<Record>(OdDb::kForWrite);
        if (!layer || layer->isOff() == off)
            return;
        record.begin();
        layer->setIsOff(off);
        outcome.changed.push_back(id);
    } catch (const OdError& error) {
        outcome.refuse(id, error.description());
    }
}

void setCurrent(UndoRecordOnDemand& record, LayerOutcome& outcome, OdDbObjectId id)
{
    const auto layer = id.openObject<Record>();
    if (!layer)
        return;
    const bool differs = id.database()->getCLAYER() != id;
    if (differs && currentLayerRefusal(*layer).isEmpty())
        record.begin();
    const LayerEditOutcome made = makeLayerCurrent(id);
    if (!made.refusal.isEmpty()) {
        outcome.refuse(id, made.refusal);
        outcome.message = made.refusal;
    }
    if (made.changed && (outcome.changed.empty() || outcome.changed.front() != id))
        outcome.changed.push_back(id);
}

} // namespace

LayerOutcome setCurrentLayer(OdDbDatabase& database, OdDbObjectId layer)
{
    LayerOutcome outcome;
    UndoRecordOnDemand record(database);
    setCurrent(record, outcome, layer);
    return outcome;
}

LayerOutcome isolateLayers(OdDbDatabase& database, Ids selected, Ids listed)
{
    LayerOutcome outcome;
    if (selected.empty())
        return outcome;
    UndoRecordOnDemand record(database);
    for (const OdDbObjectId layer : selected)
        turn(record, outcome, layer, false);
    const Slots isolated = slotsOf(selected);
    for (const OdDbObjectId layer : listed) {
        if (!isolated.contains(layer.slot()))
            turn(record, outcome, layer, true);
    }
    setCurrent(record, outcome, selected.front());
    return outcome;
}

LayerOutcome reconcileLayers(OdDbDatabase& database, Ids layers)
{
    LayerOutcome outcome;
    std::vector<OdDbObjectId> waiting;
    for (const OdDbObjectId id : layers) {
        const auto layer = id.openObject<Record>();
        if (layer && !layer->isReconciled())
            waiting.push_back(id);
    }
    if (waiting.empty())
        return outcome;
    beginLayerUndoRecord(database);
    outcome.changed = markLayersReconciled(database, waiting, true);
    return outcome;
}

LayerOutcome freezeInAllViewports(OdDbDatabase& database, Ids layers, bool frozen, LayerUndo undo)
{
    LayerOutcome outcome;
    if (database.getTILEMODE())
        return outcome;
    UndoRecordOnDemand record(database, undo);
    Slots changed;
    for (const OdDbObjectId layout : database.layouts()) {
        const auto opened = layout.openObject<OdDbLayout>();
        for (const OdDbObjectId viewport : opened->getViewportArray()) {
            const auto differing = layersToFreeze(viewport, layers, frozen);
            if (differing.empty())
                continue;
            record.begin();
            freezeLayersInViewport(viewport, differing, frozen);
            for (const OdDbObjectId layer : differing)
                changed.insert(layer.slot());
        }
    }
    for (const OdDbObjectId layer : layers) {
        if (changed.erase(layer.slot()) != 0)
            outcome.changed.push_back(layer);
    }
    return outcome;
}
