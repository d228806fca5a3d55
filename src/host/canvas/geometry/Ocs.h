#pragma once

#include "host/canvas/geometry/Vec3.h"

/// Object coordinate system of a flat entity: axes that follow from its extrusion direction by the
/// arbitrary-axis rule.
struct Ocs
{
    Vec3 ax{1, 0, 0};
    Vec3 ay{0, 1, 0};
    Vec3 az{0, 0, 1};

    static Ocs fromNormal(Vec3 normal)
    {
        const double length = normal.length();
        // The second test keeps the many entities that spell the default direction out exact.
        if (!(length > 0) || !std::isfinite(length)
            || (normal.x == 0 && normal.y == 0 && normal.z > 0)) {
            return {};
        }
        Ocs ocs;
        ocs.az = normal * (1 / length);
        constexpr double kNearPole = 1.0 / 64;
        const bool steep = std::abs(ocs.az.x) < kNearPole && std::abs(ocs.az.y) < kNearPole;
        const Vec3 x = cross(steep ? Vec3{0, 1, 0} : Vec3{0, 0, 1}, ocs.az);
        ocs.ax = x * (1 / x.length());
        ocs.ay = cross(ocs.az, ocs.ax);
        return ocs;
    }

    Vec3 toWorld(Vec3 p) const { return ax * p.x + ay * p.y + az * p.z; }
    /// World plan position of a point of the plane at height `z`.
    Vec2 plan(Vec2 p, double z) const { return toWorld({p.x, p.y, z}).plan(); }
    /// World plan direction of a direction in the plane.
    Vec2 planVector(Vec2 v) const { return toWorld({v.x, v.y, 0}).plan(); }
};
