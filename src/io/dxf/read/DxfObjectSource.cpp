#include "io/dxf/read/DxfObjectSource.h"

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
#include "io/dxf/read/DxfRecordReader.h"
#include "io/records/LayerExtras.h"

DxfObjectSource::DxfObjectSource(std::shared_ptr<const FileImage> image, OdDbDatabase& database,
                                 const DxfText& text, DxfVersion version, DxfLandmarks landmarks)
    : RecordSource(database)
    , m_image(std::move(image))
    , m_text(text)
    , m_version(version)
    , m_landmarks(std::move(landmarks))
{ }

std::unique_ptr<GroupCursor> DxfObjectSource::makeCursor() const
{
    return std::make_unique<DxfCursor>(m_image, database().store(), *this);
}

DxfCursor DxfObjectSource::cursor(quint32 slot) const
{
    DxfCursor cursor(m_image, database().store(), *this);
    cursor.open(slot);
    return cursor;
}

OdDbObjectId DxfObjectSource::id(quint64 handle) const
{
    return database().getOdDbObjectId(OdDbHandle(handle));
}

void DxfObjectSource::read(OdDbObject& object) const
{
    const quint32 slot = object.objectId().slot();
    const DxfRecordReader reader(*this);
    switch (object.kind()) {
    case OdDbObjectKind::Layer:
        static_cast<OdDbLayerTableRecord&>(object).stateForLoading() = readLayer(slot);
        break;
    case OdDbObjectKind::BlockTableRecord:
        static_cast<OdDbBlockTableRecord&>(object).stateForLoading() = reader.block(cursor(slot));
        break;
    case OdDbObjectKind::Linetype:
        static_cast<OdDbLinetypeTableRecord&>(object).stateForLoading() =
            reader.linetype(cursor(slot));
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
        static_cast<OdDbLayout&>(object).stateForLoading() = reader.layout(cursor(slot));
        break;
    case OdDbObjectKind::Viewport:
        static_cast<OdDbViewport&>(object).stateForLoading() = readViewport(slot);
        break;
    case OdDbObjectKind::SymbolTableRecord:
        static_cast<OdDbNamedRecord&>(object).stateForLoading() = reader.namedRecord(cursor(slot));
        break;
    default:
        break;
    }
}

DxfCursor DxfObjectSource::cursorOver(const char* begin, const char* end) const
{
    DxfCursor cursor(m_image, database().store(), *this);
    cursor.openBytes(begin, end);
    return cursor;
}

quint32 DxfObjectSource::extensionDictionary(quint32 slot) const
{
    bool inExtension = false;
    for (DxfCursor groups = cursor(slot); groups.next() && groups.code() < 1000;) {
        if (groups.code() == 102)
            inExtension = DxfRecordReader::opensExtension(groups);
        else if (inExtension && (groups.code() == 360 || groups.code() == 350))
            return id(groups.handle()).slot();
    }
    return OdDbObjectId::kNoSlot;
}

LayerState DxfObjectSource::readLayer(quint32 slot) const
{
    OdDbObjectId extension;
    LayerState layer = DxfRecordReader(*this).layer(cursor(slot), extension);
    if (!extension.isNull())
        readLayerExtras(extension.slot(), layer);
    return layer;
}

void DxfObjectSource::readLayerExtras(quint32 dictionarySlot, LayerState& layer) const
{
    const ObjectStore& store = database().store();
    if (store.type(dictionarySlot) != RecordType::Dictionary)
        return;
    for (const DictionaryEntry& entry : readDictionary(dictionarySlot).entries) {
        if (!entry.value.isNull() && store.type(entry.value.slot()) == RecordType::Xrecord)
            LayerExtras::read(database(), entry.key, readXrecord(entry.value.slot()).groups, layer);
    }
}

DictionaryState DxfObjectSource::readDictionary(quint32 slot) const
{
    return DxfRecordReader(*this).dictionary(cursor(slot));
}

DictionaryVarState DxfObjectSource::readDictionaryVar(quint32 slot) const
{
    return DxfRecordReader(*this).dictionaryVar(cursor(slot));
}

XrecordState DxfObjectSource::readXrecord(quint32 slot) const
{
    return DxfRecordReader(*this).xrecord(cursor(slot));
}

ViewportState DxfObjectSource::readViewport(quint32 slot) const
{
    return DxfRecordReader(*this).viewport(cursor(slot));
}
