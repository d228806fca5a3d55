#include "io/dwg/records/DwgRecord.h"

#include "io/dwg/bits/Checksums.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

constexpr qsizetype kSumSize = 2;

constexpr std::array<qint16, 24> kLineWeights = {0,  5,   9,   13,  15,  18,  20,  25,
                                                 30, 35,  40,  50,  53,  60,  70,  80,
                                                 90, 100, 106, 120, 140, 158, 200, 211};
constexpr int kByLayerNumber = 29;
constexpr int kByBlockNumber = 30;
constexpr int kDefaultNumber = 31; ///< those from 24 to 28 stand for nothing

} // namespace

qint16 dwgLineWeight(int number)
{
    if (number < static_cast<int>(kLineWeights.size()))
        return kLineWeights[static_cast<std::size_t>(number)];
    return number == kByLayerNumber ? -1 : number == kByBlockNumber ? -2 : -3;
}

int dwgLineWeightNumber(qint16 hundredths)
{
    if (hundredths < 0)
        return hundredths == -1 ? kByLayerNumber
            : hundredths == -2  ? kByBlockNumber
                                : kDefaultNumber;
    const auto nearest = std::min_element(
        kLineWeights.begin(), kLineWeights.end(), [hundredths](qint16 a, qint16 b) {
            return std::abs(a - hundredths) < std::abs(b - hundredths);
        });
    return static_cast<int>(nearest - kLineWeights.begin());
}

DwgRecord::DwgRecord(const DwgFormat& format, QByteArrayView objects)
    : DwgStreams(format)
    , m_objects(objects)
{ }

bool DwgRecord::open(quint64 offset)
{
    const auto whole = static_cast<quint64>(m_objects.size());
    if (offset >= whole)
        return false;
    BitReader head(m_objects.sliced(static_cast<qsizetype>(offset)));
    const quint64 size = head.modularShort();
    const quint64 handleBits = since(DrawingVersion::V2010) ? head.modularChar() : 0;
    const quint64 first = head.position() / 8;
    if (head.hasFailed() || size == 0 || size > whole - offset - first
        || whole - offset - first - size < kSumSize || handleBits > size * 8)
        return false;
    m_bytes = m_objects.sliced(static_cast<qsizetype>(offset),
                               static_cast<qsizetype>(first + size) + kSumSize);
    start(m_bytes.sliced(static_cast<qsizetype>(first), static_cast<qsizetype>(size)));
    m_type =
        since(DrawingVersion::V2010) ? data.objectType() : static_cast<quint16>(data.bitShort());
    m_lengthAt = data.position();
    if (since(DrawingVersion::V2010))
        divide(size * 8 - handleBits);
    return true;
}

bool DwgRecord::sumHolds() const
{
    return Checksums::crc16(m_bytes.chopped(kSumSize))
        == qFromLittleEndian<quint16>(m_bytes.data() + m_bytes.size() - kSumSize);
}

void DwgRecord::readStart(DwgHead& head)
{
    if (since(DrawingVersion::V2000) && !since(DrawingVersion::V2010))
        divide(data.rawLong());
    head.handle = data.handle().value;
    setHandle(head.handle);
    head.xData.begin = data.position();
    for (quint32 size = static_cast<quint16>(data.bitShort()); size != 0 && !data.hasFailed();
         size = static_cast<quint16>(data.bitShort()))
    {
        data.handle();
        data.skip(quint64(size) * 8);
    }
    head.xData.end = data.position();
}

void DwgRecord::readReferences(DwgHead& head)
{
    head.reactorCount.begin = data.position();
    const quint32 reactors = count(8);
    head.reactorCount.end = data.position();
    head.reactors.clear();
    head.reactorsAt.begin = handles.position();
    for (quint32 i = 0; i < reactors; ++i)
        head.reactors.push_back(reference());
    head.reactorsAt.end = handles.position();
    head.noExtension.begin = data.position();
    const bool noExtension = since(DrawingVersion::V2004) && data.bit();
    head.noExtension.end = data.position();
    head.extensionAt.begin = handles.position();
    head.extension = noExtension ? 0 : reference();
    head.extensionAt.end = handles.position();
}

void DwgRecord::readHead(DwgHead& head)
{
    readStart(head);
    if (!since(DrawingVersion::V2000))
        divide(data.rawLong());
    head.owner = reference();
    readReferences(head);
    if (since(DrawingVersion::V2013))
        data.bit(); // has data in the section of large data
}

void DwgRecord::readHead(DwgHead& head, DwgEntityHead& entity)
{
    readStart(head);
    if (data.bit()) { // a picture for programs that do not know the entity
        const quint64 size = since(DrawingVersion::V2010) ? data.bitLongLong() : data.rawLong();
        data.skip(qMin(size, data.left()) * 8);
    }
    if (!since(DrawingVersion::V2000))
        divide(data.rawLong());
    readProperties(head, entity);
}

void DwgRecord::readProperties(DwgHead& head, DwgEntityHead& entity)
{
    const quint32 mode = data.bits(2);
    entity.space = static_cast<DwgEntityHead::Space>(qMin(mode, 2u));
    head.owner = mode == 0 ? reference() : 0;
    readReferences(head);
    if (since(DrawingVersion::V2013))
        data.bit();
    if (!since(DrawingVersion::V2000)) {
        readLayer(entity);
        entity.linetypeKind = data.bit() ? 0 : 3;
        entity.linetype = entity.linetypeKind == 3 ? reference() : 0;
    }
    readLinks(head, entity);
    readEntityColor(entity);
    entity.linetypeScale = data.bitDouble();
    if (!since(DrawingVersion::V2000)) {
        entity.invisible = (data.bitShort() & 1) != 0;
        entity.lineWeight = -1;
        return;
    }
    readLayer(entity);
    entity.linetypeKind = static_cast<quint8>(data.bits(2));
    entity.linetype = entity.linetypeKind == 3 ? reference() : 0;
    if (since(DrawingVersion::V2007)) {
        if (data.bits(2) == 3)
            reference(); // material
        data.rawChar(); // shadows
    }
    if (data.bits(2) == 3)
        reference(); // plot style
    if (since(DrawingVersion::V2010)) {
        for (int style = 0; style < 3; ++style) { // visual styles: whole, faces, edges
            if (data.bit())
                reference();
        }
    }
    entity.invisible = (data.bitShort() & 1) != 0;
    entity.lineWeight = dwgLineWeight(data.rawChar());
}

void DwgRecord::readLayer(DwgEntityHead& entity)
{
    entity.layerAt.begin = handles.position();
    entity.layer = reference();
    entity.layerAt.end = handles.position();
}

void DwgRecord::readLinks(const DwgHead& head, DwgEntityHead& entity)
{
    entity.previous = entity.next = 0;
    if (since(DrawingVersion::V2004))
        return;
    entity.closeNeighbours.begin = data.position();
    const bool close = data.bit();
    entity.closeNeighbours.end = data.position();
    entity.linksAt.begin = handles.position();
    entity.previous = close ? head.handle - 1 : reference();
    entity.next = close ? head.handle + 1 : reference();
    entity.linksAt.end = handles.position();
}

void DwgRecord::readEntityColor(DwgEntityHead& entity)
{
    constexpr quint32 kTrueColor = 0x8000;
    constexpr quint32 kBookColor = 0x4000;
    constexpr quint32 kTransparency = 0x2000;
    constexpr quint32 kIndex = 0x1FF;

    const auto flags = static_cast<quint16>(data.bitShort());
    entity.bookColor = 0;
    entity.transparency = 0;
    if (!since(DrawingVersion::V2004)) {
        entity.color = OdCmColor::fromIndex(flags);
        return;
    }
    entity.color = OdCmColor::fromIndex(static_cast<int>(flags & kIndex));
    if ((flags & kBookColor) != 0) {
        entity.bookColor = reference();
    } else if ((flags & kTrueColor) != 0) {
        const auto packed = static_cast<quint32>(data.bitLong());
        entity.color = OdCmColor::fromRgb(packed >> 16 & 0xFF, packed >> 8 & 0xFF, packed & 0xFF);
    }
    if ((flags & kTransparency) != 0)
        entity.transparency = static_cast<quint32>(data.bitLong());
}
