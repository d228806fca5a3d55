#pragma once

#include "io/dwg/groups/GroupSink.h"
#include "io/dwg/records/DwgRecord.h"

/// Names that DXF has where DWG has the handle of a table's record.
class RecordNames
{
public:
    virtual ~RecordNames() = default;
    /// Empty for a handle that is no record with a name.
    virtual QString nameOf(quint64 handle) const = 0;
};

/// One record that is turned into groups: it stands behind its head.
struct GroupContext
{
    DwgRecord& record;
    const DwgHead& head;
    const DwgEntityHead& entity; ///< of an entity
    const RecordNames& names;
    GroupSink& out;
};
