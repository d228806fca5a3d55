#include "io/dwg/sections/ObjectMap.h"

#include "io/dwg/bits/BitReader.h"
#include "io/dwg/bits/Checksums.h"
#include "io/dwg/bits/ModularChar.h"

#include <QtEndian>

#include <array>

namespace {

/// An entry as it is spelled: its distance from the one before.
class SpelledEntry
{
public:
    SpelledEntry(const ObjectMap::Entry& from, const ObjectMap::Entry& to)
    {
        const auto put = [this](quint8 byte) { m_bytes[m_size++] = static_cast<char>(byte); };
        ModularChar::spell(to.handle - from.handle, put);
        ModularChar::spellSigned(static_cast<qint64>(to.offset - from.offset), put);
    }
    QByteArrayView bytes() const { return {m_bytes.data(), static_cast<qsizetype>(m_size)}; }

private:
    static constexpr std::size_t kLongestNumber = 10;
    std::array<char, 2 * kLongestNumber> m_bytes;
    std::size_t m_size = 0;
};

void appendBigEndian(QByteArray& bytes, quint16 value)
{
    bytes.append(static_cast<char>(value >> 8));
    bytes.append(static_cast<char>(value & 0xFF));
}

/// A part of the map with its size ahead and its sum behind.
void appendPart(QByteArray& map, const QByteArray& entries)
{
    QByteArray part;
    appendBigEndian(part, static_cast<quint16>(entries.size() + 2));
    part += entries;
    appendBigEndian(part, Checksums::crc16(part));
    map += part;
}

} // namespace

ObjectMap ObjectMap::read(QByteArrayView section)
{
    // Parts with their size ahead and their sum behind, both highest byte first; handles and
    // offsets are distances from the entry before, which start anew in each part. An empty part is
    // the last.
    constexpr qsizetype kSize = 2;
    ObjectMap map;
    qsizetype at = 0;
    for (;;) {
        if (section.size() - at < 2 * kSize) {
            map.complete = false;
            return map;
        }
        const qsizetype size = qFromBigEndian<quint16>(section.data() + at);
        if (size < kSize || section.size() - at < size + kSize) {
            map.complete = false;
            return map;
        }
        const QByteArrayView part = section.sliced(at, size);
        map.sumsHold &=
            Checksums::crc16(part) == qFromBigEndian<quint16>(section.data() + at + size);
        at += size + kSize;
        if (size == kSize)
            return map;
        BitReader reader(part);
        reader.skip(8 * kSize);
        Entry entry{0, 0};
        while (reader.left() >= 8) {
            entry.handle += reader.modularChar();
            entry.offset += static_cast<quint64>(reader.signedModularChar());
            map.complete &= !reader.hasFailed();
            if (!reader.hasFailed())
                map.entries.push_back(entry);
        }
    }
}

QByteArray ObjectMap::spelled(const std::vector<Entry>& entries)
{
    constexpr qsizetype kFullPart = 2032; // with its size; the entry that fills it still fits
    QByteArray map;
    QByteArray part;
    part.reserve(kFullPart);
    Entry last{0, 0};
    for (const Entry& entry : entries) {
        part += SpelledEntry(last, entry).bytes();
        last = entry;
        if (part.size() + 2 >= kFullPart) {
            appendPart(map, part);
            part.truncate(0);
            last = {0, 0};
        }
    }
    if (!part.isEmpty())
        appendPart(map, part);
    appendPart(map, {});
    return map;
}
