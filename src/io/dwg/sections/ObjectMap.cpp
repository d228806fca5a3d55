#include "io/dwg/sections/ObjectMap.h"

#include "io/dwg/bits/BitReader.h"
#include "io/dwg/bits/BitWriter.h"
#include "io/dwg/bits/Checksums.h"

#include <QtEndian>

namespace {

BitWriter distance(const ObjectMap::Entry& from, const ObjectMap::Entry& to)
{
    BitWriter bits;
    bits.modularChar(to.handle - from.handle);
    bits.signedModularChar(static_cast<qint64>(to.offset) - static_cast<qint64>(from.offset));
    return bits;
}

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
    constexpr qsizetype kLongestPart = 2032; // its size included
    QByteArray map;
    BitWriter part;
    Entry last{0, 0};
    for (const Entry& entry : entries) {
        BitWriter bits = distance(last, entry);
        if (part.bytes().size() + bits.bytes().size() + 2 > kLongestPart) {
            appendPart(map, part.bytes());
            part = {};
            bits = distance({0, 0}, entry);
        }
        part.append(bits);
        last = entry;
    }
    if (part.size() > 0)
        appendPart(map, part.bytes());
    appendPart(map, {});
    return map;
}
