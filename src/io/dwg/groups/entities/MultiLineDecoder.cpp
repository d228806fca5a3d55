#include "io/dwg/groups/entities/Carry.h"
#include "io/dwg/groups/entities/EntityDecoders.h"

namespace {

/// A counted list: the count as a short number, then that many distances.
void distances(const GroupContext& context, int countCode, int code)
{
    const int count = Carry::integer(context, countCode);
    for (int i = 0; i < count && !context.record.data.hasFailed(); ++i)
        Carry::real(context, code);
}

} // namespace

void decodeMultiLine(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    double base[3];
    double normal[3];
    const quint64 style = record.reference();
    const double scale = data.bitDouble();
    const int justification = data.rawChar();
    record.point(base);
    record.point(normal);
    const int flags = data.bitShort();
    const int elements = data.rawChar();
    const int vertices = data.bitShort();
    out.mark(100, "AcDbMline");
    out.handle(340, style);
    out.real(40, scale);
    out.integer(70, justification);
    out.integer(71, flags);
    out.integer(72, vertices);
    out.integer(73, elements);
    out.point(10, base);
    Carry::putNormal(out, normal);
    for (int vertex = 0; vertex < vertices && !data.hasFailed(); ++vertex) {
        for (int code = 11; code <= 13; ++code)
            Carry::point(context, code);
        for (int element = 0; element < elements && !data.hasFailed(); ++element) {
            distances(context, 74, 41);
            distances(context, 75, 42);
        }
    }
}
