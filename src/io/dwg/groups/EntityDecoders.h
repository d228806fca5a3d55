#pragma once

#include "io/dwg/groups/GroupContext.h"

/// Turns the own part of one type of entity into groups.
using EntityDecoder = void (*)(const GroupContext&);

// Lines and curves
void decodeLine(const GroupContext& context);
void decodeCircle(const GroupContext& context);
void decodeArc(const GroupContext& context);
void decodePoint(const GroupContext& context);
