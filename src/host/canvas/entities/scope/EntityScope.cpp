#include "host/canvas/entities/scope/EntityScope.h"

#include "database/store/ObjectStore.h"

quint32 EntityScope::subEntitiesEnd() const
{
    quint32 end = slot + 1;
    while (end < store.size() && store.has(end, ObjectStore::kSubEntity))
        ++end;
    return end;
}
