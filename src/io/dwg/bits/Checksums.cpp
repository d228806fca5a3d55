#include "io/dwg/bits/Checksums.h"

#include <array>

namespace {

template <class Word>
constexpr std::array<Word, 256> tableOf(Word polynomial)
{
    std::array<Word, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        Word value = static_cast<Word>(byte);
        for (int bit = 0; bit < 8; ++bit)
            value = static_cast<Word>((value & 1) != 0 ? value >> 1 ^ polynomial : value >> 1);
        table[byte] = value;
    }
    return table;
}

template <class Word>
Word sum(QByteArrayView bytes, Word value, const std::array<Word, 256>& table)
{
    for (const char byte : bytes)
        value = static_cast<Word>(
            value >> 8
            ^ table[static_cast<std::size_t>((value ^ static_cast<uchar>(byte)) & 0xFF)]);
    return value;
}

constexpr auto kTable16 = tableOf<quint16>(0xA001);
constexpr auto kTable32 = tableOf<quint32>(0xEDB88320u);

} // namespace

quint16 Checksums::crc16(QByteArrayView bytes, quint16 seed)
{
    return sum(bytes, seed, kTable16);
}

quint32 Checksums::crc32(QByteArrayView bytes, quint32 seed)
{
    return ~sum(bytes, ~seed, kTable32);
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
