#pragma once

#include <QString>

class OdDbDatabase;

/// The integer that the drawing's variable dictionary holds under a name; the fallback when it
/// holds none, or no number.
int dictionaryVariable(const OdDbDatabase& drawing, const QString& name, int fallback);

/// Raises OdError with NotImplementedYet unless the drawing has that value already: the database
/// keeps the dictionary as the file has it.
void setDictionaryVariable(OdDbDatabase& drawing, const QString& name, int value);
