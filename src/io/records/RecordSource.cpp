#include "io/records/RecordSource.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbDictionaryVar.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/objects/OdDbXrecord.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/tables/OdDbNamedRecord.h"
#include "io/records/LayerExtras.h"

void RecordSource::read(OdDbObject& object) const
{
    const quint32 slot = object.objectId().slot();
    switch (object.kind()) {
    case OdDbObjectKind::Layer:
        static_cast<OdDbLayerTableRecord&>(object).stateForLoading() = readLayer(slot);
        break;
    case OdDbObjectKind::BlockTableRecord:
        static_cast<OdDbBlockTableRecord&>(object).stateForLoading() = readBlock(slot);
        break;
    case OdDbObjectKind::Linetype:
        static_cast<OdDbLinetypeTableRecord&>(object).stateForLoading() = readLinetype(slot);
        break;
    case OdDbObjectKind::Dictionary:
        static_cast<OdDbDictionary&>(object).stateForLoading() = readDictionary(slot);
        break;
    case OdDbObjectKind::Xrecord:
        static_cast<OdDbXrecord&>(object).stateForLoading() = readXrecord(slot);
        break;
    case OdDbObjectKind::DictionaryVar:
        static_cast<OdDbDictionaryVar&>(object).stateForLoading() = readDictionaryVar(slot);
        break;
    case OdDbObjectKind::Layout:
        static_cast<OdDbLayout&>(object).stateForLoading() = readLayout(slot);
        break;
    case OdDbObjectKind::Viewport:
        static_cast<OdDbViewport&>(object).stateForLoading() = readViewport(slot);
        break;
    case OdDbObjectKind::SymbolTableRecord:
        static_cast<OdDbNamedRecord&>(object).stateForLoading() = readNamed(slot);
        break;
    default:
        break;
    }
}

OdDbObjectId RecordSource::id(quint64 handle) const
{
    return handle == 0 ? OdDbObjectId() : m_database.getOdDbObjectId(OdDbHandle(handle));
}

void RecordSource::readLayerExtras(quint32 slot, OdDbObjectId dictionary, LayerState& layer) const
{
    const ObjectStore& store = m_database.store();
    if (dictionary.isNull() || store.type(dictionary.slot()) != RecordType::Dictionary
        || !store.mayOwn(slot, dictionary.slot()))
        return;
    for (const DictionaryEntry& entry : readDictionary(dictionary.slot()).entries) {
        if (!entry.value.isNull() && store.type(entry.value.slot()) == RecordType::Xrecord)
            LayerExtras::read(m_database, entry.key, readXrecord(entry.value.slot()).groups, layer);
    }
}

quint64 RecordSource::handleOfMade(quint32 slot, const QString& purpose) const
{
    quint64& handle = m_madeHandles[{slot, purpose}];
    if (handle == 0)
        handle = m_database.store().takeHandle();
    return handle;
}
