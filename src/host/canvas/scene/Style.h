#pragma once

#include <QtGlobal>

/// Layer and colour of an item as the entity states them; what they look like is found out when
/// painting, so that no change of a layer touches geometry.
struct Style
{
    quint32 layer = 0; ///< index into the scene's layers; 0 is the layer "0"
    quint32 colour = 0; ///< packed as OdCmColor::color()

    friend bool operator==(Style, Style) = default;
    quint64 key() const { return (quint64(layer) << 32) | colour; }
};
