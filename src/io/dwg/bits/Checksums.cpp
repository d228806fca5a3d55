#include "io/dwg/bits/Checksums.h"

#include <QtEndian>

#include <array>

namespace {

/// A step of the sum takes eight bytes: entry [n][byte] is what the byte does to the sum when n
/// more follow it.
constexpr std::size_t kStep = 8;
template <class Word>
using Tables = std::array<std::array<Word, 256>, kStep>;

template <class Word>
constexpr Tables<Word> tablesOf(Word polynomial)
{
    Tables<Word> tables{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        Word value = static_cast<Word>(byte);
        for (int bit = 0; bit < 8; ++bit)
            value = static_cast<Word>((value & 1) != 0 ? value >> 1 ^ polynomial : value >> 1);
        tables[0][byte] = value;
    }
    for (std::size_t after = 1; after < kStep; ++after) {
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const Word before = tables[after - 1][byte];
            tables[after][byte] = static_cast<Word>(before >> 8 ^ tables[0][before & 0xFF]);
        }
    }
    return tables;
}

template <class Word>
Word sum(QByteArrayView bytes, Word value, const Tables<Word>& tables)
{
    const char* at = bytes.begin();
    for (; bytes.end() - at >= static_cast<qsizetype>(kStep); at += kStep) {
        quint64 word = qFromLittleEndian<quint64>(at) ^ value;
        value = 0;
        for (std::size_t after = kStep; after-- > 0; word >>= 8)
            value ^= tables[after][word & 0xFF];
    }
    for (; at != bytes.end(); ++at)
        value = static_cast<Word>(
            value >> 8
            ^ tables[0][static_cast<std::size_t>((value ^ static_cast<uchar>(*at)) & 0xFF)]);
    return value;
}

constexpr auto kTables16 = tablesOf<quint16>(0xA001);
constexpr auto kTables32 = tablesOf<quint32>(0xEDB88320u);

} // namespace

quint16 Checksums::crc16(QByteArrayView bytes, quint16 seed)
{
    return sum(bytes, seed, kTables16);
}

quint32 Checksums::crc32(QByteArrayView bytes, quint32 seed)
{
    return ~sum(bytes, ~seed, kTables32);
}

quint32 Checksums::page(QByteArrayView bytes, quint32 seed)
{
    constexpr quint32 kModulus = 0xFFF1;
    constexpr qsizetype kLongestRun = 0x15B0; // no overflow in 32 bits
    quint32 low = seed & 0xFFFF;
    quint32 high = seed >> 16;
    for (qsizetype from = 0; from < bytes.size(); from += kLongestRun) {
        for (const char byte : bytes.sliced(from, qMin(kLongestRun, bytes.size() - from))) {
            low += static_cast<uchar>(byte);
            high += low;
        }
        low %= kModulus;
        high %= kModulus;
    }
    return high << 16 | low;
}
