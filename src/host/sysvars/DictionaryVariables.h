#pragma once

#include <QString>

class OdDbDatabase;

/// The integer that the drawing's variable dictionary holds under a name; the fallback when it
/// holds none, or no number.
int dictionaryVariable(const OdDbDatabase& drawing, const QString& name, int fallback);

/// Undoable.
void setDictionaryVariable(OdDbDatabase& drawing, const QString& name, int value);
