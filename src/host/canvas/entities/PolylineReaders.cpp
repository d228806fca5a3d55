#include "database/store/ObjectStore.h"
#include "host/canvas/entities/EntityReaders.h"
#include "host/canvas/entities/scope/FlatPolyline.h"
#include "host/canvas/geometry/NurbsCurve.h"

namespace {

enum PolylineFlag {
    kClosed = 1,
    k3d = 8,
    kMesh = 16,
    kMeshClosedN = 32,
    kPolyface = 64,
    kLinetypeRunsOn = 128,
};
enum VertexFlag { kFrameControlPoint = 16, kFaceVertex = 64, kFaceRecord = 128 };

struct FaceRecord
{
    std::array<int, 4> corners{}; ///< from 1; negative: the edge that starts here is invisible
};

/// The vertices of a POLYLINE, sorted by what they are.
struct Vertices
{
    std::vector<FlatPolyline::Vertex> flat;
    std::vector<Vec2> points;
    std::vector<FaceRecord> faces;
};

/// Reads the vertices into `result`; the scope's fields are those of the last vertex afterwards.
Vertices readVertices(EntityScope& scope)
{
    Vertices result;
    const double startWidth = scope.fields.real(40);
    const double endWidth = scope.fields.real(41);
    EntityFields& fields = scope.fields;
    const quint32 end = scope.subEntitiesEnd();
    for (quint32 slot = scope.slot + 1; slot < end; ++slot) {
        if (scope.store.type(slot) != RecordType::Vertex
            || scope.store.has(slot, ObjectStore::kErased)) {
            continue;
        }
        fields.read(scope.cursor, slot, false);
        const int flags = fields.integer(70);
        if ((flags & kFrameControlPoint) != 0)
            continue;
        if ((flags & kFaceRecord) != 0 && (flags & kFaceVertex) == 0) {
            result.faces.push_back(
                {{fields.integer(71), fields.integer(72), fields.integer(73), fields.integer(74)}});
            continue;
        }
        const Vec3 at = fields.point(10);
        result.points.push_back(at.plan());
        result.flat.push_back(
            {at.plan(), fields.real(42), fields.real(40, startWidth), fields.real(41, endWidth)});
    }
    return result;
}

void drawPolyface(GeometrySink& sink, const Vertices& vertices)
{
    const auto count = static_cast<int>(vertices.points.size());
    for (const FaceRecord& face : vertices.faces) {
        std::vector<int> corners;
        for (const int corner : face.corners) {
            if (corner != 0 && std::abs(corner) <= count)
                corners.push_back(corner);
        }
        for (std::size_t i = 0; corners.size() > 1 && i < corners.size(); ++i) {
            const int to = corners[(i + 1) % corners.size()];
            if (corners[i] > 0) {
                sink.line(vertices.points[static_cast<std::size_t>(corners[i] - 1)],
                          vertices.points[static_cast<std::size_t>(std::abs(to) - 1)]);
            }
        }
    }
}

/// A mesh of m by n vertices as wire; false when the counts do not fit.
bool drawMesh(GeometrySink& sink, const std::vector<Vec2>& points, int columns, int flags)
{
    if (columns < 2 || points.size() % static_cast<std::size_t>(columns) != 0)
        return false;
    const auto n = static_cast<std::size_t>(columns);
    const std::size_t m = points.size() / n;
    const bool closedM = (flags & kClosed) != 0;
    const bool closedN = (flags & kMeshClosedN) != 0;
    for (std::size_t i = 0; i < m; ++i) {
        for (std::size_t j = 0; j < n; ++j) {
            const Vec2 at = points[i * n + j];
            if (j + 1 < n || closedN)
                sink.line(at, points[i * n + (j + 1) % n]);
            if (i + 1 < m || closedM)
                sink.line(at, points[(i + 1) % m * n + j]);
        }
    }
    return m > 1;
}

} // namespace

bool readLwPolyline(EntityScope& scope)
{
    FlatPolyline line;
    line.ocs = scope.fields.ocs();
    line.elevation = scope.fields.real(38);
    line.isClosed = (scope.fields.integer(70) & kClosed) != 0;
    line.linetypeRunsOn = (scope.fields.integer(70) & kLinetypeRunsOn) != 0;
    const double width = scope.fields.real(43);
    for (const EntityFields::Group& group : scope.fields.groups()) {
        if (group.code == 10) {
            line.vertices.push_back({{group.value, 0}, 0, width, width});
            continue;
        }
        if (line.vertices.empty())
            continue;
        FlatPolyline::Vertex& vertex = line.vertices.back();
        if (group.code == 20)
            vertex.at.y = group.value;
        else if (group.code == 40)
            vertex.startWidth = group.value;
        else if (group.code == 41)
            vertex.endWidth = group.value;
        else if (group.code == 42)
            vertex.bulge = group.value;
    }
    line.draw(scope.sink);
    return !line.vertices.empty();
}

bool readPolyline(EntityScope& scope)
{
    const int flags = scope.fields.integer(70);
    FlatPolyline line;
    line.ocs = scope.fields.ocs();
    line.elevation = scope.fields.real(30);
    line.isClosed = (flags & kClosed) != 0;
    line.linetypeRunsOn = (flags & kLinetypeRunsOn) != 0;
    const int meshColumns = scope.fields.integer(72);
    constexpr int kSmoothed = 4;
    const int smoothColumns = scope.fields.integer(74);
    const bool isSmoothed = (flags & kSmoothed) != 0 && smoothColumns > 0;

    Vertices vertices = readVertices(scope);
    if (vertices.points.empty())
        return false;
    if ((flags & kPolyface) != 0) {
        drawPolyface(scope.sink, vertices);
        return !vertices.faces.empty();
    }
    if ((flags & kMesh) != 0) {
        return drawMesh(scope.sink, vertices.points, isSmoothed ? smoothColumns : meshColumns,
                        flags);
    }
    if ((flags & k3d) != 0) {
        if (line.linetypeRunsOn)
            scope.sink.path(vertices.points, line.isClosed);
        else
            scope.sink.polyline(vertices.points, line.isClosed);
        return true;
    }
    line.vertices = std::move(vertices.flat);
    line.draw(scope.sink);
    return true;
}
