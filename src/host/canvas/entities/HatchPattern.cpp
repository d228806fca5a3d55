#include "host/canvas/entities/HatchPattern.h"

#include <algorithm>
#include <numbers>

namespace {

constexpr std::size_t kMostStrokes = 8000;
constexpr double kMostLines = 2000;
constexpr double kMostCrossingTests = 2e7;

double dot(Vec2 a, Vec2 b)
{
    return a.x * b.x + a.y * b.y;
}

} // namespace

HatchPattern::HatchPattern(const std::vector<EntityFields::Group>& groups)
{
    for (const EntityFields::Group& group : groups) {
        if (group.code == 53) {
            const double angle = std::fmod(group.value, 360) * std::numbers::pi / 180;
            m_families.push_back({{std::cos(angle), std::sin(angle)}, {}, {}, {}});
        }
        if (m_families.empty())
            continue;
        Family& family = m_families.back();
        switch (group.code) {
        case 43:
            family.base.x = group.value;
            break;
        case 44:
            family.base.y = group.value;
            break;
        case 45:
            family.offset.x = group.value;
            break;
        case 46:
            family.offset.y = group.value;
            break;
        case 49:
            family.dashes.push_back(group.value);
            break;
        default:
            break;
        }
    }
}

bool HatchPattern::strokes(const HatchBoundary& boundary, Strokes& result) const
{
    return !m_families.empty() && std::all_of(m_families.begin(), m_families.end(), [&](auto& f) {
        return hatchFamily(f, boundary, result);
    });
}

bool HatchPattern::hatchFamily(const Family& family, const HatchBoundary& boundary, Strokes& result)
{
    const Vec2 normal = family.direction.left();
    const double spacing = dot(family.offset, normal);
    const Box2 box = boundary.box();
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    for (const Vec2 corner : {Vec2{box.minX, box.minY}, Vec2{box.maxX, box.minY},
                              Vec2{box.minX, box.maxY}, Vec2{box.maxX, box.maxY}})
    {
        const double k = dot(corner - family.base, normal) / spacing;
        low = std::min(low, k);
        high = std::max(high, k);
    }
    const double lines = std::floor(high) - std::ceil(low) + 1;
    if (!(lines >= 0 && lines <= kMostLines)
        || !(lines * static_cast<double>(boundary.pointCount()) <= kMostCrossingTests))
    {
        return false;
    }
    std::vector<double> crossings;
    for (int line = 0; line < static_cast<int>(lines); ++line) {
        const Vec2 on = family.base + family.offset * (std::ceil(low) + line);
        crossings.clear();
        cut(boundary, on, family.direction, crossings);
        for (std::size_t i = 1; i < crossings.size(); i += 2)
            dash(family, on, {crossings[i - 1], crossings[i]}, result);
        if (result.size() > kMostStrokes)
            return false;
    }
    return true;
}

/// Distances from `on` along the direction where the line crosses the boundary, ascending.
void HatchPattern::cut(const HatchBoundary& boundary, Vec2 on, Vec2 direction,
                       std::vector<double>& crossings)
{
    const Vec2 normal = direction.left();
    for (const HatchBoundary::Contour& contour : boundary.contours()) {
        Vec2 previous = contour.back();
        double previousSide = dot(previous - on, normal);
        for (const Vec2 p : contour) {
            const double side = dot(p - on, normal);
            if ((side < 0) != (previousSide < 0)) {
                const double f = previousSide / (previousSide - side);
                crossings.push_back(dot(previous + (p - previous) * f - on, direction));
            }
            previous = p;
            previousSide = side;
        }
    }
    std::sort(crossings.begin(), crossings.end());
}

void HatchPattern::dash(const Family& family, Vec2 on, std::pair<double, double> span,
                        Strokes& result)
{
    double period = 0;
    for (const double length : family.dashes)
        period += std::abs(length);
    const auto dashCount = static_cast<double>(std::max<std::size_t>(family.dashes.size(), 1));
    const bool continuous = !(period > 0)
        || (span.second - span.first) / period * dashCount > static_cast<double>(kMostStrokes);
    if (continuous) {
        result.emplace_back(on + family.direction * span.first,
                            on + family.direction * span.second);
        return;
    }
    double at = std::floor(span.first / period) * period;
    // Counted, since far from zero a short dash may not move `at` at all.
    for (std::size_t i = 0; at <= span.second && i < 2 * kMostStrokes; ++i) {
        const double length = family.dashes[i % family.dashes.size()];
        const double from = std::max(at, span.first);
        const double to = std::min(at + std::abs(length), span.second);
        const bool isDot = length == 0 && from == to;
        if (isDot || (length > 0 && from < to))
            result.emplace_back(on + family.direction * from, on + family.direction * to);
        at += std::abs(length);
    }
}
