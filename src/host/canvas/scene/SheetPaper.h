#pragma once

#include "database/OdDbObjectId.h"
#include "host/canvas/geometry/Box2.h"

/// Where the paper of a layout lies, in the units of the sheet; empty for a layout that names none.
Box2 sheetPaper(const OdDbDatabase& database, OdDbObjectId layout);
