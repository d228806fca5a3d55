#pragma once

#include "io/dwg/bits/DwgHandle.h"

#include <QByteArray>
#include <QByteArrayView>

#include <bit>

/// Writes the bit codes of a DWG file, each in its shortest form.
class BitWriter
{
public:
    quint64 size() const { return m_size; } ///< bits
    /// The bits so far, the last byte filled up with zeros.
    const QByteArray& bytes() const { return m_bytes; }

    void bit(bool value) { bits(value ? 1 : 0, 1); } ///< B
    /// The lowest 1 to 32 bits of a value, the highest one first.
    void bits(quint32 value, unsigned count);
    void rawChar(quint8 value) { bits(value, 8); } ///< RC
    void rawShort(quint16 value); ///< RS
    void rawLong(quint32 value); ///< RL
    void rawLongLong(quint64 value);
    void rawDouble(double value) { rawLongLong(std::bit_cast<quint64>(value)); } ///< RD
    void bitShort(qint16 value); ///< BS
    void bitLong(qint32 value); ///< BL
    void bitDouble(double value); ///< BD
    void bitDouble(double value, double standard); ///< DD
    void modularChar(quint64 value); ///< UMC
    void signedModularChar(qint64 value); ///< MC
    void modularShort(quint32 value); ///< MS
    void handle(DwgHandle handle); ///< H
    void handle(DwgReference kind, quint64 value)
    {
        handle(DwgHandle{static_cast<quint8>(kind), value});
    }
    void raw(QByteArrayView bytes);
    /// The bits [from, end) of some bytes.
    void append(QByteArrayView bytes, quint64 from, quint64 end);
    void append(const BitWriter& other) { append(other.m_bytes, 0, other.m_size); }
    /// Fills up the last byte with zeros or ones.
    void fillByte(bool ones) { bits(ones ? 0xFFu : 0u, static_cast<unsigned>(-m_size & 7)); }

private:
    QByteArray m_bytes;
    quint64 m_size = 0;
};
