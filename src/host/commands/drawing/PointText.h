#pragma once

#include "host/canvas/geometry/Vec3.h"

#include <QString>

#include <optional>

// How points, lengths and angles are written where they are answered.
namespace point_text {

/// "x,y" or "x,y,z"; "@dx,dy" or "@dx,dy,dz" from `base`; "d<a" and "@d<a" by distance and angle in
/// degrees, the latter from `base`; "@" is `base`. Null for anything else, and for numbers that no
/// drawing can have.
std::optional<Vec3> parse(const QString& text, Vec3 base);
/// Why a text is no point.
QString complaint(const QString& text);
/// A number that is finite and no larger than a coordinate may be.
std::optional<double> parseNumber(const QString& text);
/// The point with all its digits; z only where it is not 0.
QString of(Vec3 point);
QString of(Vec2 point);
/// The point with the digits that pointing can tell, where it is exact to `reach`, a length.
QString pointedAt(Vec2 point, double reach);

} // namespace point_text
