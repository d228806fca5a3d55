#include "io/dwg/groups/entities/Carry.h"
#include "io/dwg/groups/entities/EntityDecoders.h"

#include <algorithm>
#include <iterator>

namespace {

void image(const GroupContext& context, const char* mark)
{
    constexpr int kRectangle = 1;
    constexpr quint64 kRawPoint = 128;
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    GroupSink& out = context.out;
    out.mark(100, mark);
    out.integer(90, data.bitLong());
    for (int code = 10; code <= 12; ++code)
        Carry::point(context, code);
    Carry::rawPoint(context, 13);
    out.handle(340, record.reference());
    Carry::integer(context, 70);
    Carry::flag(context, 280);
    for (int code = 281; code <= 283; ++code)
        out.integer(code, data.rawChar());
    const bool inside = record.since(DrawingVersion::V2010) && data.bit();
    out.handle(360, record.reference());
    const int form = Carry::integer(context, 71);
    const quint32 corners = form == kRectangle ? 2 : record.count(kRawPoint);
    // Groups repeat the first corner of a polygon at the end.
    const bool closes = form != kRectangle && corners > 0;
    out.integer(91, closes ? qint64(corners) + 1 : corners);
    double first[2] = {0, 0};
    double corner[2];
    for (quint32 i = 0; i < corners && !data.hasFailed(); ++i) {
        for (double& coordinate : corner)
            coordinate = data.rawDouble();
        if (i == 0)
            std::copy(std::begin(corner), std::end(corner), first);
        out.point(14, corner);
    }
    if (closes)
        out.point(14, first);
    if (record.since(DrawingVersion::V2010))
        out.integer(290, inside ? 1 : 0);
}

} // namespace

void decodeSolid(const GroupContext& context)
{
    BitReader& data = context.record.data;
    const bool compact = context.record.since(DrawingVersion::V2000);
    const double thickness = data.thickness(compact);
    const double elevation = data.bitDouble();
    context.out.mark(100, "AcDbTrace");
    for (int code = 10; code <= 13; ++code) {
        Carry::rawPoint(context, code);
        context.out.real(code + 20, elevation);
    }
    if (thickness != 0)
        context.out.real(39, thickness);
    Carry::normal(context, compact);
}

void decodeFace3d(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    double corners[4][3] = {};
    int hiddenEdges = 0;
    if (record.since(DrawingVersion::V2000)) {
        const bool allShown = data.bit();
        const bool flat = data.bit();
        for (int axis = 0; axis < (flat ? 2 : 3); ++axis)
            corners[0][axis] = data.rawDouble();
        for (int corner = 1; corner < 4; ++corner) {
            for (int axis = 0; axis < 3; ++axis)
                corners[corner][axis] = data.bitDouble(corners[corner - 1][axis]);
        }
        hiddenEdges = allShown ? 0 : data.bitShort();
    } else {
        for (double(&corner)[3] : corners)
            record.point(corner);
        hiddenEdges = data.bitShort();
    }
    context.out.mark(100, "AcDbFace");
    for (int corner = 0; corner < 4; ++corner)
        context.out.point(10 + corner, corners[corner]);
    if (hiddenEdges != 0)
        context.out.integer(70, hiddenEdges);
}

void decodeImage(const GroupContext& context)
{
    image(context, "AcDbRasterImage");
}

void decodeWipeout(const GroupContext& context)
{
    image(context, "AcDbWipeout");
}
