#include "io/dwg/groups/entities/Carry.h"
#include "io/dwg/groups/entities/EntityDecoders.h"
#include "io/dwg/groups/entities/LeastBits.h"

namespace {

/// Settings that are of no use; up to R14 they are those of the style.
void skipOldStyle(DwgRecord& record)
{
    BitReader& data = record.data;
    data.bitShort();
    if (!record.since(DrawingVersion::V2000)) {
        data.bitDouble(); // size of the arrow
        data.bit();
        data.bit();
        data.bitShort();
        data.bitShort(); // colour
    }
    data.bit();
    data.bit();
}

} // namespace

void decodeLeader(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    double point[3];
    double normal[3];
    data.bit();
    const quint64 annotation = record.reference();
    const quint64 style = record.reference();
    out.mark(100, "AcDbLeader");
    out.name(3, style);
    Carry::integer(context, 73);
    Carry::integer(context, 72);
    const quint32 points = record.count(LeastBits::kPoint);
    out.integer(76, points);
    for (quint32 i = 0; i < points && !data.hasFailed(); ++i)
        Carry::point(context, 10);
    record.point(point); // origin
    record.point(normal);
    Carry::point(context, 211);
    Carry::point(context, 212);
    if (record.since(DrawingVersion::R14))
        Carry::point(context, 213);
    if (!record.since(DrawingVersion::V2000))
        data.bitDouble(); // gap
    if (!record.since(DrawingVersion::V2010)) {
        Carry::real(context, 40);
        Carry::real(context, 41);
    }
    Carry::flag(context, 74);
    Carry::flag(context, 71);
    skipOldStyle(record);
    Carry::putNormal(out, normal);
    if (annotation != 0)
        out.handle(340, annotation);
}
