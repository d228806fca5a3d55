#pragma once

#include <QHashFunctions>

/// Layer, colour and pen of an item as the entity states them; what they look like is found out
/// when painting, so that no change of a layer touches geometry.
struct Style
{
    quint32 layer = 0; ///< index into the scene's layers; 0 is the layer "0"
    quint32 colour = 0; ///< packed as OdCmColor::color()
    quint32 pen = 0; ///< index into the scene's pens; 0: everything by layer

    friend bool operator==(Style, Style) = default;
};

inline size_t qHash(Style style, size_t seed = 0)
{
    return qHashMulti(seed, style.layer, style.colour, style.pen);
}
