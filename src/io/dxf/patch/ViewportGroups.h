#pragma once

#include "database/objects/OdDbEntity.h"

class DxfObjectSource;
class RecordPatcher;

/// The layers frozen in a viewport: groups 331, in version 2000 groups 341, before that names in
/// extended data.
namespace ViewportGroups {

/// Turns the list in the record of the file from `before` into `after`; false where the record has
/// no place for it.
bool patch(RecordPatcher& record, const DxfObjectSource& source, const OdDbObjectIdArray& before,
           const OdDbObjectIdArray& after);

} // namespace ViewportGroups
