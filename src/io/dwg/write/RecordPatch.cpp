#include "io/dwg/write/RecordPatch.h"

#include "database/values/OdError.h"
#include "io/dwg/bits/Checksums.h"

#include <QCoreApplication>

namespace {

constexpr quint64 kLengthBits = 32;
constexpr quint64 kLongestText = (1u << 30) - 1;
constexpr quint64 kLongestRecord = (1u << 30) - 1;

/// What follows the texts: their length and the bit that tells there are some.
void appendTextEnd(BitWriter& out, quint64 length, bool hasText)
{
    constexpr quint64 kShortest = 0x8000;
    if (hasText) {
        if (length >= kShortest)
            out.rawShort(static_cast<quint16>(length >> 15));
        out.rawShort(static_cast<quint16>(length >= kShortest ? length | kShortest : length));
    }
    out.bit(hasText);
}

} // namespace

QByteArray RecordParts::assembled() const
{
    BitWriter all = data;
    if (hasTextStream(version)) {
        all.append(text);
        appendTextEnd(all, text.size(), hasText);
    }
    const quint64 handlesAt = all.size();
    if (version < DwgVersion::V2010) {
        BitWriter measured;
        measured.append(all.bytes(), 0, lengthAt);
        measured.rawLong(static_cast<quint32>(handlesAt));
        measured.append(all.bytes(), lengthAt + kLengthBits, handlesAt);
        all = measured;
    }
    all.append(handles);
    all.fillByte(onesFill);
    const quint64 size = all.size() / 8;
    if (size > kLongestRecord || text.size() > kLongestText)
        throw OdError(OdResult::InvalidInput,
                      QCoreApplication::translate(
                          "RecordPatch", "A record grew beyond what DWG drawings can hold."));
    BitWriter record;
    record.modularShort(static_cast<quint32>(size));
    if (version >= DwgVersion::V2010)
        record.modularChar(size * 8 - handlesAt);
    record.raw(all.bytes());
    record.rawShort(Checksums::crc16(record.bytes()));
    return record.bytes();
}

RecordPatch::RecordPatch(const DwgRecord& record)
    : m_version(record.version())
    , m_body(record.body())
    , m_layout(record.layout())
    , m_lengthAt(record.lengthPosition())
{ }

void RecordPatch::replace(Stream stream, quint64 begin, quint64 end, const BitWriter& with)
{
    if (stream == Stream::Text && !hasTextStream(m_version))
        stream = Stream::Data;
    m_edits.push_back({stream, begin, end, with});
}

void RecordPatch::copy(BitWriter& out, Stream stream, quint64 begin, quint64 end) const
{
    for (const Edit& edit : m_edits) {
        if (edit.stream != stream)
            continue;
        out.append(m_body, begin, edit.begin);
        out.append(edit.with);
        begin = edit.end;
    }
    out.append(m_body, begin, end);
}

QByteArray RecordPatch::result() const
{
    RecordParts parts;
    parts.version = m_version;
    parts.lengthAt = m_lengthAt;
    copy(parts.data, Stream::Data, 0, m_layout.dataEnd);
    copy(parts.text, Stream::Text, m_layout.textBegin, m_layout.textEnd);
    parts.hasText = m_layout.hasText || parts.text.size() > 0;
    // References take whole bytes; what is left fills up the last one.
    const quint64 end = static_cast<quint64>(m_body.size()) * 8;
    const quint64 fill = (end - m_layout.handlesBegin) & 7;
    copy(parts.handles, Stream::Handles, m_layout.handlesBegin, end - fill);
    if (fill != 0)
        parts.onesFill = (m_body.back() & 1) != 0;
    return parts.assembled();
}

BitWriter RecordPatch::spelled(const DwgFormat& format, const QString& text)
{
    BitWriter out;
    if (hasTextStream(format.version)) {
        out.bitShort(static_cast<qint16>(text.size()));
        for (const QChar unit : text)
            out.rawShort(unit.unicode());
        return out;
    }
    const QByteArray bytes = format.text.encode(text);
    out.bitShort(static_cast<qint16>(bytes.size()));
    out.raw(bytes);
    return out;
}
