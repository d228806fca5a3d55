#include "io/dwg/groups/entities/Carry.h"
#include "io/dwg/groups/entities/EntityDecoders.h"
#include "io/dwg/groups/entities/LeastBits.h"
#include "io/dwg/records/DwgTypes.h"

#include <cmath>

namespace {

struct Reference
{
    double at[3];
    double scale[3];
    double angle = 0;
    double normal[3];
    bool hasAttributes = false;
    quint64 block = 0;
};

/// With the handles of the attributes, which are records behind this one.
Reference readReference(DwgRecord& record)
{
    BitReader& data = record.data;
    Reference reference;
    record.point(reference.at);
    readInsertScale(record, reference.scale);
    reference.angle = data.bitDouble();
    data.extrusion(false, reference.normal);
    reference.hasAttributes = data.bit();
    const bool counted = reference.hasAttributes && record.since(DrawingVersion::V2004);
    const quint32 attributes = counted ? record.count(LeastBits::kHandle) : 0;
    reference.block = record.reference();
    if (!reference.hasAttributes)
        return reference;
    // Their number, or the first and the last; then the end of them.
    const quint32 handles = record.since(DrawingVersion::V2004) ? attributes : 2;
    for (quint32 i = 0; i < handles && !record.hasFailed(); ++i)
        record.reference();
    record.reference();
    return reference;
}

void putReference(const GroupContext& context, const Reference& reference, const char* mark)
{
    GroupSink& out = context.out;
    out.mark(100, mark);
    if (reference.hasAttributes)
        out.integer(66, 1);
    out.name(2, reference.block);
    out.point(10, reference.at);
    for (int axis = 0; axis < 3; ++axis) {
        if (reference.scale[axis] != 1)
            out.real(41 + axis, reference.scale[axis]);
    }
    if (reference.angle != 0)
        out.real(50, reference.angle * Carry::kRadiansToDegrees);
}

} // namespace

void decodeInsert(const GroupContext& context)
{
    const Reference reference = readReference(context.record);
    putReference(context, reference, "AcDbBlockReference");
    Carry::putNormal(context.out, reference.normal);
}

void decodeMInsert(const GroupContext& context)
{
    const Reference reference = readReference(context.record);
    putReference(context, reference, "AcDbMInsertBlock");
    Carry::integer(context, 70);
    Carry::integer(context, 71);
    Carry::real(context, 44);
    Carry::real(context, 45);
    Carry::putNormal(context.out, reference.normal);
}

/// What is drawn is the block of the table; its cells stand behind and are left out.
void decodeTable(const GroupContext& context)
{
    const Reference reference = readReference(context.record);
    GroupSink& out = context.out;
    out.mark(100, "AcDbBlockReference");
    out.name(2, reference.block);
    out.point(10, reference.at);
    Carry::putNormal(out, reference.normal);
    out.mark(100, "AcDbTable");
    if (!context.record.since(DrawingVersion::V2010)) {
        context.record.data.bitShort();
        return Carry::point(context, 11);
    }
    // The direction stands behind the cells there; it is that of the reference.
    out.point(11, {std::cos(reference.angle), std::sin(reference.angle), 0});
}
