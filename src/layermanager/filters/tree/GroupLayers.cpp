#include "layermanager/filters/tree/GroupLayers.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbEntity.h"
#include "layermanager/filters/tree/FilterEdits.h"
#include "layermanager/layers/LayerUndoRecord.h"
#include "sdk/KestSSGet.h"

#include <algorithm>
#include <unordered_set>

namespace {

OdLyLayerGroupPtr findGroup(const FilterTreeEdit& edit, const FilterKey& key)
{
    const OdLyLayerFilterPtr filter = edit.find(key);
    return filter && filter->isIdFilter()
        ? OdLyLayerGroupPtr(static_cast<OdLyLayerGroup*>(filter.get()))
        : OdLyLayerGroupPtr();
}

/// Takes all layers of these slots out; false where the group holds none.
bool removeAll(OdLyLayerGroup& group, const std::unordered_set<quint32>& leaving)
{
    std::vector<OdDbObjectId> kept = group.layerIds();
    const bool changed =
        std::erase_if(kept, [&](OdDbObjectId id) { return leaving.contains(id.slot()); }) > 0;
    if (changed)
        group.setLayerIds(std::move(kept));
    return changed;
}

bool fillGroup(OdDbDatabase& database, const FilterKey& key, std::span<const OdDbObjectId> layers,
               bool keepsContents)
{
    FilterTreeEdit edit(database);
    const OdLyLayerGroupPtr group = findGroup(edit, key);
    if (!group)
        return false;
    const std::vector<OdDbObjectId> before = group->layerIds();
    std::unordered_set<quint32> held;
    if (keepsContents) {
        for (const OdDbObjectId layer : before)
            held.insert(layer.slot());
    } else {
        group->setLayerIds({});
    }
    for (const OdDbObjectId layer : layers) {
        if (!layer.isNull() && held.insert(layer.slot()).second)
            group->addLayerId(layer);
    }
    if (group->layerIds() == before)
        return true;
    beginLayerUndoRecordOfCommand(database);
    edit.write();
    return true;
}

} // namespace

bool FillGroupFromSelection(OdDbDatabase& database, const FilterKey& group,
                            const KestSelectionSet& selection, int mode)
{
    std::vector<OdDbObjectId> layers;
    layers.reserve(selection.entities.size());
    for (const OdDbObjectId entity : selection.entities) {
        if (const auto opened = entity.openObject<OdDbEntity>())
            layers.push_back(opened->layerId());
    }
    return fillGroup(database, group, layers, mode == 1);
}

bool addLayersToGroup(OdDbDatabase& database, const FilterKey& group,
                      std::span<const OdDbObjectId> layers)
{
    return moveLayersToGroup(database, nullptr, group, layers);
}

bool moveLayersToGroup(OdDbDatabase& database, const FilterKey* from, const FilterKey& to,
                       std::span<const OdDbObjectId> layers)
{
    FilterTreeEdit edit(database);
    const OdLyLayerGroupPtr target = findGroup(edit, to);
    if (!target || target->dynamicallyGenerated())
        return false;
    std::unordered_set<quint32> held;
    for (const OdDbObjectId layer : target->layerIds())
        held.insert(layer.slot());
    bool changed = false;
    std::unordered_set<quint32> moved;
    for (const OdDbObjectId layer : layers) {
        if (layer.isNull() || layer.isErased())
            continue;
        moved.insert(layer.slot());
        if (!held.insert(layer.slot()).second)
            continue;
        target->addLayerId(layer);
        changed = true;
    }
    const OdLyLayerGroupPtr source = from ? findGroup(edit, *from) : nullptr;
    if (source && source != target && !source->dynamicallyGenerated())
        changed |= removeAll(*source, moved);
    if (!changed)
        return false;
    beginLayerUndoRecord(database);
    edit.write();
    return true;
}

bool RemoveLayerFromGroups(OdDbDatabase& database, OdDbObjectId layer)
{
    return removeLayersFromGroups(database, {&layer, 1});
}

bool removeLayersFromGroups(OdDbDatabase& database, std::span<const OdDbObjectId> layers)
{
    FilterTreeEdit edit(database);
    if (!edit.root())
        return false;
    std::unordered_set<quint32> leaving;
    for (const OdDbObjectId layer : layers)
        leaving.insert(layer.slot());
    bool changed = false;
    for (const OdLyLayerFilterPtr& filter : filtersOfTree(edit.root())) {
        if (filter->isIdFilter())
            changed |= removeAll(static_cast<OdLyLayerGroup&>(*filter), leaving);
    }
    if (changed)
        edit.write();
    return true;
}
