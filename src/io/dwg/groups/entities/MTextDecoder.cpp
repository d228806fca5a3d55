#include "io/dwg/groups/entities/Carry.h"
#include "io/dwg/groups/entities/EntityDecoders.h"
#include "io/dwg/groups/entities/LeastBits.h"
#include "io/dwg/groups/entities/MTextParts.h"

namespace {

/// The columns of a text since version 2018.
void skipColumns(DwgRecord& record)
{
    enum Columns { kNone, kStatic, kDynamic };
    BitReader& data = record.data;
    double point[3];
    data.bitShort(); // version
    data.bit();
    record.reference(); // application
    data.bitLong(); // attachment
    record.point(point); // direction
    record.point(point); // place
    for (int i = 0; i < 4; ++i)
        data.bitDouble(); // width and height, as stated and as they are
    const int columns = data.bitShort();
    if (columns == kNone)
        return;
    const quint32 heights = record.count(LeastBits::kReal);
    data.bitDouble(); // width
    data.bitDouble(); // gap
    const bool automatic = data.bit();
    data.bit(); // from the last to the first
    if (automatic || columns != kDynamic)
        return;
    for (quint32 i = 0; i < heights && !data.hasFailed(); ++i)
        data.bitDouble();
}

void background(const GroupContext& context)
{
    enum Background { kFilled = 1, kFramed = 16 };
    DwgRecord& record = context.record;
    const int background = record.data.bitLong();
    if (background != 0)
        context.out.integer(90, background);
    const bool framed = record.since(DrawingVersion::V2018) && (background & kFramed) != 0;
    if ((background & kFilled) == 0 && !framed)
        return;
    Carry::real(context, 45);
    const OdCmColor color = record.color();
    context.out.integer(63, color.colorIndex());
    if (color.colorMethod() == OdCmColor::kByColor)
        context.out.integer(421, color.color() & 0xFFFFFF);
    context.out.integer(441, record.data.bitLong());
}

} // namespace

void MTextParts::decode(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    double normal[3];
    double direction[3];
    Carry::point(context, 10);
    record.point(normal);
    record.point(direction);
    const double width = data.bitDouble();
    if (record.since(DrawingVersion::V2007))
        Carry::real(context, 46);
    Carry::real(context, 40);
    out.real(41, width);
    Carry::integer(context, 71);
    Carry::integer(context, 72);
    Carry::real(context, 43);
    Carry::real(context, 42);
    Carry::text(context, 1);
    Carry::name(context, 7);
    Carry::putNormal(out, normal);
    out.point(11, direction);
    if (record.since(DrawingVersion::V2000)) {
        Carry::integer(context, 73);
        Carry::real(context, 44);
        data.bit();
    }
    if (record.since(DrawingVersion::V2004))
        background(context);
    if (record.since(DrawingVersion::V2018) && data.bit())
        skipColumns(record);
}

void decodeMText(const GroupContext& context)
{
    context.out.mark(100, "AcDbMText");
    MTextParts::decode(context);
}
