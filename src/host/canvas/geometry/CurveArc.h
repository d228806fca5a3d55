#pragma once

#include "host/canvas/geometry/Affine2.h"

#include <numbers>

inline constexpr double kTurn = 2 * std::numbers::pi;

/// Arc of an ellipse, kept exact: centre + u cos(t) + v sin(t) for t from `start` over `sweep`
/// radians (negative: clockwise). Circles have u and v perpendicular and of one length; affine maps
/// keep the form.
struct CurveArc
{
    Vec2 centre;
    Vec2 u;
    Vec2 v;
    double start = 0;
    double sweep = kTurn;

    Vec2 at(double t) const { return centre + u * std::cos(t) + v * std::sin(t); }
    Vec2 first() const { return at(start); }
    Vec2 last() const { return at(start + sweep); }
    double radius() const { return std::max(u.length(), v.length()); }
    CurveArc mapped(const Affine2& map) const
    {
        return {map.map(centre), map.mapVector(u), map.mapVector(v), start, sweep};
    }
    /// Roughly where it is, at no cost.
    Vec2 place() const { return centre; }
    /// Exact bounding box.
    Box2 box() const;
    bool isSane() const;

    /// Arc of a circle of the plane from `from` to `to` with that bulge (tangent of a quarter of
    /// the included angle, positive: counter-clockwise). `bulge` must not be zero.
    static CurveArc fromBulge(Vec2 from, Vec2 to, double bulge);
};
