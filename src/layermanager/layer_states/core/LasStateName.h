#pragma once

#include <QString>

/// The name of the state in the text of a layer-state file; empty where there is none.
QString stateNameInLas(const QString& text);

/// The same, from a file on disk; empty also where it cannot be read, or is larger than the
/// layer-state service takes.
QString readStateName(const QString& path);
