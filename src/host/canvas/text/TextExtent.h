#pragma once

#include "host/canvas/display/TextPool.h"
#include "host/canvas/geometry/Box2.h"

/// Estimated extents of a text in heights of a capital letter, relative to its alignment point.
/// Good enough to skip what is out of sight; no font is asked.
Box2 estimatedExtent(const TextSpec& spec);

/// Number of lines in estimated extents, and the middle of the small letters of one of them.
int linesIn(const Box2& extent, double lineStep);
double middleOfLine(const Box2& extent, double lineStep, int line);

/// Left edge, and baseline of the first line, of a block of text from its measures and alignment.
Vec2 blockStart(const TextSpec& spec, double width, int lines);
