#include "io/dwg/groups/EntityDecoders.h"

namespace {

constexpr double kRadiansToDegrees = 57.29577951308232;

/// Thickness and the direction of the plane, where they say something.
void plane(const GroupContext& context)
{
    DwgRecord& record = context.record;
    const bool compact = record.since(DwgVersion::V2000);
    double normal[3];
    const double thickness = record.data.thickness(compact);
    record.data.extrusion(compact, normal);
    if (thickness != 0)
        context.out.real(39, thickness);
    if (normal[0] != 0 || normal[1] != 0 || normal[2] != 1)
        context.out.point(210, normal);
}

void circle(const GroupContext& context)
{
    double center[3];
    context.record.point(center);
    context.out.mark(100, "AcDbCircle");
    context.out.point(10, center);
    context.out.real(40, context.record.number());
    plane(context);
}

} // namespace

void decodeLine(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    double start[3] = {0, 0, 0};
    double end[3] = {0, 0, 0};
    if (record.since(DwgVersion::V2000)) {
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
    plane(context);
}

void decodeCircle(const GroupContext& context)
{
    circle(context);
}

void decodeArc(const GroupContext& context)
{
    circle(context);
    context.out.mark(100, "AcDbArc");
    context.out.real(50, context.record.number() * kRadiansToDegrees);
    context.out.real(51, context.record.number() * kRadiansToDegrees);
}

void decodePoint(const GroupContext& context)
{
    double at[3];
    context.record.point(at);
    context.out.mark(100, "AcDbPoint");
    context.out.point(10, at);
    plane(context);
    const double angle = context.record.number();
    if (angle != 0)
        context.out.real(50, angle * kRadiansToDegrees);
}
