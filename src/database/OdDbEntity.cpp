#include "database/OdDbEntity.h"

#include "database/ObjectStore.h"
#include "database/OdDbDatabase.h"

#include <algorithm>

OdDbObjectId OdDbEntity::layerId() const
{
    return OdDbObjectId(database(), database()->store().layer(objectId().slot()));
}

bool OdDbViewport::isLayerFrozenInViewport(OdDbObjectId layer) const
{
    const auto& frozen = m_state.frozenLayers;
    if (m_lookup.size() != frozen.size()) {
        m_lookup.clear();
        for (const OdDbObjectId id : frozen)
            m_lookup.push_back(id.slot());
        std::sort(m_lookup.begin(), m_lookup.end());
    }
    return std::binary_search(m_lookup.begin(), m_lookup.end(), layer.slot());
}
