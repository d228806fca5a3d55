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

DxfObjectSource::DxfObjectSource(std::shared_ptr<const FileImage> image, OdDbDatabase& database,
                                 const DxfText& text, DrawingVersion version,
                                 DxfLandmarks landmarks)
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
    readLayerExtras(slot, extension, layer);
    return layer;
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

LinetypeState DxfObjectSource::readLinetype(quint32 slot) const
{
    return DxfRecordReader(*this).linetype(cursor(slot));
}

NamedRecordState DxfObjectSource::readNamed(quint32 slot) const
{
    return DxfRecordReader(*this).namedRecord(cursor(slot));
}

LayoutState DxfObjectSource::readLayout(quint32 slot) const
{
    return DxfRecordReader(*this).layout(cursor(slot));
}

BlockState DxfObjectSource::readBlock(quint32 slot) const
{
    return DxfRecordReader(*this).block(cursor(slot));
}
