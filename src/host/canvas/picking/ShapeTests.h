#pragma once

#include "host/canvas/display/DisplayList.h"
#include "host/canvas/geometry/Box2.h"
#include "host/canvas/geometry/CurveArc.h"

#include <functional>
#include <span>

// How shapes lie to a point and to a box.
namespace shape_tests {

double distance(Vec2 point, Vec2 from, Vec2 to);
bool touches(const Box2& box, Vec2 from, Vec2 to);
bool touches(const Box2& box, const Ray& ray);

/// Calls for the chords of an arc that come near a box, none further from the arc than `tolerance`,
/// until the call answers true; answers whether one did.
bool anyChord(const CurveArc& arc, const Box2& box, double tolerance,
              const std::function<bool(Vec2, Vec2)>& call);

/// Odd-even: true when one more contour runs round the point than round its outside.
bool isAround(std::span<const Vec2> contour, Vec2 point);
/// Whether an edge of the contour runs through the box.
bool edgeTouches(const Box2& box, std::span<const Vec2> contour);

} // namespace shape_tests
