#include "io/dwg/groups/entities/Carry.h"
#include "io/dwg/groups/entities/EntityDecoders.h"
#include "io/dwg/groups/entities/LeastBits.h"

#include <vector>

namespace {

enum PathFlag { kPolyline = 2, kDerived = 4 };
enum Edge { kLineEdge = 1, kArcEdge = 2, kEllipseEdge = 3, kSplineEdge = 4 };

// The shortest of what is counted, in bits.
constexpr quint64 kLeastPath = 6;
constexpr quint64 kLeastEdge = 8;
constexpr quint64 kRawPoint = 128;

struct Gradient
{
    struct Stop
    {
        double at;
        OdCmColor color;
    };
    bool isOne = false;
    int reserved = 0;
    double angle = 0;
    double shift = 0;
    int oneColor = 0;
    double tint = 0;
    std::vector<Stop> stops;
    QString name;
};

Gradient readGradient(DwgRecord& record)
{
    BitReader& data = record.data;
    Gradient gradient;
    gradient.isOne = data.bitLong() != 0;
    gradient.reserved = data.bitLong();
    gradient.angle = data.bitDouble();
    gradient.shift = data.bitDouble();
    gradient.oneColor = data.bitLong();
    gradient.tint = data.bitDouble();
    const quint32 stops = record.count(LeastBits::kReal);
    for (quint32 i = 0; i < stops && !record.hasFailed(); ++i) {
        const double at = data.bitDouble();
        gradient.stops.push_back({at, record.color()});
    }
    gradient.name = record.text();
    return gradient;
}

void putGradient(GroupSink& out, const Gradient& gradient)
{
    out.integer(450, 1);
    out.integer(451, gradient.reserved);
    out.real(460, gradient.angle);
    out.real(461, gradient.shift);
    out.integer(452, gradient.oneColor);
    out.real(462, gradient.tint);
    out.integer(453, static_cast<qint64>(gradient.stops.size()));
    for (const Gradient::Stop& stop : gradient.stops) {
        out.real(463, stop.at);
        out.integer(63, stop.color.colorIndex());
        if (stop.color.colorMethod() == OdCmColor::kByColor)
            out.integer(421, stop.color.color() & 0xFFFFFF);
    }
    out.text(470, gradient.name);
}

void polylinePath(const GroupContext& context)
{
    DwgRecord& record = context.record;
    const bool bulges = Carry::flag(context, 72);
    Carry::flag(context, 73);
    const quint32 points = record.count(kRawPoint);
    context.out.integer(93, points);
    for (quint32 i = 0; i < points && !record.data.hasFailed(); ++i) {
        Carry::rawPoint(context, 10);
        if (bulges)
            Carry::real(context, 42);
    }
}

void arcEdge(const GroupContext& context, bool isEllipse)
{
    Carry::rawPoint(context, 10);
    if (isEllipse)
        Carry::rawPoint(context, 11);
    Carry::real(context, 40);
    Carry::angle(context, 50);
    Carry::angle(context, 51);
    Carry::flag(context, 73);
}

void splineEdge(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    out.integer(94, data.bitLong());
    const bool rational = Carry::flag(context, 73);
    Carry::flag(context, 74);
    const quint32 knots = record.count(LeastBits::kReal);
    const quint32 points = record.count(kRawPoint);
    out.integer(95, knots);
    out.integer(96, points);
    for (quint32 i = 0; i < knots && !data.hasFailed(); ++i)
        Carry::real(context, 40);
    for (quint32 i = 0; i < points && !data.hasFailed(); ++i) {
        Carry::rawPoint(context, 10);
        if (rational)
            Carry::real(context, 42);
    }
    if (!record.since(DrawingVersion::V2010))
        return;
    const quint32 fitPoints = record.count(kRawPoint);
    out.integer(97, fitPoints);
    for (quint32 i = 0; i < fitPoints && !data.hasFailed(); ++i)
        Carry::rawPoint(context, 11);
    if (fitPoints > 0) {
        Carry::rawPoint(context, 12);
        Carry::rawPoint(context, 13);
    }
}

void edgePath(const GroupContext& context)
{
    DwgRecord& record = context.record;
    const quint32 edges = record.count(kLeastEdge);
    context.out.integer(93, edges);
    for (quint32 i = 0; i < edges && !record.data.hasFailed(); ++i) {
        const int kind = record.data.rawChar();
        context.out.integer(72, kind);
        switch (kind) {
        case kLineEdge:
            Carry::rawPoint(context, 10);
            Carry::rawPoint(context, 11);
            break;
        case kArcEdge:
        case kEllipseEdge:
            arcEdge(context, kind == kEllipseEdge);
            break;
        case kSplineEdge:
            splineEdge(context);
            break;
        default:
            record.data.fail();
            break;
        }
    }
}

/// True where the path was found by the program, in an area that was pointed at.
bool path(const GroupContext& context)
{
    DwgRecord& record = context.record;
    const int flags = record.data.bitLong();
    context.out.integer(92, flags);
    if ((flags & kPolyline) != 0)
        polylinePath(context);
    else
        edgePath(context);
    const quint32 sources = record.count(LeastBits::kHandle);
    context.out.integer(97, sources);
    for (quint32 i = 0; i < sources && !record.hasFailed(); ++i)
        context.out.handle(330, record.reference());
    return (flags & kDerived) != 0;
}

void pattern(const GroupContext& context)
{
    BitReader& data = context.record.data;
    Carry::angle(context, 52);
    Carry::real(context, 41);
    Carry::flag(context, 77);
    const int lines = Carry::integer(context, 78);
    for (int line = 0; line < lines && !data.hasFailed(); ++line) {
        Carry::angle(context, 53);
        for (int code = 43; code <= 46; ++code)
            Carry::real(context, code);
        const int dashes = Carry::integer(context, 79);
        for (int dash = 0; dash < dashes && !data.hasFailed(); ++dash)
            Carry::real(context, 49);
    }
}

} // namespace

void decodeHatch(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    const bool hasGradient = record.since(DrawingVersion::V2004);
    const Gradient gradient = hasGradient ? readGradient(record) : Gradient();
    double at[3] = {0, 0, 0};
    double normal[3];
    at[2] = data.bitDouble();
    record.point(normal);
    out.mark(100, "AcDbHatch");
    out.point(10, at);
    out.point(210, normal);
    Carry::text(context, 2);
    const bool solid = Carry::flag(context, 70);
    Carry::flag(context, 71);
    const quint32 paths = record.count(kLeastPath);
    out.integer(91, paths);
    bool isDerived = false;
    for (quint32 i = 0; i < paths && !record.hasFailed(); ++i)
        isDerived |= path(context);
    Carry::integer(context, 75);
    Carry::integer(context, 76);
    if (!solid)
        pattern(context);
    if (isDerived)
        Carry::real(context, 47);
    const quint32 seeds = record.count(kRawPoint);
    out.integer(98, seeds);
    for (quint32 i = 0; i < seeds && !data.hasFailed(); ++i)
        Carry::rawPoint(context, 10);
    if (gradient.isOne)
        putGradient(out, gradient);
}
