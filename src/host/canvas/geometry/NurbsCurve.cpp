#include "host/canvas/geometry/NurbsCurve.h"

#include <algorithm>
#include <array>

namespace {

constexpr int kMaxDegree = 25;
constexpr int kStepsPerSpan = 16;

struct Weighted
{
    double x, y, z, w;
};

Weighted blend(const Weighted& a, const Weighted& b, double f)
{
    return {a.x + (b.x - a.x) * f, a.y + (b.y - a.y) * f, a.z + (b.z - a.z) * f,
            a.w + (b.w - a.w) * f};
}

} // namespace

bool NurbsCurve::isValid() const
{
    if (degree < 1 || degree > kMaxDegree)
        return false;
    const auto order = static_cast<std::size_t>(degree) + 1;
    return controlPoints.size() >= order && knots.size() >= controlPoints.size() + order
        && (weights.empty() || weights.size() == controlPoints.size())
        && std::is_sorted(knots.begin(), knots.end())
        && std::all_of(weights.begin(), weights.end(), [](double w) { return w > 0; });
}

std::size_t NurbsCurve::findSpan(double t) const
{
    const auto first = static_cast<std::size_t>(degree);
    const std::size_t last = controlPoints.size() - 1;
    const auto begin = knots.begin();
    const auto it = std::upper_bound(begin + static_cast<std::ptrdiff_t>(first),
                                     begin + static_cast<std::ptrdiff_t>(last) + 1, t);
    return std::clamp(static_cast<std::size_t>(it - begin) - 1, first, last);
}

Vec3 NurbsCurve::evaluate(double t, std::size_t span) const
{
    const auto p = static_cast<std::size_t>(degree);
    std::array<Weighted, kMaxDegree + 1> d;
    for (std::size_t j = 0; j <= p; ++j) {
        const std::size_t i = span - p + j;
        const double w = weights.empty() ? 1 : weights[i];
        const Vec3 c = controlPoints[i] * w;
        d[j] = {c.x, c.y, c.z, w};
    }
    for (std::size_t r = 1; r <= p; ++r) {
        for (std::size_t j = p; j >= r; --j) {
            const double low = knots[span - p + j];
            const double high = knots[span + 1 + j - r];
            const double f = high > low ? (t - low) / (high - low) : 0;
            d[j] = blend(d[j - 1], d[j], f);
        }
    }
    return Vec3{d[p].x, d[p].y, d[p].z} * (1 / d[p].w);
}

std::vector<Vec3> NurbsCurve::points() const
{
    const auto p = static_cast<std::size_t>(degree);
    const int steps = degree == 1 ? 1 : kStepsPerSpan;
    std::vector<Vec3> result{evaluate(knots[p], findSpan(knots[p]))};
    for (std::size_t span = p; span < controlPoints.size(); ++span) {
        const double low = knots[span];
        const double high = knots[span + 1];
        for (int step = 1; high > low && step <= steps; ++step)
            result.push_back(evaluate(low + (high - low) * step / steps, span));
    }
    return result;
}

std::vector<Vec3> smoothThrough(const std::vector<Vec3>& fitPoints, bool closed)
{
    const std::size_t n = fitPoints.size();
    if (n < 3)
        return fitPoints;
    const auto point = [&](std::size_t i, int offset) {
        const auto index = static_cast<std::ptrdiff_t>(i) + offset;
        const auto count = static_cast<std::ptrdiff_t>(n);
        const auto wrapped =
            closed ? (index + count) % count : std::clamp<std::ptrdiff_t>(index, 0, count - 1);
        return fitPoints[static_cast<std::size_t>(wrapped)];
    };
    std::vector<Vec3> result{fitPoints.front()};
    for (std::size_t i = 0; i + 1 < n || (closed && i < n); ++i) {
        const Vec3 a = point(i, 0);
        const Vec3 b = point(i, 1);
        const Vec3 tangentA = (b - point(i, -1)) * 0.5;
        const Vec3 tangentB = (point(i, 2) - a) * 0.5;
        for (int step = 1; step <= kStepsPerSpan; ++step) {
            const double t = static_cast<double>(step) / kStepsPerSpan;
            const double t2 = t * t;
            const double t3 = t2 * t;
            result.push_back(a * (2 * t3 - 3 * t2 + 1) + tangentA * (t3 - 2 * t2 + t)
                             + b * (3 * t2 - 2 * t3) + tangentB * (t3 - t2));
        }
    }
    return result;
}
