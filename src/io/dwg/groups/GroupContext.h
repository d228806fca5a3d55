#pragma once

#include "io/dwg/groups/GroupSink.h"
#include "io/dwg/records/DwgRecord.h"

/// What DXF has where DWG has a handle.
class RecordNames
{
public:
    virtual ~RecordNames() = default;
    /// The number of a viewport on its sheet, which only its place there tells.
    virtual int viewportNumber(quint64 handle) const = 0;
    /// A colour of a colour book.
    virtual OdCmColor bookColor(quint64 handle) const = 0;
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
