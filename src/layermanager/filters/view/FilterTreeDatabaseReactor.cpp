#include "layermanager/filters/view/FilterTreeDatabaseReactor.h"

#include "database/objects/OdDbObject.h"
#include "layermanager/filters/view/CLayerTreeVw.h"

void FilterTreeDatabaseReactor::look(const OdDbObject* object)
{
    if (object->kind() == OdDbObjectKind::Xrecord || object->kind() == OdDbObjectKind::Dictionary)
        m_tree.scheduleRefresh();
}

void FilterTreeDatabaseReactor::goodbye(const OdDbDatabase*)
{
    m_tree.bind(nullptr);
}
