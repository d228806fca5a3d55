#pragma once

#include "host/canvas/geometry/Vec2.h"

/// Point or direction in space.
struct Vec3
{
    double x = 0;
    double y = 0;
    double z = 0;

    friend constexpr Vec3 operator+(Vec3 a, Vec3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend constexpr Vec3 operator-(Vec3 a, Vec3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend constexpr Vec3 operator*(Vec3 a, double s) { return {a.x * s, a.y * s, a.z * s}; }

    /// Seen from above.
    constexpr Vec2 plan() const { return {x, y}; }
    double length() const { return std::sqrt(x * x + y * y + z * z); }
};

constexpr Vec3 cross(Vec3 a, Vec3 b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
