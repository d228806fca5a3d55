#pragma once

#include <QtGlobal>

class DwgRecord;

/// Numbers of types that the program tells apart by more than their name.
namespace DwgType {
enum : quint16 {
    Text = 1,
    Attrib = 2,
    Attdef = 3,
    Block = 4,
    EndBlock = 5,
    SeqEnd = 6,
    Insert = 7,
    MInsert = 8,
    Vertex2d = 10,
    Vertex3d = 11,
    VertexMesh = 12,
    VertexFaces = 13,
    VertexFace = 14,
    Polyline2d = 15,
    Polyline3d = 16,
    Arc = 17,
    Circle = 18,
    Line = 19,
    DimOrdinate = 20,
    DimLinear = 21,
    DimAligned = 22,
    DimAngle3Point = 23,
    DimAngle2Line = 24,
    DimRadius = 25,
    DimDiameter = 26,
    Point = 27,
    Face3d = 28,
    PolylineFaces = 29,
    PolylineMesh = 30,
    Solid = 31,
    Trace = 32,
    Shape = 33,
    Viewport = 34,
    Ellipse = 35,
    Spline = 36,
    Ray = 40,
    XLine = 41,
    Dictionary = 42,
    MText = 44,
    Leader = 45,
    Tolerance = 46,
    MLine = 47,
    BlockControl = 48,
    BlockHeader = 49,
    LayerControl = 50,
    Layer = 51,
    StyleControl = 52,
    Style = 53,
    LtypeControl = 56,
    Ltype = 57,
    ViewControl = 60,
    UcsControl = 62,
    VportControl = 64,
    AppIdControl = 66,
    AppId = 67,
    DimStyleControl = 68,
    LwPolyline = 77,
    Hatch = 78,
    Xrecord = 79,
};
} // namespace DwgType

/// The three scales of a block reference.
void readInsertScale(DwgRecord& record, double (&scale)[3]);
