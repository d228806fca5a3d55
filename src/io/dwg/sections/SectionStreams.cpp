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

QByteArray SectionStreams::withBody(const SectionStreams& section, QByteArrayView old,
                                    const QByteArray& body)
{
    const auto head = static_cast<qsizetype>(section.body().data() - old.data());
    QByteArray bytes = old.first(head).toByteArray();
    qToLittleEndian(static_cast<quint32>(body.size()), bytes.data() + kMarkSize);
    bytes += body;
    const quint16 sum = Checksums::crc16(QByteArrayView(bytes).sliced(kMarkSize));
    bytes.append(static_cast<char>(sum & 0xFF));
    bytes.append(static_cast<char>(sum >> 8));
    bytes += old.sliced(head + section.body().size() + kSectionSumSize);
    return bytes;
}
