#pragma once

#include <QString>

class OdDbDatabase;

/// The layer table as aligned text, one line per layer in the order of names, then a line with the
/// count. The current layer is marked "*", layers with entities on them "x". Layers whose names
/// begin with an asterisk belong to programs, not to users: they are counted and not listed.
QString layerTableText(const OdDbDatabase& database, bool millimetres);
