#include "io/dwg/write/RecordPatch.h"

#include "database/values/OdError.h"
#include "io/dwg/bits/Checksums.h"

#include <QCoreApplication>

#include <algorithm>

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

QByteArray RecordParts::body(bool tellsLength, quint64& handlesAt) const
{
    BitWriter all = data;
    if (hasTextStream(version)) {
        all.append(text);
        appendTextEnd(all, text.size(), hasText);
    }
    handlesAt = all.size();
    if (tellsLength) {
        BitWriter measured;
        measured.append(all.bytes(), 0, lengthAt);
        measured.rawLong(static_cast<quint32>(handlesAt));
        measured.append(all.bytes(), lengthAt + kLengthBits, handlesAt);
        all = measured;
    }
    all.append(handles);
    if (const auto fill = static_cast<unsigned>(-all.size() & 7); fill != 0 && fill == oldFillCount)
        all.bits(oldFill, fill);
    else
        all.fillByte(onesFill);
    if (all.size() / 8 > kLongestRecord || text.size() > kLongestText)
        throw OdError(OdResult::InvalidInput,
                      QCoreApplication::translate(
                          "RecordPatch", "A record grew beyond what DWG drawings can hold."));
    return all.bytes();
}

QByteArray RecordParts::assembled() const
{
    quint64 handlesAt = 0;
    const QByteArray all = body(version < DrawingVersion::V2010, handlesAt);
    const auto size = static_cast<quint64>(all.size());
    BitWriter record;
    record.modularShort(static_cast<quint32>(size));
    if (version >= DrawingVersion::V2010)
        record.modularChar(size * 8 - handlesAt);
    record.raw(all);
    record.rawShort(Checksums::crc16(record.bytes()));
    return record.bytes();
}

RecordPatch::RecordPatch(const DwgRecord& record)
    : m_version(record.version())
    , m_body(record.body())
    , m_layout(record.layout())
    , m_lengthAt(record.lengthPosition())
{ }

RecordPatch::RecordPatch(const DwgStreams& section)
    : m_version(section.version())
    , m_body(section.body())
    , m_layout(section.layout())
    , m_lengthAt(0)
{ }

void RecordPatch::replace(Stream stream, BitSpan at, const BitWriter& with)
{
    if (stream == Stream::Text && !hasTextStream(m_version))
        stream = Stream::Data;
    const auto behind = std::find_if(m_edits.begin(), m_edits.end(),
                                     [&](const Edit& edit) { return edit.at.begin > at.begin; });
    m_edits.insert(behind, {stream, at, with});
}

void RecordPatch::copy(BitWriter& out, Stream stream, quint64 begin, quint64 end) const
{
    for (const Edit& edit : m_edits) {
        if (edit.stream != stream)
            continue;
        out.append(m_body, begin, edit.at.begin);
        out.append(edit.with);
        begin = edit.at.end;
    }
    out.append(m_body, begin, end);
}

RecordParts RecordPatch::parts() const
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
    if (fill != 0) {
        parts.onesFill = (m_body.back() & 1) != 0;
        parts.oldFillCount = static_cast<unsigned>(fill);
        parts.oldFill = static_cast<quint8>(m_body.back() & ((1 << fill) - 1));
    }
    return parts;
}

QByteArray RecordPatch::result() const
{
    return parts().assembled();
}

QByteArray RecordPatch::body() const
{
    quint64 handlesAt = 0;
    return parts().body(hasTextStream(m_version), handlesAt);
}
