#pragma once

#include "io/dwg/groups/GroupContext.h"

/// Values that both formats have alike: each is taken from the record and put under a group code.
namespace Carry {

constexpr double kRadiansToDegrees = 57.29577951308232;

double real(const GroupContext& context, int code);
/// Radians of the record, degrees of the group.
void angle(const GroupContext& context, int code);
/// A short number.
int integer(const GroupContext& context, int code);
/// A truth of one bit as 0 or 1.
bool flag(const GroupContext& context, int code);
void text(const GroupContext& context, int code);
/// A point in space.
void point(const GroupContext& context, int code);
/// A point of a plane, written out in full.
void rawPoint(const GroupContext& context, int code);
/// The name of the table's record that the next reference means, where it means one.
void name(const GroupContext& context, int code);

/// The direction of the plane, where it is not straight up.
void normal(const GroupContext& context, bool compact = false);
/// Thickness where there is one, then the direction of the plane.
void plane(const GroupContext& context);
/// Puts the direction of a plane that was read before.
void putNormal(GroupSink& out, const double (&normal)[3]);

} // namespace Carry
