#pragma once

#include <QString>

class OdDbDatabase;
class WildcardPattern;

/// The layer table as aligned text, one line per layer in the order of names, then a line with the
/// count. The current layer is marked "*", layers with entities on them "x". Layers whose names
/// begin with an asterisk belong to programs, not to users: they are counted and not listed.
/// With a pattern only layers whose names match are there.
QString layerTableText(const OdDbDatabase& database, bool millimetres,
                       const WildcardPattern* pattern = nullptr);
