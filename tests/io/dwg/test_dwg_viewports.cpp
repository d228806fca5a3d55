#include "io/dwg/bits/BitWriter.h"
#include "io/dwg/bits/Checksums.h"
#include "io/dwg/records/SheetRecords.h"

#include <QtEndian>

#include <gtest/gtest.h>

namespace {

constexpr quint64 kApplication = 0x12;

void appendLayer(BitWriter& out, quint64 handle)
{
    out.rawChar(3); // group 1003
    out.rawLongLong(qbswap(handle));
}

void appendBrace(BitWriter& out, bool opens)
{
    out.rawChar(2); // group 1002
    out.rawChar(opens ? 0 : 1);
}

/// Layers that a viewport of R14 with these extended data has frozen.
std::vector<quint64> frozenIn(const BitWriter& xData)
{
    constexpr qint16 kViewport = 34;
    BitWriter body;
    body.bitShort(kViewport);
    body.handle(DwgReference::Own, 0x24);
    DwgHead head;
    head.handle = 0x24;
    head.xData.begin = body.size();
    body.bitShort(static_cast<qint16>(xData.size() / 8));
    body.handle(DwgReference::HardPointer, kApplication);
    body.append(xData);
    body.bitShort(0);
    head.xData.end = body.size();
    body.fillByte(false);
    BitWriter whole;
    whole.modularShort(static_cast<quint32>(body.bytes().size()));
    whole.raw(body.bytes());
    whole.rawShort(Checksums::crc16(whole.bytes()));
    const QByteArray bytes = whole.bytes() + QByteArray(16, '\0');
    const DwgFormat format = DwgFormat::of(DrawingVersion::R14, 30);
    DwgRecord record(format, bytes);
    EXPECT_TRUE(record.open(0));
    return SheetRecords::frozenInXData(record, head);
}

TEST(DwgViewports, OldOnesHaveTheirFrozenLayersInsideTheSecondPairOfBraces)
{
    BitWriter xData;
    xData.rawChar(0); // group 1000
    xData.rawShort(5);
    xData.rawChar(30);
    xData.raw("MVIEW");
    appendBrace(xData, true);
    xData.rawChar(70); // group 1070
    xData.rawShort(16);
    appendLayer(xData, 0x99); // none that is frozen
    appendBrace(xData, true);
    appendLayer(xData, 0x10);
    appendLayer(xData, 0x1A2B);
    appendBrace(xData, false);
    appendLayer(xData, 0x98);
    appendBrace(xData, false);
    EXPECT_EQ(frozenIn(xData), (std::vector<quint64>{0x10, 0x1A2B}));
}

TEST(DwgViewports, OldOnesWithoutSuchDataHaveNoFrozenLayers)
{
    BitWriter xData;
    appendBrace(xData, true);
    appendLayer(xData, 0x10);
    appendBrace(xData, false);
    EXPECT_EQ(frozenIn(xData), std::vector<quint64>());
    EXPECT_EQ(frozenIn(BitWriter()), std::vector<quint64>());
}

} // namespace
