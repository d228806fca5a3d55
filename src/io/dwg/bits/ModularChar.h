#pragma once

#include <QtGlobal>

/// Numbers spelled seven bits a byte, the lowest ones first; the highest bit of a byte tells that
/// another one follows.
namespace ModularChar {

/// Gives `put` each byte.
template <class Put>
void spell(quint64 value, Put put)
{
    for (; value > 0x7F; value >>= 7)
        put(static_cast<quint8>(value | 0x80));
    put(static_cast<quint8>(value));
}

/// The same with the sign in the second highest bit of the last byte.
template <class Put>
void spellSigned(qint64 value, Put put)
{
    constexpr quint8 kNegative = 0x40;
    auto rest = static_cast<quint64>(value < 0 ? -value : value);
    for (; rest > 0x3F; rest >>= 7)
        put(static_cast<quint8>(rest | 0x80));
    put(static_cast<quint8>(rest | (value < 0 ? kNegative : 0)));
}

} // namespace ModularChar
