#pragma once

#include "host/canvas/geometry/Vec3.h"

#include <vector>

/// Non-uniform rational B-spline as drawings store it.
class NurbsCurve
{
public:
    int degree = 3;
    std::vector<double> knots;
    std::vector<Vec3> controlPoints;
    std::vector<double> weights; ///< empty: all one

    /// Whether the counts and the order of the knots make a curve.
    bool isValid() const;
    /// Points along the curve, ends included: straight spans by their ends, others in small steps.
    std::vector<Vec3> points() const;
    Vec3 at(double t) const { return evaluate(t, findSpan(t)); }

private:
    std::size_t findSpan(double t) const;
    Vec3 evaluate(double t, std::size_t span) const;
};

/// A smooth curve through points, for splines that carry fit points only.
std::vector<Vec3> smoothThrough(const std::vector<Vec3>& fitPoints, bool closed);
