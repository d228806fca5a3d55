#pragma once

#include <QtGlobal>

#include <vector>

class DwgRecord;

/// Entities that a record owns, in drawing order: those of a block, the vertices of a polyline, the
/// attributes of a reference.
struct OwnedEntities
{
    quint64 begin = 0; ///< of a block: the entity that opens its definition
    quint64 first = 0; ///< up to version 2000: the start of a chain
    quint64 last = 0; ///< and its end
    std::vector<quint64> listed; ///< since version 2004
    quint64 end = 0; ///< the entity that closes the definition or the sequence

    /// Of a polyline or a reference, behind its head; nothing for other types.
    static OwnedEntities read(DwgRecord& record);
};
