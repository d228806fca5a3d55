#include "io/dwg/records/OwnedEntities.h"

#include "io/dwg/records/DwgRecord.h"
#include "io/dwg/records/DwgTypes.h"

namespace {

void skipInsert(DwgRecord& record)
{
    double point[3];
    record.point(point);
    readInsertScale(record, point);
    record.data.bitDouble(); // angle
    record.data.extrusion(false, point);
}

void skipPolyline(DwgRecord& record)
{
    double normal[3];
    const bool compact = record.since(DrawingVersion::V2000);
    record.data.bitShort();
    record.data.bitShort();
    record.data.bitDouble();
    record.data.bitDouble();
    record.data.thickness(compact);
    record.data.bitDouble();
    record.data.extrusion(compact, normal);
}

/// Reads over what stands before the count of owned entities; false where the record owns none.
bool skipToCount(DwgRecord& record)
{
    switch (record.type()) {
    case DwgType::Insert:
    case DwgType::MInsert:
        skipInsert(record);
        if (!record.data.bit())
            return false;
        record.reference(); // the block
        return true;
    case DwgType::Polyline2d:
        skipPolyline(record);
        return true;
    case DwgType::Polyline3d:
        record.data.skip(16);
        return true;
    case DwgType::PolylineFaces:
        record.data.bitShort();
        record.data.bitShort();
        return true;
    case DwgType::PolylineMesh:
        for (int i = 0; i < 6; ++i)
            record.data.bitShort();
        return true;
    default:
        return false;
    }
}

} // namespace

void readInsertScale(DwgRecord& record, double (&scale)[3])
{
    BitReader& data = record.data;
    if (!record.since(DrawingVersion::V2000))
        return record.point(scale);
    scale[0] = scale[1] = scale[2] = 1.0;
    switch (data.bits(2)) {
    case 0:
        scale[0] = data.rawDouble();
        scale[1] = data.bitDouble(scale[0]);
        scale[2] = data.bitDouble(scale[0]);
        break;
    case 1:
        scale[1] = data.bitDouble(1.0);
        scale[2] = data.bitDouble(1.0);
        break;
    case 2:
        scale[0] = scale[1] = scale[2] = data.rawDouble();
        break;
    default:
        break;
    }
}

OwnedEntities OwnedEntities::read(DwgRecord& record)
{
    OwnedEntities owned;
    if (!skipToCount(record))
        return owned;
    if (record.since(DrawingVersion::V2004)) {
        const quint32 count = record.count(8);
        for (quint32 i = 0; i < count && !record.hasFailed(); ++i)
            owned.listed.push_back(record.reference());
    } else {
        owned.first = record.reference();
        owned.last = record.reference();
    }
    owned.end = record.reference();
    return owned;
}
