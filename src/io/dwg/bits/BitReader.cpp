#include "io/dwg/bits/BitReader.h"

#include <algorithm>

qint16 BitReader::bitShort()
{
    switch (bits(2)) {
    case 0:
        return static_cast<qint16>(rawShort());
    case 1:
        return rawChar();
    case 2:
        return 0;
    default:
        return 256;
    }
}

qint32 BitReader::bitLong()
{
    switch (bits(2)) {
    case 0:
        return static_cast<qint32>(rawLong());
    case 1:
        return rawChar();
    case 2:
        return 0;
    default:
        m_failed = true; // not in use
        return 0;
    }
}

quint64 BitReader::bitLongLong()
{
    quint64 value = 0;
    const unsigned length = bits(3);
    for (unsigned i = 0; i < length; ++i)
        value |= quint64(rawChar()) << (8 * i);
    return value;
}

double BitReader::bitDouble()
{
    switch (bits(2)) {
    case 0:
        return rawDouble();
    case 1:
        return 1.0;
    case 2:
        return 0.0;
    default:
        m_failed = true; // not in use
        return 0.0;
    }
}

double BitReader::bitDouble(double standard)
{
    // The lower bytes are replaced: the first four, or the fifth and sixth and then the first four.
    auto value = std::bit_cast<quint64>(standard);
    switch (bits(2)) {
    case 0:
        return standard;
    case 1:
        value = (value & 0xFFFFFFFF00000000u) | rawLong();
        return std::bit_cast<double>(value);
    case 2: {
        const quint64 middle = rawShort();
        value = (value & 0xFFFF000000000000u) | middle << 32 | rawLong();
        return std::bit_cast<double>(value);
    }
    default:
        return rawDouble();
    }
}

void BitReader::extrusion(bool compact, double (&normal)[3])
{
    if (compact && bit()) {
        normal[0] = normal[1] = 0.0;
        normal[2] = 1.0;
        return;
    }
    for (double& coordinate : normal)
        coordinate = bitDouble();
}

quint64 BitReader::modularChar()
{
    constexpr unsigned kLastShift = 63; // of which one bit is left
    quint64 value = 0;
    for (unsigned shift = 0; shift <= kLastShift; shift += 7) {
        const quint8 byte = rawChar();
        value |= quint64(byte & 0x7F) << shift;
        if ((byte & 0x80) == 0) {
            m_failed |= shift == kLastShift && byte > 1;
            return value;
        }
    }
    m_failed = true;
    return 0;
}

qint64 BitReader::signedModularChar()
{
    qint64 value = 0;
    for (unsigned shift = 0; shift < 63; shift += 7) {
        const quint8 byte = rawChar();
        if ((byte & 0x80) != 0) {
            value |= qint64(byte & 0x7F) << shift;
            continue;
        }
        value |= qint64(byte & 0x3F) << shift;
        return (byte & 0x40) != 0 ? -value : value;
    }
    m_failed = true;
    return 0;
}

quint32 BitReader::modularShort()
{
    const quint32 low = rawShort();
    if ((low & 0x8000) == 0)
        return low;
    return (low & 0x7FFF) | quint32(rawShort() & 0x7FFF) << 15;
}

quint16 BitReader::objectType()
{
    switch (bits(2)) {
    case 0:
        return rawChar();
    case 1:
        return static_cast<quint16>(rawChar() + 0x1F0);
    default:
        return rawShort();
    }
}

DwgHandle BitReader::handle()
{
    DwgHandle handle;
    handle.code = static_cast<quint8>(bits(4));
    const unsigned length = bits(4);
    if (length > 8) {
        m_failed = true;
        return handle;
    }
    // Highest byte first.
    constexpr unsigned kWord = 4;
    if (length > kWord)
        handle.value = quint64(bits(8 * (length - kWord))) << 32;
    if (length > 0)
        handle.value |= bits(8 * std::min(length, kWord));
    return handle;
}

QByteArray BitReader::bytes(quint32 count)
{
    const quint64 at = m_at;
    if (!take(quint64(count) * 8))
        return {};
    const uchar* from = m_data + (at >> 3);
    const unsigned shift = at & 7;
    if (shift == 0)
        return QByteArray(reinterpret_cast<const char*>(from), static_cast<qsizetype>(count));
    QByteArray out(static_cast<qsizetype>(count), Qt::Uninitialized);
    for (qsizetype i = 0; i < out.size(); ++i)
        out[i] = static_cast<char>(from[i] << shift | from[i + 1] >> (8 - shift));
    return out;
}
