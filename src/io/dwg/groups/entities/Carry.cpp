#include "io/dwg/groups/entities/Carry.h"

double Carry::real(const GroupContext& context, int code)
{
    const double value = context.record.data.bitDouble();
    context.out.real(code, value);
    return value;
}

void Carry::angle(const GroupContext& context, int code)
{
    context.out.real(code, context.record.data.bitDouble() * kRadiansToDegrees);
}

int Carry::integer(const GroupContext& context, int code)
{
    const int value = context.record.data.bitShort();
    context.out.integer(code, value);
    return value;
}

bool Carry::flag(const GroupContext& context, int code)
{
    const bool value = context.record.data.bit();
    context.out.integer(code, value ? 1 : 0);
    return value;
}

void Carry::text(const GroupContext& context, int code)
{
    context.out.text(code, context.record.text());
}

void Carry::point(const GroupContext& context, int code)
{
    double at[3];
    context.record.point(at);
    context.out.point(code, at);
}

void Carry::rawPoint(const GroupContext& context, int code)
{
    for (int axis = 0; axis < 2; ++axis)
        context.out.real(code + 10 * axis, context.record.data.rawDouble());
}

void Carry::name(const GroupContext& context, int code)
{
    if (const quint64 handle = context.record.reference(); handle != 0)
        context.out.name(code, handle);
}

void Carry::normal(const GroupContext& context, bool compact)
{
    double direction[3];
    context.record.data.extrusion(compact, direction);
    putNormal(context.out, direction);
}

void Carry::plane(const GroupContext& context)
{
    DwgRecord& record = context.record;
    const bool compact = record.since(DrawingVersion::V2000);
    const double thickness = record.data.thickness(compact);
    if (thickness != 0)
        context.out.real(39, thickness);
    normal(context, compact);
}

void Carry::putNormal(GroupSink& out, const double (&normal)[3])
{
    if (normal[0] != 0 || normal[1] != 0 || normal[2] != 1)
        out.point(210, normal);
}
