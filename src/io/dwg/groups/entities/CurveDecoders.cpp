#include "io/dwg/groups/entities/Carry.h"
#include "io/dwg/groups/entities/EntityDecoders.h"

namespace {

void circle(const GroupContext& context)
{
    context.out.mark(100, "AcDbCircle");
    Carry::point(context, 10);
    Carry::real(context, 40);
    Carry::plane(context);
}

void ray(const GroupContext& context, const char* mark)
{
    context.out.mark(100, mark);
    Carry::point(context, 10);
    Carry::point(context, 11);
}

} // namespace

void decodeLine(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    double start[3] = {0, 0, 0};
    double end[3] = {0, 0, 0};
    if (record.since(DrawingVersion::V2000)) {
        const bool flat = data.bit();
        for (int axis = 0; axis < (flat ? 2 : 3); ++axis) {
            start[axis] = data.rawDouble();
            end[axis] = data.bitDouble(start[axis]);
        }
    } else {
        record.point(start);
        record.point(end);
    }
    context.out.mark(100, "AcDbLine");
    context.out.point(10, start);
    context.out.point(11, end);
    Carry::plane(context);
}

void decodeCircle(const GroupContext& context)
{
    circle(context);
}

void decodeArc(const GroupContext& context)
{
    circle(context);
    context.out.mark(100, "AcDbArc");
    Carry::angle(context, 50);
    Carry::angle(context, 51);
}

void decodePoint(const GroupContext& context)
{
    context.out.mark(100, "AcDbPoint");
    Carry::point(context, 10);
    Carry::plane(context);
    const double angle = context.record.number();
    if (angle != 0)
        context.out.real(50, angle * Carry::kRadiansToDegrees);
}

void decodeEllipse(const GroupContext& context)
{
    context.out.mark(100, "AcDbEllipse");
    Carry::point(context, 10);
    Carry::point(context, 11);
    Carry::normal(context);
    Carry::real(context, 40);
    Carry::real(context, 41);
    Carry::real(context, 42);
}

void decodeRay(const GroupContext& context)
{
    ray(context, "AcDbRay");
}

void decodeXLine(const GroupContext& context)
{
    ray(context, "AcDbXline");
}
