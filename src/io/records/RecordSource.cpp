#include "io/records/RecordSource.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"

quint64 RecordSource::handleOfMade(quint32 slot, const QString& purpose) const
{
    quint64& handle = m_madeHandles[{slot, purpose}];
    if (handle == 0)
        handle = m_database.store().takeHandle();
    return handle;
}
