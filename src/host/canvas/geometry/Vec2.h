#pragma once

#include <cmath>

/// Point or direction in a plane, in drawing units unless said otherwise.
struct Vec2
{
    double x = 0;
    double y = 0;

    friend constexpr Vec2 operator+(Vec2 a, Vec2 b) { return {a.x + b.x, a.y + b.y}; }
    friend constexpr Vec2 operator-(Vec2 a, Vec2 b) { return {a.x - b.x, a.y - b.y}; }
    friend constexpr Vec2 operator-(Vec2 a) { return {-a.x, -a.y}; }
    friend constexpr Vec2 operator*(Vec2 a, double s) { return {a.x * s, a.y * s}; }
    friend constexpr bool operator==(Vec2, Vec2) = default;

    double length() const { return std::hypot(x, y); }
    /// Turned counter-clockwise by an angle in radians.
    Vec2 turned(double angle) const
    {
        const double c = std::cos(angle);
        const double s = std::sin(angle);
        return {x * c - y * s, x * s + y * c};
    }
    /// Turned a quarter counter-clockwise.
    constexpr Vec2 left() const { return {-y, x}; }
};

/// Coordinates beyond this are no geometry: broken writers leave such numbers behind.
inline constexpr double kLargestCoordinate = 1e15;

/// False for NaN, infinities and coordinates that no drawing can mean.
inline bool isSane(Vec2 p)
{
    return std::abs(p.x) <= kLargestCoordinate && std::abs(p.y) <= kLargestCoordinate;
}
