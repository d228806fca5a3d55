#pragma once

#include "database/values/GroupList.h"

#include <optional>

/// One layer of a stored state, by the groups that are there. Texts are views into the state's
/// groups. Of a group that stands there twice the last one counts.
struct StoredLayer
{
    enum Flag : quint32 {
        kOff = 1,
        kFrozen = 2,
        kLocked = 4,
        kPlottable = 8,
        kFrozenInNewViewports = 16,
        kFrozenInViewport = 32,
        kKnownFlags = 63, ///< all of these; others belong to other programs
    };

    quint64 layerHandle = 0; ///< 0 where the state has names, or the layer was gone already
    QByteArrayView layerName; ///< null where the state has handles
    std::optional<quint32> flags;
    std::optional<qint32> colorIndex;
    std::optional<qint32> lineWeight;
    quint64 linetypeHandle = 0;
    QByteArrayView linetypeName;
    QByteArrayView plotStyle;
    std::optional<quint32> transparency;
    std::optional<quint32> packedColor;
    QByteArrayView bookName;

    GroupList::const_iterator begin; ///< its groups
    GroupList::const_iterator end;
};

/// Group codes of a stored state.
namespace StateGroup {
enum Code : int {
    kMask = 91,
    kDescription = 301,
    kInLayout = 290,
    kCurrentLayer = 302,

    kLayerHandle = 330, ///< begins a layer; or:
    kLayerName = 8, ///< begins a layer in states that other programs or files have by name
    kFlags = 90,
    kColorIndex = 62,
    kLineWeight = 370,
    kLinetypeHandle = 331,
    kLinetypeName = 6,
    kPlotStyle = 1,
    kPlotStyleInFile = 2, ///< layer-state files have the plot style here
    kTransparency = 440,
    kPackedColor = 92,
    kBookName = 300,
};
inline bool beginsLayer(int code)
{
    return code == kLayerHandle || code == kLayerName;
}
} // namespace StateGroup
