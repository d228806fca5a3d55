#include "io/dwg/container/CodedBlocks2007.h"
#include "io/dwg/container/Lz77Of2007.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace {

std::string unpacked(QByteArrayView packed, qsizetype size)
{
    QByteArray out(size, '\0');
    const qsizetype got = Lz77Of2007::unpack(packed, out.data(), size);
    return got < 0 ? std::string("broken") : out.first(got).toStdString();
}

std::string unpackedHex(const char* hex, qsizetype size)
{
    return unpacked(QByteArray::fromHex(hex), size);
}

TEST(Lz77Of2007, PlainRunsStandInPartsWithTheLastOneFirst)
{
    // 8 bytes are one part; 11 are the last two one by one, eight, and the first.
    EXPECT_EQ(unpacked(QByteArrayView("\0abcdefgh", 9), 20), "abcdefgh");
    EXPECT_EQ(unpacked("\3kj", 20), "broken");
    EXPECT_EQ(unpacked(QByteArrayView("\3abcdefghijk", 12), 20), "kjbcdefghia");
    // 32 bytes are four parts of eight, then three bytes more: one by one.
    EXPECT_EQ(unpacked(QByteArrayView("\x0F\x0C"
                                      "aaaaaaaabbbbbbbbccccccccddddddddxyz",
                                      37),
                       40),
              "ddddddddccccccccbbbbbbbbaaaaaaaazyx");
}

TEST(Lz77Of2007, NoRunLosesOrDoublesAByte)
{
    for (int length = 8; length < 23; ++length) {
        QByteArray packed(1, static_cast<char>(length - 8));
        for (int i = 0; i < length; ++i)
            packed.append(static_cast<char>('a' + i));
        std::string run = unpacked(packed, length);
        std::sort(run.begin(), run.end());
        EXPECT_EQ(run, packed.sliced(1).toStdString());
    }
}

TEST(Lz77Of2007, CopiesOfEachKindTakeWhatCameBefore)
{
    // Three bytes from eight back, and no more plain bytes.
    EXPECT_EQ(unpackedHex("00 6162636465666768 3700", 20), "abcdefghabc");
    // 19 and more, overlapping themselves.
    EXPECT_EQ(unpackedHex("00 6162636465666768 0000 00", 40), "abcdefgh" + std::string(19, 'h'));
    // 3 to 18.
    EXPECT_EQ(unpackedHex("00 6162636465666768 1107 00", 20), "abcdefghabcd");
    // A distance of two bytes; the length goes on in the last one.
    EXPECT_EQ(unpackedHex("00 6162636465666768 23 0400 08", 20), "abcdefghefghefghefg");
    // The same with a length of 256 and more.
    EXPECT_EQ(unpackedHex("00 6162636465666768 28 0000 01 00", 300),
              "abcdefgh" + std::string(264, 'h'));
    // A short copy and a plain run of two, which stands backwards.
    EXPECT_EQ(unpackedHex("00 6162636465666768 3702 7879", 20), "abcdefghabcyx");
    // Copies in a row, the second one of 19 bytes with its other code.
    EXPECT_EQ(unpackedHex("00 6162636465666768 3700 F0 07 00", 40),
              "abcdefghabcdefghabcdefghabcdef");
}

TEST(Lz77Of2007, WhatReachesOutsideIsBroken)
{
    EXPECT_EQ(unpacked("", 20), "broken");
    EXPECT_EQ(unpackedHex("00 61626364", 20),
              "broken"); // eight plain bytes, of which four are there
    EXPECT_EQ(unpackedHex("00 6162636465666768", 7), "broken"); // no room
    EXPECT_EQ(unpackedHex("00 6162636465666768 3800", 20), "broken"); // nine back
    EXPECT_EQ(unpackedHex("00 6162636465666768 3700", 10), "broken"); // no room for a copy
    EXPECT_EQ(unpackedHex("00 6162636465666768 37", 20), "broken"); // half an operation
    EXPECT_EQ(unpackedHex("10 6162636465666768", 20), "broken"); // starts with a copy
}

TEST(Lz77Of2007, AnyBytesStayWithinTheirRoom)
{
    std::mt19937 random(7);
    constexpr qsizetype kRoom = 4096;
    constexpr char kMark = 0x5A;
    int whole = 0;
    for (int round = 0; round < 20000; ++round) {
        QByteArray packed(1 + static_cast<qsizetype>(random() % 200), Qt::Uninitialized);
        for (char& byte : packed)
            byte = static_cast<char>(random());
        packed[0] = static_cast<char>(packed[0] & 0x0F);
        QByteArray out(kRoom + 64, kMark);
        const qsizetype got = Lz77Of2007::unpack(packed, out.data(), kRoom);
        ASSERT_LE(got, kRoom);
        ASSERT_TRUE(out.sliced(kRoom) == QByteArray(64, kMark));
        whole += got > 0 ? 1 : 0;
    }
    EXPECT_GT(whole, 0);
}

/// Interleaves blocks that are written one behind the other.
QByteArray interleaved(const QByteArray& blocks)
{
    const qsizetype count = blocks.size() / CodedBlocks2007::kBlockSize;
    QByteArray coded;
    for (qsizetype i = 0; i < CodedBlocks2007::kBlockSize; ++i) {
        for (qsizetype block = 0; block < count; ++block)
            coded.append(blocks[block * CodedBlocks2007::kBlockSize + i]);
    }
    return coded;
}

TEST(CodedBlocks2007, DataOfTheBlocksComeOneBehindTheOther)
{
    QByteArray blocks;
    for (int i = 0; i < 2 * 255; ++i)
        blocks.append(static_cast<char>(i < 255 ? i : 2 * i));
    const QByteArray coded = interleaved(blocks);
    EXPECT_TRUE(CodedBlocks2007(CodedBlocks2007::System).data(coded)
                == blocks.first(239) + blocks.sliced(255, 239));
    EXPECT_TRUE(CodedBlocks2007(CodedBlocks2007::Data).data(coded)
                == blocks.first(251) + blocks.sliced(255, 251));
}

TEST(CodedBlocks2007, SizesAreThoseOfWholeBlocks)
{
    const CodedBlocks2007 blocks(CodedBlocks2007::Data);
    EXPECT_EQ(blocks.codedSize(0), 0u);
    EXPECT_EQ(blocks.codedSize(1), 255u);
    EXPECT_EQ(blocks.codedSize(251), 255u);
    EXPECT_EQ(blocks.codedSize(252), 510u);
}

/// The product of (x - power) for powers 1 to `roots` of x in the field: a sound block, its lowest
/// coefficient first.
QByteArray generator(unsigned polynomial, int roots)
{
    const auto twice = [&](unsigned value) {
        return (value & 0x80) != 0 ? (value << 1) ^ polynomial : value << 1;
    };
    const auto product = [&](unsigned a, unsigned b) {
        unsigned sum = 0;
        for (; b != 0; b >>= 1, a = twice(a))
            sum ^= (b & 1) != 0 ? a : 0;
        return sum;
    };
    std::vector<unsigned> made = {1};
    unsigned root = 1;
    for (int i = 0; i < roots; ++i) {
        root = twice(root);
        std::vector<unsigned> next(made.size() + 1);
        for (std::size_t j = 0; j < made.size(); ++j) {
            next[j] ^= product(made[j], root);
            next[j + 1] ^= made[j];
        }
        made = next;
    }
    QByteArray block(CodedBlocks2007::kBlockSize, '\0');
    for (std::size_t i = 0; i < made.size(); ++i)
        block[static_cast<qsizetype>(i)] = static_cast<char>(made[i]);
    return block;
}

TEST(CodedBlocks2007, OneWrongBitInAnyBlockIsNoticed)
{
    struct Case
    {
        CodedBlocks2007::Kind kind;
        unsigned polynomial;
        int roots;
    };
    for (const Case& code :
         {Case{CodedBlocks2007::System, 0x169, 16}, Case{CodedBlocks2007::Data, 0x11D, 4}})
    {
        const CodedBlocks2007 blocks(code.kind);
        const QByteArray block = generator(code.polynomial, code.roots);
        const QByteArray moved = block.last(40) + block.chopped(40); // times a power of x
        const QByteArray sound = interleaved(block + moved + block);
        EXPECT_TRUE(blocks.areSound(sound));
        for (qsizetype at = 0; at < sound.size(); at += 7) {
            QByteArray wrong = sound;
            wrong[at] = static_cast<char>(wrong[at] ^ 1 << at % 8);
            EXPECT_FALSE(blocks.areSound(wrong)) << at;
        }
    }
}

} // namespace
