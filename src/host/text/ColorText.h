#pragma once

#include "database/values/OdCmColor.h"

#include <QStringList>

#include <optional>

/// A color as it is typed: an index from 1 to 255, a name ("red" to "white", also translated), or
/// "r,g,b" with numbers from 0 to 255. Nothing where the text is none of these.
std::optional<OdCmColor> colorFromText(const QString& text);
/// What is said of a text that is no color.
QString colorRefusal(const QString& text);
/// The names of the colors from 1 to 7, in English.
QStringList colorNames();
