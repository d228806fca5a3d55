#pragma once

#include "host/canvas/display/Style.h"
#include "host/canvas/geometry/CurveArc.h"

#include <vector>

inline constexpr quint32 kNoIndex = 0xFFFFFFFFu;

/// Straight stroke; one of no length is a point.
struct Segment
{
    Vec2 from;
    Vec2 to;

    Box2 box() const { return Box2::of(from, to); }
    /// Roughly where it is, at no cost.
    Vec2 place() const { return (from + to) * 0.5; }
};

/// Straight stroke without an end, on one side or on both.
struct Ray
{
    Vec2 from;
    Vec2 direction;
    bool isTwoSided = false;
    quint32 owner = 0;
};

/// Filled area of one or more contours, odd-even.
struct FillItem
{
    Style style;
    quint32 firstContour = 0;
    quint32 endContour = 0;
    Box2 bounds;

    const Box2& box() const { return bounds; }
};

/// A piece of text: where the point (0, 0) of its shape goes, and its unit vectors. One unit is the
/// height of a capital letter.
struct TextItem
{
    Style style;
    quint32 shape = 0; ///< index into the scene's texts
    quint32 gate = kNoIndex; ///< layer that must not be frozen besides the text's own
    Vec2 position;
    Vec2 along;
    Vec2 up;
    Box2 bounds; ///< estimated

    const Box2& box() const { return bounds; }
};

/// Reference to a block.
struct BlockInstance
{
    quint32 block = kNoIndex; ///< index into the scene's blocks; kNoIndex: not to be followed
    Style style;
    quint32 columns = 1;
    quint32 rows = 1;
    Affine2 placement;
    Vec2 columnStep; ///< in the coordinates outside
    Vec2 rowStep;
    Box2 bounds; ///< known when the scene is linked

    const Box2& box() const { return bounds; }
    quint64 count() const { return quint64(columns) * rows; }
    Affine2 cell(quint32 column, quint32 row) const
    {
        Affine2 result = placement;
        result.t = result.t + columnStep * column + rowStep * row;
        return result;
    }
};

/// A viewport of a sheet, not the sheet's own, as far as it is needed to paint through it.
struct SheetViewport
{
    quint32 slot = 0;
    bool isOff = false;
    bool isPlan = true; ///< looks straight down
    Vec2 centre; ///< on the sheet
    double width = 0;
    double height = 0;
    Vec2 viewCentre; ///< in model space, below the viewport's centre
    double viewHeight = 0;
    double twist = 0; ///< radians, counter-clockwise turn of the picture
    quint64 clipEntity = 0; ///< handle of the entity that is the outline; 0: a rectangle
    std::vector<Vec2> clip; ///< outline on the sheet; empty: the frame is all there is

    bool isUsable() const
    {
        return width > 0 && height > 0 && viewHeight > 0 && isSane(centre) && isSane(viewCentre)
            && isSane({width, height}) && viewHeight <= kLargestCoordinate && std::isfinite(twist);
    }
    Box2 frame() const
    {
        const Vec2 half{width / 2, height / 2};
        return Box2::of(centre - half, centre + half);
    }
    /// Sheet units per unit of the model.
    double scale() const { return height / viewHeight; }
    Affine2 modelToSheet() const
    {
        const double scale = this->scale();
        const double c = std::cos(twist) * scale;
        const double s = std::sin(twist) * scale;
        return {{c, s}, {-s, c}, centre, viewCentre};
    }
};
