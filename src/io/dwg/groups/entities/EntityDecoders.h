#pragma once

#include "io/dwg/groups/GroupContext.h"

/// Turns the own part of one type of entity into groups.
using EntityDecoder = void (*)(const GroupContext&);

// Lines and curves
void decodeLine(const GroupContext& context);
void decodeCircle(const GroupContext& context);
void decodeArc(const GroupContext& context);
void decodePoint(const GroupContext& context);
void decodeEllipse(const GroupContext& context);
void decodeRay(const GroupContext& context);
void decodeXLine(const GroupContext& context);
void decodeSpline(const GroupContext& context);

// Polylines and their vertices
void decodeLwPolyline(const GroupContext& context);
void decodePolyline2d(const GroupContext& context);
void decodePolyline3d(const GroupContext& context);
void decodePolylineMesh(const GroupContext& context);
void decodePolylineFaces(const GroupContext& context);
void decodeVertex2d(const GroupContext& context);
void decodeVertex3d(const GroupContext& context);
void decodeVertexMesh(const GroupContext& context);
void decodeVertexFaces(const GroupContext& context);
void decodeVertexFace(const GroupContext& context);
void decodeMultiLine(const GroupContext& context);

// Areas
void decodeSolid(const GroupContext& context);
void decodeFace3d(const GroupContext& context);
void decodeHatch(const GroupContext& context);
void decodeImage(const GroupContext& context);
void decodeWipeout(const GroupContext& context);

// Texts and what leads to them
void decodeText(const GroupContext& context);
void decodeAttrib(const GroupContext& context);
void decodeAttdef(const GroupContext& context);
void decodeMText(const GroupContext& context);
void decodeTolerance(const GroupContext& context);
void decodeShape(const GroupContext& context);
void decodeLeader(const GroupContext& context);
void decodeMultiLeader(const GroupContext& context);

// What a block draws
void decodeInsert(const GroupContext& context);
void decodeMInsert(const GroupContext& context);
void decodeTable(const GroupContext& context);
void decodeDimOrdinate(const GroupContext& context);
void decodeDimLinear(const GroupContext& context);
void decodeDimAligned(const GroupContext& context);
void decodeDimAngle3Point(const GroupContext& context);
void decodeDimAngle2Line(const GroupContext& context);
void decodeDimRadius(const GroupContext& context);
void decodeDimDiameter(const GroupContext& context);
void decodeDimArc(const GroupContext& context);
void decodeDimLargeRadius(const GroupContext& context);

// Sheets
void decodeViewport(const GroupContext& context);
