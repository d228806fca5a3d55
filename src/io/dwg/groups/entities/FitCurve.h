#pragma once

#include <cstddef>
#include <vector>

/// The cubic B-spline through points: twice continuously differentiable, with tangents at its ends
/// that are given, or free of curvature there.
class FitCurve
{
public:
    struct Point
    {
        double at[3] = {0, 0, 0};

        bool operator==(const Point&) const = default;
    };
    /// How far apart in parameter neighbours are.
    enum class Spacing { Chord, RootOfChord, Even };

    /// A tangent of length zero counts as not given. Points that repeat the one before are left
    /// out.
    FitCurve(const std::vector<Point>& points, const Point& startTangent, const Point& endTangent,
             Spacing spacing);

    /// False where two different points at least are missing; then there is no curve.
    bool isValid() const { return !m_knots.empty(); }
    const std::vector<double>& knots() const { return m_knots; }
    const std::vector<Point>& controlPoints() const { return m_controls; }

private:
    void space(Spacing spacing);
    void solve(const Point& startTangent, const Point& endTangent);
    void makeControls();
    Point blossom(std::size_t segment, const double* parameters) const;
    double length(std::size_t segment) const
    {
        return m_parameters[segment + 1] - m_parameters[segment];
    }

    std::vector<Point> m_points;
    std::vector<double> m_parameters; ///< of the points
    std::vector<Point> m_tangents; ///< at the points
    std::vector<double> m_knots;
    std::vector<Point> m_controls;
};
