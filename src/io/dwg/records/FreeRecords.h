#pragma once

#include "database/values/GroupList.h"
#include "io/dwg/records/DwgRecord.h"
#include "io/records/KeyedHandle.h"

#include <functional>
#include <vector>

/// Records of free groups, dictionaries and extended data.
namespace FreeRecords {

/// The name of the record with that handle, for the names that DXF has where DWG has handles.
using NameOf = std::function<QString(quint64 handle)>;

/// Extended data of one application.
struct XDataBlock
{
    quint64 application = 0; ///< its record
    BitSpan at; ///< length, application and data
    GroupList groups; ///< without the application
};
std::vector<XDataBlock> xDataBlocks(DwgRecord& record, const DwgHead& head, const NameOf& nameOf);

/// Extended data of the open record, whose head was read; as DXF has them, from group 1001.
GroupList xData(DwgRecord& record, const DwgHead& head, const NameOf& nameOf);

struct Dictionary
{
    bool hard = false;
    BitSpan count; ///< of the data
    quint64 textsBegin = 0;
    BitSpan references; ///< all of the entries
    quint64 textsEnd = 0;
    std::vector<KeyedHandle> entries;
};
Dictionary dictionary(DwgRecord& record);

/// Groups of an XRECORD behind its head; `at` is their length and all of them.
GroupList xrecord(DwgRecord& record, BitSpan* at = nullptr);

} // namespace FreeRecords
