#pragma once

#include "host/canvas/scene/lines/DashPattern.h"

#include <algorithm>
#include <cmath>

/// Where the dashes of a linetype fall on a line of some length. The line begins and ends with a
/// dash of equal length, at least half the pattern's first one; the patterns stand between. A line
/// too short for one pattern has no gaps. A pattern that begins with a dot leaves the ends open.
class DashWalk
{
public:
    /// Lengths of the line and of a unit of the pattern, in one unit. An endless line starts its
    /// pattern at 0.
    DashWalk(const DashPattern& pattern, double patternScale, double total)
        : m_pattern(pattern)
        , m_scale(patternScale)
        , m_period(pattern.period() * patternScale)
        , m_lead(pattern.firstDash() * patternScale)
        , m_total(total)
    {
        if (std::isinf(total))
            return;
        const double count = std::floor(total / m_period);
        m_isSolid = !(count >= 1);
        m_shift = (total - count * m_period - m_lead) / 2;
    }

    /// Calls `dash(from, to)` for every dash between two places on the line, cut off there; a dot
    /// has equal ends.
    template <class Dash>
    void between(double from, double to, Dash dash) const
    {
        const double count = (to - from) / m_period;
        if (m_isSolid || !(count < kMostPeriods)) {
            dash(from, to);
            return;
        }
        // Ends that carry longer dashes than the pattern's.
        const bool isEndless = std::isinf(m_total);
        const double head = isEndless ? from : m_shift + m_lead;
        const double tail = isEndless ? to : m_total - head;
        if (from < head && m_lead > 0)
            dash(from, std::min(to, head));
        patterns(std::max(from, head), std::min(to, tail), dash);
        if (to > tail && tail < m_total && m_lead > 0)
            dash(std::max(from, tail), to);
    }

private:
    /// More than these in sight are no pattern any more.
    static constexpr double kMostPeriods = 20000;

    template <class Dash>
    void patterns(double from, double to, Dash dash) const
    {
        if (!(from <= to))
            return;
        const double first = std::floor((from - m_shift) / m_period);
        const double last = std::floor((to - m_shift) / m_period);
        const std::size_t parts = m_pattern.ends().size();
        for (int k = 0; k <= static_cast<int>(last - first); ++k) {
            const double base = m_shift + (first + k) * m_period;
            double begin = base;
            for (std::size_t part = 0; part < parts; ++part) {
                const double end = base + m_pattern.ends()[part] * m_scale;
                const double low = std::max(begin, from);
                const double high = std::min(end, to);
                const bool isDot = begin == end && low == high;
                if (m_pattern.isDash(part) && (low < high || isDot))
                    dash(low, high);
                begin = end;
            }
        }
    }

    const DashPattern& m_pattern;
    double m_scale;
    double m_period;
    double m_lead;
    double m_total;
    double m_shift = 0; ///< place where the first pattern begins; may be negative
    bool m_isSolid = false;
};
