#include "SavingFixture.h"
#include "io/files/ContentHash.h"
#include "io/files/ReadBack.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

class ReadingBack : public SavingFixture
{
protected:
    /// What the comparison says when the file holds other bytes than meant.
    std::string difference(const QByteArray& meant, const QByteArray& held)
    {
        put(path("file"), held);
        const std::array parts{QByteArrayView(meant)};
        ReadBack readBack(path("file"), parts);
        return readBack.finish().toStdString();
    }
};

QByteArray pattern(qsizetype size)
{
    QByteArray bytes(size, '\0');
    for (qsizetype i = 0; i < size; ++i)
        bytes[i] = static_cast<char>(i * 7 + (i >> 8));
    return bytes;
}

TEST_F(ReadingBack, WhatWasMeantPasses)
{
    EXPECT_EQ(difference({}, {}), "");
    EXPECT_EQ(difference("drawing", "drawing"), "");
    EXPECT_EQ(difference(pattern(1000003), pattern(1000003)), "");
}

TEST_F(ReadingBack, OneOtherByteAnywhereIsFound)
{
    const QByteArray meant = pattern(600000);
    for (const qsizetype place : {0, 1, 262143, 262144, 599999}) {
        QByteArray held = meant;
        held[place] = static_cast<char>(held[place] ^ 1);
        EXPECT_NE(difference(meant, held), "") << place;
    }
    EXPECT_EQ(difference("abc", "abd"), "the bytes from 0 to 3 differ from what was written");
}

TEST_F(ReadingBack, AnotherLengthIsFound)
{
    EXPECT_EQ(difference("abcdef", "abc"), "it ends at byte 3 of 6");
    EXPECT_EQ(difference("abc", "abcdef"), "it holds 6 bytes, expected 3");
}

TEST_F(ReadingBack, AFileThatIsGoneIsToldAsSuch)
{
    const std::array parts{QByteArrayView("abc")};
    ReadBack readBack(path("absent"), parts);
    EXPECT_EQ(readBack.finish().toStdString(), "No such file or directory");
}

TEST_F(ReadingBack, PartsOfAnySizeAreOneRow)
{
    const QByteArray whole = pattern(700000);
    std::vector<QByteArrayView> parts;
    for (qsizetype at = 0; at < whole.size();) {
        const qsizetype size = std::min<qsizetype>(1 + (at * 13) % 40000, whole.size() - at);
        parts.push_back(QByteArrayView(whole).sliced(at, size));
        parts.push_back(QByteArrayView(whole).sliced(at, 0));
        at += size;
    }
    put(path("file"), whole);
    ReadBack readBack(path("file"), parts);
    EXPECT_EQ(readBack.finish().toStdString(), "");
    EXPECT_EQ(readBack.contentHash(), ContentHash::of(whole));
}

TEST(ContentHash, IsTheSameInWhateverPortions)
{
    const QByteArray bytes = pattern(1000);
    const quint64 whole = ContentHash::of(bytes);
    for (qsizetype step = 1; step < 100; ++step) {
        ContentHash hash;
        for (qsizetype at = 0; at < bytes.size(); at += step)
            hash.add(QByteArrayView(bytes).sliced(at, std::min(step, bytes.size() - at)));
        EXPECT_EQ(hash.result(), whole) << step;
    }
}

TEST(ContentHash, TellsEveryBitAndEveryLengthApart)
{
    const QByteArray bytes(100, '\0');
    std::vector<quint64> sums{ContentHash::of(bytes)};
    for (qsizetype bit = 0; bit < 800; ++bit) {
        QByteArray other = bytes;
        other[bit / 8] = static_cast<char>(1 << (bit % 8));
        sums.push_back(ContentHash::of(other));
    }
    for (qsizetype size = 0; size < 100; ++size)
        sums.push_back(ContentHash::of(bytes.first(size)));
    const std::size_t count = sums.size();
    std::sort(sums.begin(), sums.end());
    sums.erase(std::unique(sums.begin(), sums.end()), sums.end());
    EXPECT_EQ(sums.size(), count);
}

TEST(ContentHash, IsTheSameEverywhere)
{
    EXPECT_EQ(ContentHash::of("LAYER"), 0x2C43222BA406D65Au);
}

} // namespace
