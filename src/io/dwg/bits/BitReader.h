#pragma once

#include "io/dwg/bits/DwgHandle.h"

#include <QByteArrayView>
#include <QtEndian>

#include <bit>
#include <cstring>

/// Reads the bit codes of a DWG file, highest bit of a byte first. Behind the bytes there must be
/// kPadding readable ones. Reading past the end gives zeros and is remembered: hasFailed().
class BitReader
{
public:
    static constexpr qsizetype kPadding = 16;

    BitReader() = default;
    explicit BitReader(QByteArrayView bytes)
        : m_data(reinterpret_cast<const uchar*>(bytes.data()))
        , m_end(static_cast<quint64>(bytes.size()) * 8)
    { }

    quint64 position() const { return m_at; } ///< bits from the start
    quint64 end() const { return m_end; }
    quint64 left() const { return m_end - m_at; }
    bool hasFailed() const { return m_failed; }
    void fail() { m_failed = true; }
    /// Past the end is a failure.
    void seek(quint64 bit)
    {
        m_failed |= bit > m_end;
        m_at = qMin(bit, m_end);
    }
    void skip(quint64 bits) { take(bits); }
    /// No reading beyond that bit from here on.
    void limit(quint64 end)
    {
        m_failed |= end > m_end;
        m_end = qMin(end, m_end);
        m_at = qMin(m_at, m_end);
    }

    bool bit() { return bits(1) != 0; } ///< B
    /// The next 1 to 32 bits, the first one highest (BB: 2, 3B: 3).
    quint32 bits(unsigned count)
    {
        const quint64 at = m_at;
        if (!take(count))
            return 0;
        const quint64 word = qFromBigEndian<quint64>(m_data + (at >> 3));
        return static_cast<quint32>((word << (at & 7)) >> (64 - count));
    }
    quint8 rawChar() { return static_cast<quint8>(bits(8)); } ///< RC
    quint16 rawShort() { return qbswap(static_cast<quint16>(bits(16))); } ///< RS
    quint32 rawLong() { return qbswap(bits(32)); } ///< RL
    quint64 rawLongLong() ///< 8 bytes, lowest first
    {
        const quint64 low = rawLong();
        return low | quint64(rawLong()) << 32;
    }
    double rawDouble() { return std::bit_cast<double>(rawLongLong()); } ///< RD

    qint16 bitShort(); ///< BS
    qint32 bitLong(); ///< BL
    quint64 bitLongLong(); ///< BLL
    double bitDouble(); ///< BD
    double bitDouble(double standard); ///< DD
    double thickness(bool compact) { return compact && bit() ? 0.0 : bitDouble(); } ///< BT
    void extrusion(bool compact, double (&normal)[3]); ///< BE
    quint64 modularChar(); ///< UMC
    qint64 signedModularChar(); ///< MC
    quint32 modularShort(); ///< MS
    /// A type of a record since 2010 (BOT).
    quint16 objectType();
    DwgHandle handle(); ///< H
    /// The next `count` bytes as they are, wherever they start; shorter where the record ends.
    QByteArray bytes(quint32 count);

private:
    bool take(quint64 bits)
    {
        if (bits > m_end - m_at) {
            m_failed = true;
            m_at = m_end;
            return false;
        }
        m_at += bits;
        return true;
    }

    const uchar* m_data = nullptr;
    quint64 m_at = 0;
    quint64 m_end = 0;
    bool m_failed = false;
};
