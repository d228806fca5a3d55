#include "database/states/LayerSnapshot.h"

#include "database/states/DrawingLayers.h"
#include "database/states/stored/LayerStateHead.h"
#include "database/states/stored/StoredLayerReader.h"
#include "database/states/stored/StoredLayerWriter.h"

LayerSnapshot LayerSnapshot::read(const GroupList& groups, const DrawingLayers& drawing)
{
    LayerSnapshot snapshot;
    snapshot.head = LayerStateHead::groupsOf(groups);
    StoredLayerReader reader(groups);
    for (StoredLayer stored; reader.next(stored);)
        snapshot.layers.push_back(drawing.info(stored));
    return snapshot;
}

GroupList LayerSnapshot::write() const
{
    GroupList groups = head;
    for (const LayerInfoInLS& layer : layers)
        appendStoredLayer(groups, layer);
    return groups;
}
