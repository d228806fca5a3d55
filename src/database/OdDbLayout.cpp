#include "database/OdDbLayout.h"

#include "database/ObjectStore.h"
#include "database/OdDbDatabase.h"
#include "database/OdDbEntity.h"

#include <algorithm>

std::vector<OdDbObjectId> OdDbLayout::getViewportArray() const
{
    std::vector<OdDbObjectId> viewports;
    if (m_state.block.isNull() || m_state.tabOrder == 0)
        return viewports;
    const ObjectStore& store = database()->store();
    for (const quint32 slot : store.viewports()) {
        if (store.owner(slot) == m_state.block.slot() && !store.has(slot, ObjectStore::kErased))
            viewports.push_back(database()->idOfSlot(slot));
    }
    const OdDbObjectId overall = overallAmong(viewports);
    const auto it = std::find(viewports.begin(), viewports.end(), overall);
    if (it != viewports.end())
        std::rotate(viewports.begin(), it, it + 1);
    return viewports;
}

OdDbObjectId OdDbLayout::overallAmong(const std::vector<OdDbObjectId>& viewports) const
{
    // In a sheet that was opened the sheet's own viewport has number 1; in others all numbers are 0
    // and it is the first one.
    for (const OdDbObjectId id : viewports) {
        if (id.openObject<OdDbViewport>()->number() == 1)
            return id;
    }
    return viewports.empty() ? OdDbObjectId() : viewports.front();
}

OdDbObjectId OdDbLayout::overallVportId() const
{
    const std::vector<OdDbObjectId> viewports = getViewportArray();
    return viewports.empty() ? OdDbObjectId() : viewports.front();
}
