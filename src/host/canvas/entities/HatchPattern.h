#pragma once

#include "host/canvas/entities/HatchBoundary.h"

/// The families of parallel lines of a patterned hatch.
class HatchPattern
{
public:
    /// Reads the pattern lines from the groups of a HATCH, where they stand scaled and turned
    /// already.
    explicit HatchPattern(const std::vector<EntityFields::Group>& groups);

    /// The strokes inside the boundary, in its plane; false when there are unreasonably many.
    bool strokes(const HatchBoundary& boundary, std::vector<std::pair<Vec2, Vec2>>& result) const;

private:
    struct Family
    {
        Vec2 direction{1, 0};
        Vec2 base;
        Vec2 offset;
        std::vector<double> dashes; ///< positive: line, negative: gap, 0: dot
    };
    using Strokes = std::vector<std::pair<Vec2, Vec2>>;

    static bool hatchFamily(const Family& family, const HatchBoundary& boundary, Strokes& result);
    static void cut(const HatchBoundary& boundary, Vec2 on, Vec2 direction,
                    std::vector<double>& crossings);
    static void dash(const Family& family, Vec2 on, std::pair<double, double> span,
                     Strokes& result);

    std::vector<Family> m_families;
};
