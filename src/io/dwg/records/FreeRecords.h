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

/// Groups that stand one behind the other, and where. A point is one item, and three groups.
struct Items
{
    struct Item
    {
        quint64 begin = 0;
        int groups = 1;
    };
    GroupList groups;
    std::vector<Item> items;
    quint64 readEnd = 0; ///< behind the last item that has a known form
    quint64 end = 0; ///< of all bits
};

/// Extended data of one application.
struct XDataBlock
{
    quint64 application = 0; ///< its record
    BitSpan at; ///< length, application and data
    BitSpan applicationAt; ///< the reference to it
    Items own;
};
std::vector<XDataBlock> xDataBlocks(DwgRecord& record, const DwgHead& head, const NameOf& nameOf);

/// Extended data of the open record, whose head was read; as DXF has them, from group 1001.
GroupList xData(DwgRecord& record, const DwgHead& head, const NameOf& nameOf);

struct Dictionary
{
    bool hard = false;
    BitSpan count; ///< of the data
    BitSpan keys; ///< all of the entries
    BitSpan references;
    std::vector<KeyedHandle> entries;
    std::vector<BitSpan> keysAt; ///< by entry
    std::vector<BitSpan> referencesAt;
};
Dictionary dictionary(DwgRecord& record);

struct Xrecord
{
    BitSpan at; ///< the length of the groups, and all of them
    Items own;
};
/// Entities that are picked together.
struct Group
{
    std::vector<quint64> members;
    BitSpan count; ///< of the data
    BitSpan membersAt;
};
Group group(DwgRecord& record);

/// The drawing order of a block's entities: a handle of it for each, and which one that is.
struct DrawOrder
{
    std::vector<quint64> entities;
    BitSpan count; ///< of the data
    std::vector<BitSpan> orderAt; ///< of the data, by entity
    BitSpan entitiesAt;
};
DrawOrder drawOrder(DwgRecord& record);

/// Where the groups of the open record, whose head was read, and their length stand; goes behind
/// the length. Fails where they would run over the data.
BitSpan xrecordGroups(DwgRecord& record);
/// The same with what they say.
Xrecord xrecord(DwgRecord& record);

} // namespace FreeRecords
