#include "io/dwg/groups/RecordGroups.h"
#include "io/dwg/groups/entities/EntityDecoders.h"
#include "io/dwg/records/DwgTypes.h"

#include <array>

namespace {

struct FixedEntry
{
    quint16 type;
    EntityDecoder decode;
};
constexpr FixedEntry kOfTypes[] = {
    {DwgType::Text, decodeText},
    {DwgType::Attrib, decodeAttrib},
    {DwgType::Attdef, decodeAttdef},
    {DwgType::Insert, decodeInsert},
    {DwgType::MInsert, decodeMInsert},
    {DwgType::Vertex2d, decodeVertex2d},
    {DwgType::Vertex3d, decodeVertex3d},
    {DwgType::VertexMesh, decodeVertexMesh},
    {DwgType::VertexFaces, decodeVertexFaces},
    {DwgType::VertexFace, decodeVertexFace},
    {DwgType::Polyline2d, decodePolyline2d},
    {DwgType::Polyline3d, decodePolyline3d},
    {DwgType::Arc, decodeArc},
    {DwgType::Circle, decodeCircle},
    {DwgType::Line, decodeLine},
    {DwgType::DimOrdinate, decodeDimOrdinate},
    {DwgType::DimLinear, decodeDimLinear},
    {DwgType::DimAligned, decodeDimAligned},
    {DwgType::DimAngle3Point, decodeDimAngle3Point},
    {DwgType::DimAngle2Line, decodeDimAngle2Line},
    {DwgType::DimRadius, decodeDimRadius},
    {DwgType::DimDiameter, decodeDimDiameter},
    {DwgType::Point, decodePoint},
    {DwgType::Face3d, decodeFace3d},
    {DwgType::PolylineFaces, decodePolylineFaces},
    {DwgType::PolylineMesh, decodePolylineMesh},
    {DwgType::Solid, decodeSolid},
    {DwgType::Trace, decodeSolid},
    {DwgType::Shape, decodeShape},
    {DwgType::Viewport, decodeViewport},
    {DwgType::Ellipse, decodeEllipse},
    {DwgType::Spline, decodeSpline},
    {DwgType::Ray, decodeRay},
    {DwgType::XLine, decodeXLine},
    {DwgType::MText, decodeMText},
    {DwgType::Leader, decodeLeader},
    {DwgType::Tolerance, decodeTolerance},
    {DwgType::MLine, decodeMultiLine},
    {DwgType::LwPolyline, decodeLwPolyline},
    {DwgType::Hatch, decodeHatch},
};

constexpr std::size_t kFixedTypes = 0x53;
constexpr auto kByType = [] {
    std::array<EntityDecoder, kFixedTypes> decoders{};
    for (const FixedEntry& entry : kOfTypes)
        decoders[entry.type] = entry.decode;
    return decoders;
}();

struct NamedEntry
{
    const char* name;
    EntityDecoder decode;
};
/// Types that some versions have as classes.
constexpr NamedEntry kOfClasses[] = {
    {"LWPOLYLINE", decodeLwPolyline},
    {"HATCH", decodeHatch},
    {"IMAGE", decodeImage},
    {"WIPEOUT", decodeWipeout},
    {"MULTILEADER", decodeMultiLeader},
    {"MLEADER", decodeMultiLeader},
    {"ACAD_TABLE", decodeTable},
    {"ARC_DIMENSION", decodeDimArc},
    {"LARGE_RADIAL_DIMENSION", decodeDimLargeRadius},
};

} // namespace

void RecordGroups::entity(const GroupContext& context, QByteArrayView name)
{
    const quint16 type = context.record.type();
    if (type < kByType.size()) {
        if (kByType[type])
            kByType[type](context);
        return;
    }
    for (const NamedEntry& entry : kOfClasses) {
        if (name == entry.name)
            return entry.decode(context);
    }
}
