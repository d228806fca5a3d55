#pragma once

#include "host/canvas/entities/scope/EntityScope.h"

#include <vector>

// Each reads one kind of entity; false when the entity cannot be drawn.

bool readLine(EntityScope& scope);
bool readPoint(EntityScope& scope);
bool readCircle(EntityScope& scope);
bool readArc(EntityScope& scope);
bool readEllipse(EntityScope& scope);
bool readSpline(EntityScope& scope);
bool readLeader(EntityScope& scope);
bool readMultiLine(EntityScope& scope);
bool readMultiLeader(EntityScope& scope);
bool readRay(EntityScope& scope);
bool readXLine(EntityScope& scope);

bool readLwPolyline(EntityScope& scope);
bool readPolyline(EntityScope& scope);

bool readSolid(EntityScope& scope);
bool readFace(EntityScope& scope);
bool readHatch(EntityScope& scope);
bool readImageFrame(EntityScope& scope);

bool readText(EntityScope& scope);
bool readMText(EntityScope& scope);
bool readAttributeDefinition(EntityScope& scope);
/// The attributes that follow a block reference; they vanish with a frozen layer of the reference.
void readAttributes(EntityScope& scope, Style insertStyle);

bool readInsert(EntityScope& scope);
bool readTable(EntityScope& scope);
bool readDimension(EntityScope& scope);
bool readViewport(EntityScope& scope);

/// Points of group `code` in file order; a point starts with its x.
std::vector<Vec3> pointsOf(const EntityFields& fields, int code);
