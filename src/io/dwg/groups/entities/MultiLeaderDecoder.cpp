#include "io/dwg/groups/entities/Carry.h"
#include "io/dwg/groups/entities/EntityDecoders.h"
#include "io/dwg/groups/entities/LeastBits.h"

#include <initializer_list>

namespace {

// The shortest of what is counted, in bits.
constexpr quint64 kLeastLeader = 20;
constexpr quint64 kLeastLine = 6;
constexpr quint64 kLeastLabel = 4;

void points(const GroupContext& context, quint32 count, std::initializer_list<int> codes)
{
    for (quint32 i = 0; i < count && !context.record.data.hasFailed(); ++i) {
        for (const int code : codes)
            Carry::point(context, code);
    }
}

/// What a line has other than its multileader: all stand there, groups have those that count.
void overrides(const GroupContext& context)
{
    enum Override { kPath = 1, kLinetype = 4, kLineWeight = 8, kArrowSize = 16, kArrow = 32 };
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    const int path = data.bitShort();
    record.color();
    const quint64 linetype = record.reference();
    const int lineWeight = data.bitLong();
    const double arrowSize = data.bitDouble();
    const quint64 arrow = record.reference();
    const int which = data.bitLong();
    if ((which & kPath) != 0)
        out.integer(170, path);
    if ((which & kLinetype) != 0)
        out.handle(340, linetype);
    if ((which & kLineWeight) != 0)
        out.integer(171, lineWeight);
    if ((which & kArrowSize) != 0)
        out.real(40, arrowSize);
    if ((which & kArrow) != 0)
        out.handle(341, arrow);
    out.integer(93, which);
}

void line(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    out.mark(304, "LEADER_LINE{");
    points(context, record.count(LeastBits::kPoint), {10});
    if (data.bitLong() > 0) { // has gaps
        out.integer(90, data.bitLong());
        points(context, record.count(2 * LeastBits::kPoint), {11, 12});
    }
    out.integer(91, data.bitLong());
    if (record.since(DrawingVersion::V2010))
        overrides(context);
    out.mark(305, "}");
}

void leader(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    out.mark(302, "LEADER{");
    Carry::flag(context, 290);
    Carry::flag(context, 291);
    Carry::point(context, 10);
    Carry::point(context, 11);
    points(context, record.count(2 * LeastBits::kPoint), {12, 13});
    out.integer(90, data.bitLong());
    Carry::real(context, 40);
    const quint32 lines = record.count(kLeastLine);
    for (quint32 i = 0; i < lines && !record.hasFailed(); ++i)
        line(context);
    if (record.since(DrawingVersion::V2010))
        Carry::integer(context, 271);
    out.mark(303, "}");
}

void leaders(const GroupContext& context)
{
    const quint32 count = context.record.count(kLeastLeader);
    for (quint32 i = 0; i < count && !context.record.hasFailed(); ++i)
        leader(context);
}

void text(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    Carry::text(context, 304);
    Carry::point(context, 11);
    context.out.handle(340, record.reference());
    Carry::point(context, 12);
    Carry::point(context, 13);
    for (int code = 42; code <= 45; ++code)
        Carry::real(context, code);
    Carry::integer(context, 170);
    record.color();
    Carry::integer(context, 171);
    Carry::integer(context, 172);
    record.color(); // of the background
    Carry::real(context, 141);
    context.out.integer(92, data.bitLong());
    Carry::flag(context, 291);
    Carry::flag(context, 292);
    Carry::integer(context, 173);
    Carry::flag(context, 293);
    Carry::real(context, 142);
    Carry::real(context, 143);
    Carry::flag(context, 294);
    const quint32 columns = record.count(LeastBits::kReal);
    for (quint32 i = 0; i < columns && !data.hasFailed(); ++i)
        Carry::real(context, 144);
    Carry::flag(context, 295);
    data.bit();
}

void block(const GroupContext& context)
{
    constexpr int kMatrix = 16;
    DwgRecord& record = context.record;
    context.out.handle(341, record.reference());
    for (int code = 14; code <= 16; ++code)
        Carry::point(context, code);
    Carry::real(context, 46);
    record.color();
    for (int i = 0; i < kMatrix; ++i)
        Carry::real(context, 47);
}

void contents(const GroupContext& context)
{
    Carry::real(context, 40);
    Carry::point(context, 10);
    Carry::real(context, 41);
    Carry::real(context, 140);
    Carry::real(context, 145);
    for (int code = 174; code <= 177; ++code)
        Carry::integer(context, code);
    const bool hasText = Carry::flag(context, 290);
    if (hasText)
        text(context);
    if (hasText)
        context.out.integer(296, 0);
    else if (Carry::flag(context, 296))
        block(context);
    for (int code = 110; code <= 112; ++code)
        Carry::point(context, code);
    Carry::flag(context, 297);
}

/// What the record says about itself behind its contents.
void settings(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    out.handle(340, record.reference());
    out.integer(90, data.bitLong());
    Carry::integer(context, 170);
    record.color();
    out.handle(341, record.reference());
    out.integer(171, data.bitLong());
    Carry::flag(context, 290);
    Carry::flag(context, 291);
    Carry::real(context, 41);
    out.handle(342, record.reference());
    Carry::real(context, 42);
    Carry::integer(context, 172);
    out.handle(343, record.reference());
    Carry::integer(context, 173);
    Carry::integer(context, 95);
    Carry::integer(context, 174);
    Carry::integer(context, 175);
    record.color();
    Carry::flag(context, 292);
    out.handle(344, record.reference());
    record.color();
    Carry::point(context, 10);
    Carry::real(context, 43);
    Carry::integer(context, 176);
    Carry::flag(context, 293);
}

void labels(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    if (!record.since(DrawingVersion::V2010)) {
        const quint32 arrows = record.count(kLeastLabel);
        for (quint32 i = 0; i < arrows && !record.hasFailed(); ++i) {
            out.integer(94, data.bit() ? 1 : 0);
            out.handle(345, record.reference());
        }
    }
    const quint32 count = record.count(kLeastLabel);
    for (quint32 i = 0; i < count && !record.hasFailed(); ++i) {
        out.handle(330, record.reference());
        Carry::text(context, 302);
        Carry::integer(context, 177);
        Carry::real(context, 44);
    }
}

} // namespace

void decodeMultiLeader(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    out.mark(100, "AcDbMLeader");
    if (record.since(DrawingVersion::V2010))
        Carry::integer(context, 270);
    out.mark(300, "CONTEXT_DATA{");
    // The leaders stand ahead of what they lead to, their groups behind it: a second reader comes
    // back for them.
    DwgRecord back = record;
    GroupSink ignored;
    leaders({record, context.head, context.entity, context.names, ignored});
    contents(context);
    leaders({back, context.head, context.entity, context.names, out});
    if (record.since(DrawingVersion::V2010)) {
        Carry::integer(context, 273);
        Carry::integer(context, 272);
    }
    out.mark(301, "}");
    settings(context);
    labels(context);
    Carry::flag(context, 294);
    Carry::integer(context, 178);
    Carry::integer(context, 179);
    Carry::real(context, 45);
    if (record.since(DrawingVersion::V2010)) {
        Carry::integer(context, 271);
        Carry::integer(context, 272);
        Carry::integer(context, 273);
    }
    if (record.since(DrawingVersion::V2013))
        out.integer(295, data.bit() ? 1 : 0);
}
