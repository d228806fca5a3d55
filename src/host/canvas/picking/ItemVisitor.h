#pragma once

#include "host/canvas/display/DisplayList.h"

#include <array>

/// Is told about the items of a space. Coordinates are those of the space; `owner` is the slot of
/// the entity of the space that an item belongs to, whatever blocks lie between.
class ItemVisitor
{
public:
    enum class Interest {
        None, ///< nothing in that box
        Items, ///< what is in that box, one by one
        Whole, ///< who is in that box, without any geometry
    };

    virtual ~ItemVisitor() = default;

    /// Outside of it nothing matters at all; does not change while items are told.
    virtual Box2 region() const = 0;
    virtual Interest interest(const Box2& box) const = 0;
    /// Whether the items of that entity matter (still).
    virtual bool wants(quint32 owner) const = 0;

    virtual void whole(quint32 owner) = 0;
    virtual void segment(quint32 owner, Vec2 from, Vec2 to) = 0;
    virtual void arc(quint32 owner, const CurveArc& arc) = 0;
    virtual void ray(quint32 owner, const Ray& ray) = 0;
    /// Corners in turn of the box around a piece of text.
    virtual void text(quint32 owner, const std::array<Vec2, 4>& corners) = 0;
    /// `map`: from the fill's list to the space.
    virtual void fill(quint32 owner, const DisplayList& list, const FillItem& fill,
                      const Affine2& map) = 0;
};
