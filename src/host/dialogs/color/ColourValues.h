#pragma once

#include "toolkit/PickQuestions.h"

#include <QColor>

#include <optional>

class OdCmColor;

/// Colours of questions: as texts, on the screen, and as drawings have them.
namespace colour_values {

OdCmColor toDrawing(const ColourValue& value);
ColourValue fromDrawing(const OdCmColor& colour);

/// "red", "40", "255,127,0", "ByLayer"; a book colour's name.
QString text(const ColourValue& value);
/// Reads what a user types: an index, a name of a standard colour, "r,g,b", "#rrggbb", and
/// "ByLayer" or "ByBlock" where the question offers them. Nothing where it is none of these.
std::optional<ColourValue> fromText(const QString& text, const ColourQuestion& question);
/// The colour to paint with; not valid for by layer and by block.
QColor shown(const ColourValue& value, bool onDark);

} // namespace colour_values
