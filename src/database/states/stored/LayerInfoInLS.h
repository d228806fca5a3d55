#pragma once

#include "database/values/GroupList.h"
#include "database/values/OdCmColor.h"
#include "database/values/OdDbObjectId.h"

#include <QString>

#include <optional>

/// One layer inside a layer state.
struct LayerInfoInLS
{
    enum Flag : quint32 {
        kOn = 0x01, ///< the stored form has this bit the other way round
        kFrozen = 0x02,
        kLocked = 0x04,
        kPlottable = 0x08,
        kFrozenInNewViewports = 0x10,
        kFrozenInViewport = 0x20, ///< in the viewport that was active when the state was saved
    };

    QString name; ///< of the layer now, or as stored where the drawing has no such layer
    QString plotStyleName;
    OdDbObjectId layerId; ///< null when the layer is gone
    OdDbObjectId linetypeId; ///< null when the linetype is gone
    quint32 flags = kOn | kPlottable;
    qint32 color = 7; ///< index
    qint32 lineWeight = -3;

    std::optional<quint32> transparency; ///< as layers store it; nothing in states of old programs
    /// Packed true colour or index colour with method byte, and the index that went with it: the
    /// packed value counts as long as `color` still is that index.
    std::optional<quint32> packedColor;
    qint32 packedColorIndex = 0;
    QString bookName;
    /// The entry's groups as they were read, so that what this program does not know stays; empty
    /// for an entry made new.
    GroupList stored;

    bool has(Flag flag) const { return (flags & flag) != 0; }
    /// The saved colour with all that is known of it.
    OdCmColor fullColor() const
    {
        if (!packedColor || packedColorIndex != color)
            return OdCmColor::fromIndex(color);
        const OdCmColor packed = OdCmColor::fromPacked(*packedColor);
        return bookName.isEmpty()
            ? packed
            : OdCmColor::fromRgb(int(*packedColor >> 16 & 0xFF), int(*packedColor >> 8 & 0xFF),
                                 int(*packedColor & 0xFF), bookName);
    }
    void setFullColor(const OdCmColor& value)
    {
        color = packedColorIndex = value.colorIndex();
        packedColor.reset();
        if (value.colorMethod() == OdCmColor::kByColor)
            packedColor = value.color();
        bookName = value.bookName();
    }
};
