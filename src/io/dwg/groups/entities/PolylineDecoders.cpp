#include "io/dwg/groups/entities/Carry.h"
#include "io/dwg/groups/entities/EntityDecoders.h"
#include "io/dwg/groups/entities/LeastBits.h"

namespace {

// Flags as groups 70 have them.
enum PolylineFlag {
    kClosed = 1,
    kCurveFit = 2,
    kSplineFit = 4,
    kInSpace = 8,
    kMesh = 16,
    kFaces = 64,
    kLinetypeRunsOn = 128,
};
enum VertexFlag { kInSpaceVertex = 32, kMeshVertex = 64, kFaceRecord = 128 };

void head(const GroupContext& context, const char* mark, double elevation)
{
    const double at[3] = {0, 0, elevation};
    context.out.mark(100, mark);
    context.out.integer(66, 1);
    context.out.point(10, at);
}

/// The handles of the vertices, which are records behind this one: their number since version 2004,
/// before the first and the last; then the end of them.
void skipParts(DwgRecord& record)
{
    const quint32 handles =
        record.since(DrawingVersion::V2004) ? record.count(LeastBits::kHandle) : 2;
    for (quint32 i = 0; i <= handles && !record.hasFailed(); ++i)
        record.reference();
}

void vertex(const GroupContext& context, const char* mark, int flag)
{
    const int flags = context.record.data.rawChar();
    context.out.mark(100, "AcDbVertex");
    context.out.mark(100, mark);
    Carry::point(context, 10);
    context.out.integer(70, flags | flag);
}

} // namespace

void decodePolyline2d(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    const bool compact = record.since(DrawingVersion::V2000);
    double normal[3];
    const int flags = data.bitShort();
    const int smoothing = data.bitShort();
    const double startWidth = data.bitDouble();
    const double endWidth = data.bitDouble();
    const double thickness = data.thickness(compact);
    const double elevation = data.bitDouble();
    data.extrusion(compact, normal);
    head(context, "AcDb2dPolyline", elevation);
    if (thickness != 0)
        context.out.real(39, thickness);
    context.out.integer(70, flags);
    context.out.real(40, startWidth);
    context.out.real(41, endWidth);
    context.out.integer(75, smoothing);
    Carry::putNormal(context.out, normal);
    skipParts(record);
}

void decodePolyline3d(const GroupContext& context)
{
    // How it is smoothed stands here as a bit each, in groups as a number.
    constexpr int kQuadratic = 5;
    constexpr int kCubic = 6;
    BitReader& data = context.record.data;
    const int smoothing = data.rawChar();
    const int flags = data.rawChar();
    const bool isQuadratic = (smoothing & 1) != 0;
    const bool isCubic = (smoothing & 2) != 0;
    head(context, "AcDb3dPolyline", 0);
    context.out.integer(70,
                        kInSpace | (flags & kClosed) | (isQuadratic || isCubic ? kSplineFit : 0));
    context.out.integer(75, isQuadratic ? kQuadratic : isCubic ? kCubic : 0);
    skipParts(context.record);
}

void decodePolylineMesh(const GroupContext& context)
{
    BitReader& data = context.record.data;
    const int flags = data.bitShort();
    const int smoothing = data.bitShort();
    head(context, "AcDbPolygonMesh", 0);
    context.out.integer(70, flags | kMesh);
    for (int code = 71; code <= 74; ++code)
        Carry::integer(context, code);
    context.out.integer(75, smoothing);
    skipParts(context.record);
}

void decodePolylineFaces(const GroupContext& context)
{
    head(context, "AcDbPolyFaceMesh", 0);
    context.out.integer(70, kFaces);
    Carry::integer(context, 71);
    Carry::integer(context, 72);
    skipParts(context.record);
}

void decodeVertex2d(const GroupContext& context)
{
    DwgRecord& record = context.record;
    BitReader& data = record.data;
    const int flags = data.rawChar();
    context.out.mark(100, "AcDbVertex");
    context.out.mark(100, "AcDb2dVertex");
    Carry::point(context, 10);
    // A negative width is that of both ends.
    const double startWidth = data.bitDouble();
    const double endWidth = startWidth < 0 ? -startWidth : data.bitDouble();
    context.out.real(40, startWidth < 0 ? -startWidth : startWidth);
    context.out.real(41, endWidth);
    Carry::real(context, 42);
    if (record.since(DrawingVersion::V2010))
        context.out.integer(91, data.bitLong());
    context.out.integer(70, flags);
    Carry::angle(context, 50);
}

void decodeVertex3d(const GroupContext& context)
{
    vertex(context, "AcDb3dPolylineVertex", kInSpaceVertex);
}

void decodeVertexMesh(const GroupContext& context)
{
    vertex(context, "AcDbPolygonMeshVertex", kMeshVertex);
}

void decodeVertexFaces(const GroupContext& context)
{
    vertex(context, "AcDbPolyFaceMeshVertex", kMeshVertex | kFaceRecord);
}

void decodeVertexFace(const GroupContext& context)
{
    constexpr double kNowhere[3] = {0, 0, 0};
    context.out.mark(100, "AcDbFaceRecord");
    context.out.point(10, kNowhere);
    context.out.integer(70, kFaceRecord);
    for (int code = 71; code <= 74; ++code)
        Carry::integer(context, code);
}
