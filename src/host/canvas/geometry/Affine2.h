#pragma once

#include "host/canvas/geometry/Box2.h"

/// Affine map of the plane: p -> ax * (p.x - ox) + ay * (p.y - oy) + t. The origin is subtracted
/// before anything is scaled, so that small features far from zero keep their precision.
struct Affine2
{
    Vec2 ax{1, 0};
    Vec2 ay{0, 1};
    Vec2 t;
    Vec2 origin;

    static Affine2 translation(Vec2 by) { return {{1, 0}, {0, 1}, by, {}}; }

    Vec2 map(Vec2 p) const { return mapVector(p - origin) + t; }
    Vec2 mapVector(Vec2 v) const { return {ax.x * v.x + ay.x * v.y, ax.y * v.x + ay.y * v.y}; }
    /// Box around the mapped box.
    Box2 mapBox(const Box2& box) const
    {
        if (box.isEmpty())
            return {};
        Box2 result = Box2::of(map({box.minX, box.minY}), map({box.maxX, box.maxY}));
        result.add(map({box.minX, box.maxY}));
        result.add(map({box.maxX, box.minY}));
        return result;
    }
    /// First `inner`, then this.
    Affine2 after(const Affine2& inner) const
    {
        return {mapVector(inner.ax), mapVector(inner.ay), map(inner.t), inner.origin};
    }
    double determinant() const { return ax.x * ay.y - ax.y * ay.x; }
    /// Largest factor by which a length can grow.
    double scale() const { return std::max(ax.length(), ay.length()); }
    bool isInvertible() const { return std::abs(determinant()) > 0; }
    /// Must be invertible.
    Affine2 inverted() const
    {
        const double d = determinant();
        return {{ay.y / d, -ax.y / d}, {-ay.x / d, ax.x / d}, origin, t};
    }
};
