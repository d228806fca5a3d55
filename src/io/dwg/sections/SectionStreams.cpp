#include "io/dwg/sections/SectionStreams.h"

#include "io/dwg/bits/Checksums.h"

#include <QtEndian>

namespace {

constexpr qsizetype kSizeSize = 4;
constexpr qsizetype kSectionSumSize = 2;
constexpr int kLastMaintenanceWithoutHighSize = 3; ///< of version 2010

} // namespace

SectionStreams::SectionStreams(const DwgFile& file, DwgSection section, const DwgFormat& format)
    : DwgStreams(format)
{
    const QByteArrayView bytes = file.section(section);
    const bool highSize = since(DrawingVersion::V2018)
        || (since(DrawingVersion::V2010)
            && file.maintenanceVersion() > kLastMaintenanceWithoutHighSize);
    const qsizetype head = kMarkSize + kSizeSize * (highSize ? 2 : 1);
    if (bytes.size() < head + kSectionSumSize)
        return;
    const qsizetype size = qFromLittleEndian<quint32>(bytes.data() + kMarkSize);
    if (size > bytes.size() - head - kSectionSumSize)
        return;
    m_sound = Checksums::crc16(bytes.sliced(kMarkSize, head - kMarkSize + size))
        == qFromLittleEndian<quint16>(bytes.data() + head + size);
    start(bytes.sliced(head, size));
    if (hasTextStream(version()))
        divide(data.rawLong());
}
