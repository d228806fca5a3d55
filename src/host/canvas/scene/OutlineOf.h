#pragma once

#include "host/canvas/display/DisplayList.h"

/// The strokes of a list joined end to end into one closed outline; empty when they are too few or
/// too many to be one.
std::vector<Vec2> outlineOf(const DisplayList& list);
