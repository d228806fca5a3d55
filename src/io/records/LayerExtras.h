#pragma once

#include "database/tables/OdDbLayerTableRecord.h"
#include "database/values/GroupList.h"

#include <vector>

class RecordSource;

/// What hangs on a layer in records of its extension dictionary: viewport overrides, the
/// reconciled flag, and what a program that saved to an older version kept of newer properties.
namespace LayerExtras {

/// Takes one record into the state.
void read(const OdDbDatabase& database, const QString& key, const GroupList& groups,
          LayerState& layer);

/// One record that differs.
struct Change
{
    QString key;
    quint32 slot; ///< of the record in the file; OdDbObjectId::kNoSlot: a new one
    GroupList before;
    GroupList after; ///< empty: the record goes
};

/// The records that turn `before` into `after`. Blocks of viewports that are gone and groups that
/// this program does not know stay.
std::vector<Change> changes(const RecordSource& source, OdDbObjectId layer,
                            const LayerState& before, const LayerState& after);

} // namespace LayerExtras
