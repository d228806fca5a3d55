#include "io/dwg/records/FreeRecords.h"

#include "io/dwg/records/GroupForm.h"

#include <algorithm>
#include <iterator>

namespace {

QByteArray hexadecimal(quint64 handle)
{
    return QByteArray::number(handle, 16).toUpper();
}

QByteArray decimal(double value)
{
    return QByteArray::number(value, 'g', 17);
}

/// Groups of three: a point stands in one piece, in DXF in three groups.
void appendPoint(GroupList& groups, int code, BitReader& data)
{
    for (int axis = 0; axis < 3; ++axis)
        groups.append(code + 10 * axis, decimal(data.rawDouble()));
}

quint64 bigHandle(BitReader& data)
{
    return qbswap(data.rawLongLong());
}

bool appendGroup(GroupList& groups, int code, DwgRecord& record)
{
    BitReader& data = record.data;
    switch (groupForm(code)) {
    case GroupForm::Text:
        groups.append(code, record.plainText().toUtf8());
        return true;
    case GroupForm::Point:
        appendPoint(groups, code, data);
        return true;
    case GroupForm::Real:
        groups.append(code, decimal(data.rawDouble()));
        return true;
    case GroupForm::Int8:
        groups.append(code, qint64(data.rawChar()));
        return true;
    case GroupForm::Int16:
        groups.append(code, qint64(static_cast<qint16>(data.rawShort())));
        return true;
    case GroupForm::Int32:
        groups.append(code, qint64(static_cast<qint32>(data.rawLong())));
        return true;
    case GroupForm::Int64:
        groups.append(code, static_cast<qint64>(data.rawLongLong()));
        return true;
    case GroupForm::Handle:
        groups.append(code, hexadecimal(data.rawLongLong()));
        return true;
    case GroupForm::Chunk:
        groups.append(code, data.bytes(data.rawChar()).toHex().toUpper());
        return true;
    default:
        return false;
    }
}

/// One item of extended data, its code less 1000 in a byte ahead.
bool appendItem(GroupList& groups, DwgRecord& record, const FreeRecords::NameOf& nameOf)
{
    BitReader& data = record.data;
    const int code = 1000 + data.rawChar();
    switch (code) {
    case 1000:
        groups.append(code, record.plainText().toUtf8());
        return true;
    case 1002:
        groups.append(code, QByteArrayView(data.rawChar() == 0 ? "{" : "}"));
        return true;
    case 1003:
        groups.append(code, nameOf(bigHandle(data)).toUtf8());
        return true;
    case 1004:
        groups.append(code, data.bytes(data.rawChar()).toHex().toUpper());
        return true;
    case 1005:
        groups.append(code, hexadecimal(bigHandle(data)));
        return true;
    case 1010:
    case 1011:
    case 1012:
    case 1013:
        appendPoint(groups, code, data);
        return true;
    case 1040:
    case 1041:
    case 1042:
        groups.append(code, decimal(data.rawDouble()));
        return true;
    case 1070:
        groups.append(code, qint64(static_cast<qint16>(data.rawShort())));
        return true;
    case 1071:
        groups.append(code, qint64(static_cast<qint32>(data.rawLong())));
        return true;
    default:
        return false;
    }
}

/// Reads items from the place of the reader to `end`, one at a time. Values that run over it, and
/// all behind an item of an unknown form, are left alone.
template <class AppendItem>
FreeRecords::Items itemsUpTo(quint64 end, quint64 least, DwgRecord& record,
                             const AppendItem& appendItem)
{
    BitReader& data = record.data;
    FreeRecords::Items found;
    found.end = end;
    found.readEnd = data.position();
    const BitReader whole = data;
    data.limit(end);
    while (data.position() + least <= end) {
        GroupList item;
        if (!appendItem(item) || data.hasFailed())
            break;
        found.items.push_back({found.readEnd, static_cast<int>(item.size())});
        for (const GroupList::Group& group : item)
            found.groups.append(group);
        found.readEnd = data.position();
    }
    data = whole;
    data.seek(end);
    return found;
}

} // namespace

std::vector<FreeRecords::XDataBlock>
FreeRecords::xDataBlocks(DwgRecord& record, const DwgHead& head, const NameOf& nameOf)
{
    std::vector<XDataBlock> blocks;
    BitReader& data = record.data;
    data.seek(head.xData.begin);
    for (;;) {
        XDataBlock block;
        block.at.begin = data.position();
        const quint32 size = static_cast<quint16>(data.bitShort());
        if (size == 0 || data.hasFailed())
            return blocks;
        block.applicationAt.begin = data.position();
        block.application = data.handle().value;
        block.applicationAt.end = data.position();
        block.at.end = data.position() + quint64(size) * 8;
        block.own = itemsUpTo(block.at.end, 8, record, [&](GroupList& groups) {
            return appendItem(groups, record, nameOf);
        });
        blocks.push_back(std::move(block));
    }
}

GroupList FreeRecords::xData(DwgRecord& record, const DwgHead& head, const NameOf& nameOf)
{
    GroupList groups;
    for (const XDataBlock& block : xDataBlocks(record, head, nameOf)) {
        groups.append(1001, nameOf(block.application).toUtf8());
        for (const GroupList::Group& group : block.own.groups)
            groups.append(group);
    }
    return groups;
}

FreeRecords::Dictionary FreeRecords::dictionary(DwgRecord& record)
{
    Dictionary dictionary;
    BitReader& data = record.data;
    dictionary.count.begin = data.position();
    const quint32 count = record.count(8);
    dictionary.count.end = data.position();
    if (record.version() == DrawingVersion::R14)
        data.rawChar();
    if (record.since(DrawingVersion::V2000)) {
        data.bitShort(); // cloning
        dictionary.hard = data.rawChar() != 0;
    }
    dictionary.keys.begin = record.textPosition();
    dictionary.references.begin = record.handles.position();
    for (quint32 i = 0; i < count && !record.hasFailed(); ++i) {
        const quint64 keyBegin = record.textPosition();
        const quint64 referenceBegin = record.handles.position();
        QString key = record.text();
        dictionary.entries.push_back({std::move(key), record.reference()});
        dictionary.keysAt.push_back({keyBegin, record.textPosition()});
        dictionary.referencesAt.push_back({referenceBegin, record.handles.position()});
    }
    dictionary.keys.end = record.textPosition();
    dictionary.references.end = record.handles.position();
    return dictionary;
}

FreeRecords::Group FreeRecords::group(DwgRecord& record)
{
    Group group;
    record.text(); // description
    record.data.bitShort(); // has no name
    record.data.bitShort(); // is picked as a whole
    group.count.begin = record.data.position();
    const quint32 count = record.count(8);
    group.count.end = record.data.position();
    group.membersAt.begin = record.handles.position();
    for (quint32 i = 0; i < count && !record.hasFailed(); ++i)
        group.members.push_back(record.reference());
    group.membersAt.end = record.handles.position();
    return group;
}

FreeRecords::DrawOrder FreeRecords::drawOrder(DwgRecord& record)
{
    DrawOrder order;
    order.count.begin = record.data.position();
    const quint32 count = record.count(8);
    order.count.end = record.data.position();
    for (quint32 i = 0; i < count && !record.hasFailed(); ++i) {
        const quint64 begin = record.data.position();
        record.data.handle();
        order.orderAt.push_back({begin, record.data.position()});
    }
    record.reference(); // the block
    order.entitiesAt.begin = record.handles.position();
    for (quint32 i = 0; i < count && !record.hasFailed(); ++i)
        order.entities.push_back(record.reference());
    order.entitiesAt.end = record.handles.position();
    return order;
}

BitSpan FreeRecords::xrecordGroups(DwgRecord& record)
{
    BitReader& data = record.data;
    const quint64 begin = data.position();
    const quint64 bits = quint64(record.count(8)) * 8;
    if (bits > data.left())
        data.fail();
    return {begin, data.position() + std::min(bits, data.left())};
}

FreeRecords::Xrecord FreeRecords::xrecord(DwgRecord& record)
{
    Xrecord fields;
    BitReader& data = record.data;
    fields.at = xrecordGroups(record);
    fields.own = itemsUpTo(fields.at.end, 16, record, [&](GroupList& groups) {
        const int code = static_cast<qint16>(data.rawShort());
        return appendGroup(groups, code, record);
    });
    return fields;
}
