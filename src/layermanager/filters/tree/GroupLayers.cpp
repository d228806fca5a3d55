#include "layermanager/filters/tree/GroupLayers.h"

#include "database/OdDbDatabase.h"
#include "database/OdDbEntity.h"
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

void removeAll(OdLyLayerGroup& group)
{
    for (const OdDbObjectId layer : std::vector<OdDbObjectId>(group.layerIds()))
        group.removeLayerId(layer);
}

bool fillGroup(OdDbDatabase& database, const FilterKey& key, std::span<const OdDbObjectId> layers,
               bool keepsContents)
{
    FilterTreeEdit edit(database);
    const OdLyLayerGroupPtr group = findGroup(edit, key);
    if (!group)
        return false;
    std::unordered_set<quint32> held;
    if (keepsContents) {
        for (const OdDbObjectId layer : group->layerIds())
            held.insert(layer.slot());
    } else {
        removeAll(*group);
    }
    for (const OdDbObjectId layer : layers) {
        if (!layer.isNull() && held.insert(layer.slot()).second)
            group->addLayerId(layer);
    }
    beginLayerUndoRecord(database);
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
    return fillGroup(database, group, layers, true);
}

bool RemoveLayerFromGroups(OdDbDatabase& database, OdDbObjectId layer)
{
    FilterTreeEdit edit(database);
    if (!edit.root())
        return false;
    for (const OdLyLayerFilterPtr& filter : filtersOfTree(edit.root())) {
        if (!filter->isIdFilter())
            continue;
        auto& group = static_cast<OdLyLayerGroup&>(*filter);
        while (std::find(group.layerIds().begin(), group.layerIds().end(), layer)
               != group.layerIds().end())
            group.removeLayerId(layer);
    }
    edit.write();
    return true;
}
