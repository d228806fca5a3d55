#include "io/dwg/records/FreeRecords.h"

#include "io/dxf/text/GroupCode.h"

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

/// How an XRECORD has a group; where it does as DXF's kinds say, DXF's kind.
enum class Form : quint8 { Text, Point, Real, Int8, Int16, Int32, Int64, Handle, Chunk, Unknown };

Form formOf(int code)
{
    struct Range
    {
        int first;
        int last;
        Form form;
    };
    constexpr Range kOwn[] = {
        {5, 5, Form::Text},         {10, 39, Form::Point},     {105, 105, Form::Text},
        {110, 139, Form::Point},    {210, 239, Form::Point},   {280, 299, Form::Int8},
        {1005, 1005, Form::Handle}, {1010, 1039, Form::Point},
    };
    for (const Range& range : kOwn) {
        if (code >= range.first && code <= range.last)
            return range.form;
    }
    if (!hasBinaryForm(code))
        return Form::Unknown;
    switch (groupKind(code)) {
    case GroupKind::Text:
        return Form::Text;
    case GroupKind::Handle:
        return Form::Handle;
    case GroupKind::Real:
        return Form::Real;
    case GroupKind::Int16:
        return Form::Int16;
    case GroupKind::Int32:
        return Form::Int32;
    case GroupKind::Int64:
        return Form::Int64;
    case GroupKind::Bool:
        return Form::Int8;
    default:
        return Form::Chunk;
    }
}

bool appendGroup(GroupList& groups, int code, DwgRecord& record)
{
    BitReader& data = record.data;
    switch (formOf(code)) {
    case Form::Text:
        groups.append(code, record.plainText().toUtf8());
        return true;
    case Form::Point:
        appendPoint(groups, code, data);
        return true;
    case Form::Real:
        groups.append(code, decimal(data.rawDouble()));
        return true;
    case Form::Int8:
        groups.append(code, qint64(data.rawChar()));
        return true;
    case Form::Int16:
        groups.append(code, qint64(static_cast<qint16>(data.rawShort())));
        return true;
    case Form::Int32:
        groups.append(code, qint64(static_cast<qint32>(data.rawLong())));
        return true;
    case Form::Int64:
        groups.append(code, static_cast<qint64>(data.rawLongLong()));
        return true;
    case Form::Handle:
        groups.append(code, hexadecimal(data.rawLongLong()));
        return true;
    case Form::Chunk:
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

} // namespace

GroupList FreeRecords::xData(DwgRecord& record, const DwgHead& head, const NameOf& nameOf)
{
    GroupList groups;
    BitReader& data = record.data;
    data.seek(head.xDataBegin);
    for (quint32 size = static_cast<quint16>(data.bitShort()); size != 0 && !data.hasFailed();
         size = static_cast<quint16>(data.bitShort()))
    {
        groups.append(1001, nameOf(data.handle().value).toUtf8());
        const quint64 end = data.position() + quint64(size) * 8;
        while (data.position() < end && !data.hasFailed()) {
            if (!appendItem(groups, record, nameOf))
                break;
        }
        data.seek(end);
    }
    return groups;
}

FreeRecords::Dictionary FreeRecords::dictionary(DwgRecord& record)
{
    Dictionary dictionary;
    BitReader& data = record.data;
    const quint32 count = record.count(8);
    if (record.version() == DwgVersion::R14)
        data.rawChar();
    if (record.since(DwgVersion::V2000)) {
        data.bitShort(); // cloning
        dictionary.hard = data.rawChar() != 0;
    }
    for (quint32 i = 0; i < count && !record.hasFailed(); ++i) {
        QString key = record.text();
        dictionary.entries.emplace_back(std::move(key), record.reference());
    }
    return dictionary;
}

GroupList FreeRecords::xrecord(DwgRecord& record)
{
    GroupList groups;
    BitReader& data = record.data;
    const quint64 end = quint64(record.count(8)) * 8 + data.position();
    while (data.position() + 16 <= end && !data.hasFailed()) {
        const int code = static_cast<qint16>(data.rawShort());
        if (!appendGroup(groups, code, record))
            data.fail();
    }
    data.seek(end);
    return groups;
}
