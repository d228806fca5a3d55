#include "io/dwg/groups/entities/FitCurve.h"

#include <algorithm>
#include <cmath>

namespace {

using Point = FitCurve::Point;

Point sum(const Point& a, double factor, const Point& b)
{
    return {{a.at[0] + factor * b.at[0], a.at[1] + factor * b.at[1], a.at[2] + factor * b.at[2]}};
}

Point between(const Point& a, const Point& b, double share)
{
    return sum(sum({}, 1 - share, a), share, b);
}

double distance(const Point& a, const Point& b)
{
    return std::hypot(a.at[0] - b.at[0], a.at[1] - b.at[1], a.at[2] - b.at[2]);
}

} // namespace

FitCurve::FitCurve(const std::vector<Point>& points, const Point& startTangent,
                   const Point& endTangent, Spacing spacing)
    : m_points(points)
{
    m_points.erase(std::unique(m_points.begin(), m_points.end()), m_points.end());
    if (m_points.size() < 2)
        return;
    space(spacing);
    solve(startTangent, endTangent);
    makeControls();
}

void FitCurve::space(Spacing spacing)
{
    m_parameters.assign(1, 0.0);
    for (std::size_t i = 1; i < m_points.size(); ++i) {
        const double chord = distance(m_points[i - 1], m_points[i]);
        const double step = spacing == Spacing::Even ? 1.0
            : spacing == Spacing::Chord              ? chord
                                                     : std::sqrt(chord);
        m_parameters.push_back(m_parameters.back() + step);
    }
}

/// The tangents follow from equal second derivatives on both sides of each point: a system of
/// equations with three unknowns in each, which is solved from the first to the last and back.
void FitCurve::solve(const Point& startTangent, const Point& endTangent)
{
    const std::size_t last = m_points.size() - 1;
    std::vector<double> diagonal(last + 1, 1.0);
    std::vector<double> upper(last + 1, 0.0);
    std::vector<double> lower(last + 1, 0.0);
    m_tangents.assign(last + 1, {});
    const auto slope = [this](std::size_t segment) {
        const Point step = sum(m_points[segment + 1], -1, m_points[segment]);
        return sum({}, 1 / length(segment), step);
    };
    if (startTangent == Point()) {
        diagonal[0] = 2;
        upper[0] = 1;
        m_tangents[0] = sum({}, 3, slope(0));
    } else {
        m_tangents[0] = startTangent;
    }
    for (std::size_t i = 1; i < last; ++i) {
        lower[i] = length(i);
        diagonal[i] = 2 * (length(i - 1) + length(i));
        upper[i] = length(i - 1);
        m_tangents[i] = sum(sum({}, 3 * length(i), slope(i - 1)), 3 * length(i - 1), slope(i));
    }
    if (endTangent == Point()) {
        diagonal[last] = 2;
        lower[last] = 1;
        m_tangents[last] = sum({}, 3, slope(last - 1));
    } else {
        m_tangents[last] = endTangent;
    }
    for (std::size_t i = 1; i <= last; ++i) {
        const double factor = lower[i] / diagonal[i - 1];
        diagonal[i] -= factor * upper[i - 1];
        m_tangents[i] = sum(m_tangents[i], -factor, m_tangents[i - 1]);
    }
    for (std::size_t i = last + 1; i-- > 0;) {
        if (i < last)
            m_tangents[i] = sum(m_tangents[i], -upper[i], m_tangents[i + 1]);
        m_tangents[i] = sum({}, 1 / diagonal[i], m_tangents[i]);
    }
}

void FitCurve::makeControls()
{
    constexpr std::size_t kOrder = 4;
    m_knots.assign(kOrder - 1, m_parameters.front());
    m_knots.insert(m_knots.end(), m_parameters.begin(), m_parameters.end());
    m_knots.insert(m_knots.end(), kOrder - 1, m_parameters.back());
    const std::size_t segments = m_points.size() - 1;
    for (std::size_t i = 0; i < segments + kOrder - 1; ++i) {
        // Any of the segments that the control point moves has it.
        const std::size_t segment = std::min(i == 0 ? 0 : i - 1, segments - 1);
        m_controls.push_back(blossom(segment, m_knots.data() + i + 1));
    }
}

/// The polar form of the curve's polynomial on a segment at three parameters.
FitCurve::Point FitCurve::blossom(std::size_t segment, const double* parameters) const
{
    const double third = length(segment) / 3;
    Point points[] = {m_points[segment], sum(m_points[segment], third, m_tangents[segment]),
                      sum(m_points[segment + 1], -third, m_tangents[segment + 1]),
                      m_points[segment + 1]};
    for (std::size_t level = 0; level < 3; ++level) {
        const double share = (parameters[level] - m_parameters[segment]) / length(segment);
        for (std::size_t i = 0; i + level < 3; ++i)
            points[i] = between(points[i], points[i + 1], share);
    }
    return points[0];
}
