#pragma once

#include <QHashFunctions>

/// Line properties of an entity as it states them.
struct Pen
{
    static constexpr quint32 kByLayer = 0xFFFFFFFFu;
    static constexpr quint32 kByBlock = 0xFFFFFFFEu;
    static constexpr quint32 kContinuous = 0; ///< index of the linetype without gaps

    quint32 linetype = kByLayer; ///< index into the scene's linetypes
    int weight = -1; ///< hundredths of a millimetre, or one of OdDb::LineWeight
    quint32 transparency = 0; ///< as stored: 0 by layer, 0x01... by block, 0x02000000 + alpha
    double scale = 1; ///< of the linetype

    friend bool operator==(const Pen&, const Pen&) = default;
};

inline size_t qHash(const Pen& pen, size_t seed = 0)
{
    return qHashMulti(seed, pen.linetype, pen.weight, pen.transparency, pen.scale);
}
