#pragma once

#include <QtGlobal>

#include <vector>

/// Dashes and gaps of a linetype, ready for painting.
class DashPattern
{
public:
    /// Without gaps.
    DashPattern() = default;
    /// `lengths` as a linetype states them: positive a dash, negative a gap, 0 a dot. What repeats
    /// nowhere, or is no pattern, becomes a line without gaps.
    explicit DashPattern(const std::vector<double>& lengths, bool hasSymbols);

    bool isContinuous() const { return m_period <= 0; }
    double period() const { return m_period; }
    double firstDash() const { return m_isDash.front() ? m_ends.front() : 0; }
    /// Mean length of a dash with its gap.
    double pitch() const { return m_pitch; }
    /// Where each part ends, from the start of the pattern; the last one is the period.
    const std::vector<double>& ends() const { return m_ends; }
    bool isDash(std::size_t part) const { return m_isDash[part]; }
    /// Shapes or texts stand in the gaps; those are not drawn.
    bool hasSymbols() const { return m_hasSymbols; }

private:
    double m_period = 0;
    double m_pitch = 0;
    bool m_hasSymbols = false;
    std::vector<double> m_ends;
    std::vector<bool> m_isDash;
};
