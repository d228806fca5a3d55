#pragma once

#include "host/canvas/geometry/Box2.h"

#include <vector>

/// Cuts a line off at the edges of a box; false when nothing of it is inside.
bool clipLine(const Box2& box, Vec2& from, Vec2& to);

/// Cuts a filled contour off at the edges of a box, in place.
void clipContour(const Box2& box, std::vector<Vec2>& contour);
