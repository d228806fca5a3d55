#include "database/streams/OdMemoryStream.h"
#include "database/values/OdError.h"

#include <QByteArray>

#include <gtest/gtest.h>

namespace {

void put(OdStreamBuf& stream, const QByteArray& bytes)
{
    stream.putBytes(bytes.constData(), static_cast<quint64>(bytes.size()));
}

QByteArray get(OdStreamBuf& stream, int count)
{
    QByteArray bytes(count, '\0');
    stream.getBytes(bytes.data(), static_cast<quint64>(count));
    return bytes;
}

TEST(MemoryStream, IsEmptyAtFirst)
{
    const OdStreamBufPtr stream = OdMemoryStream::createNew();
    EXPECT_EQ(stream->length(), 0u);
    EXPECT_TRUE(stream->isEof());
    EXPECT_THROW(stream->getByte(), OdError);
    EXPECT_EQ(OdMemoryStream::createNew()->pageSize(), 2048u);
    EXPECT_THROW(OdMemoryStream::createNew(0), OdError);
}

TEST(MemoryStream, GivesBackWhatWasPutAcrossPages)
{
    for (const quint32 pageSize : {1u, 3u, 7u, 2048u}) {
        const auto stream = OdMemoryStream::createNew(pageSize);
        put(*stream, "layer");
        put(*stream, " states");
        EXPECT_EQ(stream->length(), 12u);
        EXPECT_EQ(stream->pageCount(), (12 + pageSize - 1) / pageSize);
        EXPECT_EQ(stream->seek(0, OdDb::kSeekFromStart), 0u);
        EXPECT_EQ(get(*stream, 12), "layer states");
        EXPECT_TRUE(stream->isEof());
    }
}

TEST(MemoryStream, OverwritesInTheMiddleAndGrowsAtTheEnd)
{
    const auto stream = OdMemoryStream::createNew(4);
    put(*stream, "0123456789");
    stream->seek(-3, OdDb::kSeekFromEnd);
    put(*stream, "abcde");
    stream->seek(1, OdDb::kSeekFromStart);
    stream->putByte('-');
    EXPECT_EQ(stream->tell(), 2u);
    stream->seek(-2, OdDb::kSeekFromCurrent);
    EXPECT_EQ(get(*stream, 12), "0-23456abcde");
}

TEST(MemoryStream, KeepsItsPlaceWhenAReadOrSeekFails)
{
    const auto stream = OdMemoryStream::createNew(4);
    put(*stream, "0123456789");
    stream->seek(8, OdDb::kSeekFromStart);
    char buffer[4];
    EXPECT_THROW(stream->getBytes(buffer, 3), OdError);
    EXPECT_THROW(stream->seek(-9, OdDb::kSeekFromCurrent), OdError);
    EXPECT_THROW(stream->seek(1, OdDb::kSeekFromEnd), OdError);
    EXPECT_THROW(stream->seek(std::numeric_limits<qint64>::min(), OdDb::kSeekFromEnd), OdError);
    EXPECT_THROW(stream->getBytes(buffer, std::numeric_limits<quint64>::max()), OdError);
    EXPECT_EQ(stream->tell(), 8u);
    EXPECT_EQ(stream->getByte(), '8');
}

TEST(MemoryStream, IsCutOffWhereItStands)
{
    const auto stream = OdMemoryStream::createNew(4);
    put(*stream, "0123456789");
    stream->seek(5, OdDb::kSeekFromStart);
    stream->truncate();
    EXPECT_EQ(stream->length(), 5u);
    EXPECT_EQ(stream->pageCount(), 2u);
    EXPECT_TRUE(stream->isEof());
    put(*stream, "xyz");
    stream->seek(0, OdDb::kSeekFromStart);
    EXPECT_EQ(get(*stream, 8), "01234xyz");
    stream->seek(0, OdDb::kSeekFromStart);
    stream->truncate();
    EXPECT_EQ(stream->pageCount(), 0u);
}

TEST(MemoryStream, IsCounted)
{
    OdStreamBufPtr first = OdMemoryStream::createNew();
    const OdStreamBufPtr second = first;
    EXPECT_EQ(second->numRefs(), 2);
    first.reset();
    EXPECT_EQ(second->numRefs(), 1);
}

} // namespace
