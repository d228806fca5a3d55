#pragma once

#include "database/values/OdDbObjectId.h"
#include "host/canvas/geometry/Box2.h"

/// Units of the sheet per millimetre of paper; 1 for a layout that tells nothing.
double sheetUnitsPerMillimetre(const OdDbDatabase& database, OdDbObjectId layout);
/// Whether linetypes are scaled by the sheet in its viewports; `fallback` where the layout does not
/// say.
bool scalesLinetypesBySheet(const OdDbDatabase& database, OdDbObjectId layout, bool fallback);
/// Where the paper of a layout lies, in the units of the sheet; empty for a layout that names none.
Box2 sheetPaper(const OdDbDatabase& database, OdDbObjectId layout);
