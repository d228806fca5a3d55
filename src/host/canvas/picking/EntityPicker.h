#pragma once

#include "host/canvas/picking/PickScene.h"

#include <optional>
#include <vector>

/// Finds entities of a space by place; all coordinates are those of the space. What is hidden is
/// never found, what is locked is. A block reference is found as a whole.
class EntityPicker
{
public:
    explicit EntityPicker(const PickScene& picks)
        : m_picks(picks)
    { }

    /// Slot of the entity that comes nearest to a point, if it comes into the square around it.
    /// Strokes go before texts, texts before areas; of equals the one drawn last is taken.
    std::optional<quint32> nearest(Vec2 point, double halfSide) const;
    /// Slots of the entities of which all that can be seen is inside, ascending.
    std::vector<quint32> inside(const Box2& window) const;
    /// Slots of the entities of which something is inside, ascending.
    std::vector<quint32> touched(const Box2& window) const;

private:
    const PickScene& m_picks;
};
