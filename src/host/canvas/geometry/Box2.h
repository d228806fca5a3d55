#pragma once

#include "host/canvas/geometry/Vec2.h"

#include <algorithm>
#include <limits>

/// Axis-parallel box; empty until something is added.
struct Box2
{
    double minX = std::numeric_limits<double>::infinity();
    double minY = std::numeric_limits<double>::infinity();
    double maxX = -std::numeric_limits<double>::infinity();
    double maxY = -std::numeric_limits<double>::infinity();

    static Box2 of(Vec2 a, Vec2 b)
    {
        return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
    }

    bool isEmpty() const { return !(minX <= maxX && minY <= maxY); }
    double width() const { return maxX - minX; }
    double height() const { return maxY - minY; }
    Vec2 centre() const { return {minX + (maxX - minX) / 2, minY + (maxY - minY) / 2}; }

    void add(Vec2 p)
    {
        minX = std::min(minX, p.x);
        minY = std::min(minY, p.y);
        maxX = std::max(maxX, p.x);
        maxY = std::max(maxY, p.y);
    }
    void add(const Box2& other)
    {
        minX = std::min(minX, other.minX);
        minY = std::min(minY, other.minY);
        maxX = std::max(maxX, other.maxX);
        maxY = std::max(maxY, other.maxY);
    }
    Box2 grown(double by) const { return {minX - by, minY - by, maxX + by, maxY + by}; }
    Box2 intersected(const Box2& o) const
    {
        return {std::max(minX, o.minX), std::max(minY, o.minY), std::min(maxX, o.maxX),
                std::min(maxY, o.maxY)};
    }
    bool meets(const Box2& o) const
    {
        return minX <= o.maxX && maxX >= o.minX && minY <= o.maxY && maxY >= o.minY;
    }
    bool contains(const Box2& o) const
    {
        return minX <= o.minX && maxX >= o.maxX && minY <= o.minY && maxY >= o.maxY;
    }
    bool contains(Vec2 p) const { return p.x >= minX && p.x <= maxX && p.y >= minY && p.y <= maxY; }
};
