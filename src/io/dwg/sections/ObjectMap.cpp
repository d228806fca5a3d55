#include "io/dwg/sections/ObjectMap.h"

#include "io/dwg/bits/BitReader.h"
#include "io/dwg/bits/Checksums.h"

#include <QtEndian>

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
