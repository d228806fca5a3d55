#include "database/objects/OdDbLayout.h"

#include "database/drawing/OdDbDatabase.h"

std::vector<OdDbObjectId> OdDbLayout::getViewportArray() const
{
    return m_state.tabOrder == 0 ? std::vector<OdDbObjectId>()
                                 : database()->viewportsOf(m_state.block);
}
