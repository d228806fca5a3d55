#include "io/dwg/groups/entities/Carry.h"
#include "io/dwg/groups/entities/EntityDecoders.h"

#include <initializer_list>

namespace {

/// Types as group 70 has them.
enum Type {
    kLinear,
    kAligned,
    kAngle2Line,
    kDiameter,
    kRadius,
    kAngle3Point,
    kOrdinate,
    kLargeRadius,
    kArc = kAngle3Point,
};

struct Head
{
    double normal[3];
    double textAt[3];
    int flags = 0;
    QString text;
    double textAngle = 0;
    double direction = 0;
    int attachment = 0;
    int spacing = 0;
    double spacingFactor = 1;
    double measured = 0;
    double at[2]; ///< where it was inserted, for copies
};

Head readHead(DwgRecord& record)
{
    BitReader& data = record.data;
    Head head;
    if (record.since(DrawingVersion::V2010))
        data.rawChar(); // version
    record.point(head.normal);
    head.textAt[0] = data.rawDouble();
    head.textAt[1] = data.rawDouble();
    head.textAt[2] = data.bitDouble();
    head.flags = data.rawChar();
    head.text = record.text();
    head.textAngle = data.bitDouble();
    head.direction = data.bitDouble();
    for (int i = 0; i < 4; ++i)
        data.bitDouble(); // scale and angle of the block
    if (record.since(DrawingVersion::V2000)) {
        head.attachment = data.bitShort();
        head.spacing = data.bitShort();
        head.spacingFactor = data.bitDouble();
        head.measured = data.bitDouble();
    }
    if (record.since(DrawingVersion::V2007)) {
        data.bit();
        data.bit(); // which arrows are turned round
        data.bit();
    }
    for (double& coordinate : head.at)
        coordinate = data.rawDouble();
    return head;
}

/// The first part of the groups; `own`: bits of group 70 that the type has beside its number.
void putHead(const GroupContext& context, const Head& head, int type, int own = 0)
{
    // The first bit stands for the opposite here.
    constexpr int kTextAtHome = 1;
    constexpr int kBlockOfItsOwn = 2;
    constexpr int kTextMoved = 128;
    constexpr int kOwnBlock = 32;
    DwgRecord& record = context.record;
    GroupSink& out = context.out;
    const quint64 style = record.reference();
    const quint64 block = record.reference();
    out.mark(100, "AcDbDimension");
    out.name(2, block);
    out.point(11, head.textAt);
    out.integer(70,
                type | own | ((head.flags & kTextAtHome) == 0 ? kTextMoved : 0)
                    | ((head.flags & kBlockOfItsOwn) != 0 ? kOwnBlock : 0));
    if (record.since(DrawingVersion::V2000)) {
        out.integer(71, head.attachment);
        out.integer(72, head.spacing);
        out.real(41, head.spacingFactor);
        out.real(42, head.measured);
    }
    if (!head.text.isEmpty())
        out.text(1, head.text);
    if (head.textAngle != 0)
        out.real(53, head.textAngle * Carry::kRadiansToDegrees);
    if (head.direction != 0)
        out.real(51, head.direction * Carry::kRadiansToDegrees);
    Carry::putNormal(out, head.normal);
    out.name(3, style);
}

void points(const GroupContext& context, std::initializer_list<int> codes)
{
    for (const int code : codes)
        Carry::point(context, code);
}

} // namespace

void decodeDimOrdinate(const GroupContext& context)
{
    constexpr int kAlongX = 64;
    DwgRecord& record = context.record;
    double at[3][3];
    const Head head = readHead(record);
    for (double(&point)[3] : at)
        record.point(point);
    const bool alongX = (record.data.rawChar() & 1) != 0;
    putHead(context, head, kOrdinate, alongX ? kAlongX : 0);
    context.out.mark(100, "AcDbOrdinateDimension");
    context.out.point(10, at[0]);
    context.out.point(13, at[1]);
    context.out.point(14, at[2]);
}

void decodeDimLinear(const GroupContext& context)
{
    putHead(context, readHead(context.record), kLinear);
    context.out.mark(100, "AcDbAlignedDimension");
    points(context, {13, 14, 10});
    Carry::angle(context, 52);
    Carry::angle(context, 50);
    context.out.mark(100, "AcDbRotatedDimension");
}

void decodeDimAligned(const GroupContext& context)
{
    putHead(context, readHead(context.record), kAligned);
    context.out.mark(100, "AcDbAlignedDimension");
    points(context, {13, 14, 10});
    Carry::angle(context, 52);
}

void decodeDimAngle3Point(const GroupContext& context)
{
    putHead(context, readHead(context.record), kAngle3Point);
    context.out.mark(100, "AcDb3PointAngularDimension");
    points(context, {10, 13, 14, 15});
}

void decodeDimAngle2Line(const GroupContext& context)
{
    putHead(context, readHead(context.record), kAngle2Line);
    context.out.mark(100, "AcDb2LineAngularDimension");
    Carry::rawPoint(context, 16);
    points(context, {13, 14, 15, 10});
}

void decodeDimRadius(const GroupContext& context)
{
    putHead(context, readHead(context.record), kRadius);
    context.out.mark(100, "AcDbRadialDimension");
    points(context, {10, 15});
    Carry::real(context, 40);
}

void decodeDimDiameter(const GroupContext& context)
{
    putHead(context, readHead(context.record), kDiameter);
    context.out.mark(100, "AcDbDiametricDimension");
    points(context, {15, 10});
    Carry::real(context, 40);
}

void decodeDimArc(const GroupContext& context)
{
    putHead(context, readHead(context.record), kArc);
    context.out.mark(100, "AcDbArcDimension");
    points(context, {10, 13, 14, 15});
    Carry::flag(context, 70);
    Carry::real(context, 40);
    Carry::real(context, 41);
    Carry::flag(context, 71);
    points(context, {16, 17});
}

void decodeDimLargeRadius(const GroupContext& context)
{
    putHead(context, readHead(context.record), kLargeRadius);
    context.out.mark(100, "AcDbRadialDimensionLarge");
    points(context, {10, 15});
    Carry::real(context, 40);
    points(context, {13, 14});
    Carry::angle(context, 50);
}
