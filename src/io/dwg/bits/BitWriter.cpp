#include "io/dwg/bits/BitWriter.h"

#include "io/dwg/bits/ModularChar.h"

#include <algorithm>

void BitWriter::bits(quint32 value, unsigned count)
{
    while (count > 0) {
        const unsigned used = m_size & 7;
        if (used == 0)
            m_bytes.append('\0');
        const unsigned part = std::min(count, 8 - used);
        count -= part;
        const quint32 chunk = value >> count & ((1u << part) - 1);
        m_bytes.back() =
            static_cast<char>(m_bytes.back() | static_cast<char>(chunk << (8 - used - part)));
        m_size += part;
    }
}

void BitWriter::rawShort(quint16 value)
{
    rawChar(static_cast<quint8>(value));
    rawChar(static_cast<quint8>(value >> 8));
}

void BitWriter::rawLong(quint32 value)
{
    rawShort(static_cast<quint16>(value));
    rawShort(static_cast<quint16>(value >> 16));
}

void BitWriter::rawLongLong(quint64 value)
{
    rawLong(static_cast<quint32>(value));
    rawLong(static_cast<quint32>(value >> 32));
}

void BitWriter::bitShort(qint16 value)
{
    if (value == 0) {
        bits(2, 2);
    } else if (value == 256) {
        bits(3, 2);
    } else if (value > 0 && value < 256) {
        bits(1, 2);
        rawChar(static_cast<quint8>(value));
    } else {
        bits(0, 2);
        rawShort(static_cast<quint16>(value));
    }
}

void BitWriter::bitLong(qint32 value)
{
    if (value == 0) {
        bits(2, 2);
    } else if (value > 0 && value < 256) {
        bits(1, 2);
        rawChar(static_cast<quint8>(value));
    } else {
        bits(0, 2);
        rawLong(static_cast<quint32>(value));
    }
}

void BitWriter::bitDouble(double value)
{
    const auto pattern = std::bit_cast<quint64>(value);
    if (pattern == 0) {
        bits(2, 2);
    } else if (pattern == std::bit_cast<quint64>(1.0)) {
        bits(1, 2);
    } else {
        bits(0, 2);
        rawDouble(value);
    }
}

void BitWriter::bitDouble(double value, double standard)
{
    // The upper bytes that both have are left out: all, four or two.
    const auto pattern = std::bit_cast<quint64>(value);
    const quint64 differs = pattern ^ std::bit_cast<quint64>(standard);
    if (differs == 0) {
        bits(0, 2);
    } else if (differs >> 32 == 0) {
        bits(1, 2);
        rawLong(static_cast<quint32>(pattern));
    } else if (differs >> 48 == 0) {
        bits(2, 2);
        rawShort(static_cast<quint16>(pattern >> 32));
        rawLong(static_cast<quint32>(pattern));
    } else {
        bits(3, 2);
        rawDouble(value);
    }
}

void BitWriter::modularChar(quint64 value)
{
    ModularChar::spell(value, [this](quint8 byte) { rawChar(byte); });
}

void BitWriter::signedModularChar(qint64 value)
{
    ModularChar::spellSigned(value, [this](quint8 byte) { rawChar(byte); });
}

void BitWriter::modularShort(quint32 value)
{
    if (value > 0x7FFF) {
        rawShort(static_cast<quint16>(value | 0x8000));
        value >>= 15;
    }
    rawShort(static_cast<quint16>(value));
}

void BitWriter::handle(DwgHandle handle)
{
    const auto length = static_cast<unsigned>(71 - std::countl_zero(handle.value)) / 8;
    bits(handle.code, 4);
    bits(length, 4);
    for (unsigned i = length; i > 0; --i)
        rawChar(static_cast<quint8>(handle.value >> (8 * (i - 1))));
}

void BitWriter::raw(QByteArrayView bytes)
{
    append(bytes, 0, static_cast<quint64>(bytes.size()) * 8);
}

void BitWriter::append(QByteArrayView bytes, quint64 from, quint64 end)
{
    if (from >= end)
        return;
    const auto* data = reinterpret_cast<const uchar*>(bytes.data());
    if (((from | m_size) & 7) == 0) {
        m_bytes.append(bytes.data() + from / 8, static_cast<qsizetype>((end - from) / 8));
        m_size += (end - from) & ~quint64(7);
        from = end & ~quint64(7);
    }
    while (from < end) {
        const unsigned used = from & 7;
        const auto count = static_cast<unsigned>(std::min<quint64>(8 - used, end - from));
        bits(data[from / 8] >> (8 - used - count), count);
        from += count;
    }
}
