#include "database/objects/OdDbEntity.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTableRecord.h"

#include <algorithm>
#include <set>

OdDbObjectId OdDbEntity::layerId() const
{
    return OdDbObjectId(database(), database()->store().layer(objectId().slot()));
}

void OdDbEntity::setLayer(OdDbObjectId layer)
{
    requireWriteEnabled();
    database()->setEntityLayer(objectId(), layer);
}

const std::vector<quint32>& OdDbViewport::lookup() const
{
    const auto& frozen = m_state.frozenLayers;
    if (m_lookup.size() != frozen.size()) {
        m_lookup.clear();
        for (const OdDbObjectId id : frozen)
            m_lookup.push_back(id.slot());
        std::sort(m_lookup.begin(), m_lookup.end());
    }
    return m_lookup;
}

bool OdDbViewport::isLayerFrozenInViewport(OdDbObjectId layer) const
{
    return std::binary_search(lookup().begin(), lookup().end(), layer.slot());
}

void OdDbViewport::freezeLayersInViewport(const OdDbObjectIdArray& layers)
{
    requireWriteEnabled();
    OdDbObjectIdArray added;
    std::set<quint32> seen;
    for (const OdDbObjectId layer : layers) {
        if (!isLayerFrozenInViewport(layer) && seen.insert(layer.slot()).second
            && layer.openObject<OdDbLayerTableRecord>())
            added.push_back(layer);
    }
    if (added.empty())
        return;
    assertWriteEnabled();
    m_state.frozenLayers.insert(m_state.frozenLayers.end(), added.begin(), added.end());
    m_lookup.clear();
}

void OdDbViewport::thawLayersInViewport(const OdDbObjectIdArray& layers)
{
    requireWriteEnabled();
    std::vector<quint32> thawed;
    for (const OdDbObjectId layer : layers) {
        if (isLayerFrozenInViewport(layer))
            thawed.push_back(layer.slot());
    }
    if (thawed.empty())
        return;
    std::sort(thawed.begin(), thawed.end());
    assertWriteEnabled();
    std::erase_if(m_state.frozenLayers, [&](OdDbObjectId id) {
        return std::binary_search(thawed.begin(), thawed.end(), id.slot());
    });
    m_lookup.clear();
}

void OdDbViewport::thawAllLayersInViewport()
{
    assign(&ViewportState::frozenLayers, {});
    m_lookup.clear();
}
