#include "io/dwg/groups/entities/Carry.h"
#include "io/dwg/groups/entities/EntityDecoders.h"
#include "io/dwg/groups/entities/MTextParts.h"

namespace {

/// One line of text as texts, attributes and their definitions have it.
struct Line
{
    double elevation = 0;
    double at[2] = {0, 0};
    double aligned[2] = {0, 0};
    double normal[3] = {0, 0, 1};
    double thickness = 0;
    double oblique = 0;
    double angle = 0;
    double height = 0;
    double width = 1;
    QString text;
    int generation = 0;
    int horizontal = 0;
    int vertical = 0;
    quint64 style = 0;
};

Line readFull(DwgRecord& record)
{
    BitReader& data = record.data;
    Line line;
    line.elevation = data.bitDouble();
    for (double& coordinate : line.at)
        coordinate = data.rawDouble();
    for (double& coordinate : line.aligned)
        coordinate = data.rawDouble();
    record.point(line.normal);
    line.thickness = data.bitDouble();
    line.oblique = data.bitDouble();
    line.angle = data.bitDouble();
    line.height = data.bitDouble();
    line.width = data.bitDouble();
    line.text = record.text();
    line.generation = data.bitShort();
    line.horizontal = data.bitShort();
    line.vertical = data.bitShort();
    return line;
}

/// Since version 2000 a byte ahead tells what has its usual value and is left out.
Line readCompact(DwgRecord& record)
{
    BitReader& data = record.data;
    Line line;
    const int usual = data.rawChar();
    const auto has = [usual](int bit) { return (usual & 1 << bit) == 0; };
    line.elevation = has(0) ? data.rawDouble() : 0;
    for (double& coordinate : line.at)
        coordinate = data.rawDouble();
    for (int axis = 0; axis < 2; ++axis)
        line.aligned[axis] = has(1) ? data.bitDouble(line.at[axis]) : 0;
    data.extrusion(true, line.normal);
    line.thickness = data.thickness(true);
    line.oblique = has(2) ? data.rawDouble() : 0;
    line.angle = has(3) ? data.rawDouble() : 0;
    line.height = data.rawDouble();
    line.width = has(4) ? data.rawDouble() : 1;
    line.text = record.text();
    line.generation = has(5) ? data.bitShort() : 0;
    line.horizontal = has(6) ? data.bitShort() : 0;
    line.vertical = has(7) ? data.bitShort() : 0;
    return line;
}

Line readLine(DwgRecord& record)
{
    Line line = record.since(DrawingVersion::V2000) ? readCompact(record) : readFull(record);
    line.style = record.reference();
    return line;
}

void putLine(const GroupContext& context, const Line& line)
{
    GroupSink& out = context.out;
    out.mark(100, "AcDbText");
    if (line.thickness != 0)
        out.real(39, line.thickness);
    out.point(10, {line.at[0], line.at[1], line.elevation});
    out.real(40, line.height);
    out.text(1, line.text);
    if (line.angle != 0)
        out.real(50, line.angle * Carry::kRadiansToDegrees);
    if (line.width != 1)
        out.real(41, line.width);
    if (line.oblique != 0)
        out.real(51, line.oblique * Carry::kRadiansToDegrees);
    out.name(7, line.style);
    if (line.generation != 0)
        out.integer(71, line.generation);
    if (line.horizontal != 0)
        out.integer(72, line.horizontal);
    if (line.horizontal != 0 || line.vertical != 0)
        out.point(11, {line.aligned[0], line.aligned[1], line.elevation});
    Carry::putNormal(out, line.normal);
}

/// `verticalCode`: the group of the vertical setting, which attributes have elsewhere.
void putVertical(const GroupContext& context, const Line& line, int verticalCode)
{
    if (line.vertical != 0)
        context.out.integer(verticalCode, line.vertical);
}

/// What attributes and their definitions have behind their line of text.
struct Attribute
{
    QString tag;
    int fieldLength = 0;
    int flags = 0;
    bool lockedPlace = false;
};

/// Since version 2018 a text of several lines stands within its attribute, whose own text has them
/// in one.
void skipLines(const GroupContext& context)
{
    constexpr int kOneLine = 1;
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    if (data.rawChar() <= kOneLine)
        return;
    DwgHead head;
    DwgEntityHead entity;
    GroupSink ignored;
    record.readProperties(head, entity);
    MTextParts::decode({record, head, entity, context.names, ignored});
    if (const auto scales = static_cast<quint16>(data.bitShort()); scales != 0) {
        data.skip(quint64(scales) * 8);
        record.reference(); // application
        data.bitShort();
    }
}

Attribute readAttribute(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    Attribute attribute;
    if (record.since(DrawingVersion::V2010))
        data.rawChar(); // version
    if (record.since(DrawingVersion::V2018))
        skipLines(context);
    attribute.tag = record.text();
    attribute.fieldLength = data.bitShort();
    attribute.flags = data.rawChar();
    attribute.lockedPlace = record.since(DrawingVersion::V2007) && data.bit();
    return attribute;
}

void putAttribute(GroupSink& out, const Attribute& attribute)
{
    out.text(2, attribute.tag);
    out.integer(70, attribute.flags);
    if (attribute.fieldLength != 0)
        out.integer(73, attribute.fieldLength);
    if (attribute.lockedPlace)
        out.integer(280, 1);
}

} // namespace

void decodeText(const GroupContext& context)
{
    const Line line = readLine(context.record);
    putLine(context, line);
    context.out.mark(100, "AcDbText");
    putVertical(context, line, 73);
}

void decodeAttrib(const GroupContext& context)
{
    const Line line = readLine(context.record);
    const Attribute attribute = readAttribute(context);
    putLine(context, line);
    context.out.mark(100, "AcDbAttribute");
    putAttribute(context.out, attribute);
    putVertical(context, line, 74);
}

void decodeAttdef(const GroupContext& context)
{
    DwgRecord& record = context.record;
    const Line line = readLine(record);
    const Attribute attribute = readAttribute(context);
    if (record.since(DrawingVersion::V2010))
        record.data.rawChar(); // version
    putLine(context, line);
    context.out.mark(100, "AcDbAttributeDefinition");
    Carry::text(context, 3);
    putAttribute(context.out, attribute);
    putVertical(context, line, 74);
}

void decodeTolerance(const GroupContext& context)
{
    DwgRecord& record = context.record;
    double normal[3];
    double direction[3];
    if (!record.since(DrawingVersion::V2000)) {
        record.data.bitShort();
        record.data.bitDouble(); // height
        record.data.bitDouble(); // gap
    }
    context.out.mark(100, "AcDbFcf");
    Carry::point(context, 10);
    record.point(direction);
    record.point(normal);
    Carry::text(context, 1);
    Carry::name(context, 3);
    Carry::putNormal(context.out, normal);
    context.out.point(11, direction);
}

void decodeShape(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    out.mark(100, "AcDbShape");
    Carry::point(context, 10);
    Carry::real(context, 40);
    Carry::angle(context, 50);
    Carry::real(context, 41);
    Carry::angle(context, 51);
    const double thickness = data.bitDouble();
    if (thickness != 0)
        out.real(39, thickness);
    data.bitShort(); // which shape of the file
    record.reference(); // the file
    Carry::normal(context);
}
