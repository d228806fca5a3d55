#include "host/canvas/scene/lines/DashPattern.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t kMostParts = 256;
constexpr double kLongest = 1e12;

} // namespace

DashPattern::DashPattern(const std::vector<double>& lengths, bool hasSymbols)
    : m_hasSymbols(hasSymbols)
{
    const auto gaps = std::count_if(lengths.begin(), lengths.end(), [](double l) { return l < 0; });
    if (gaps == 0 || lengths.size() > kMostParts)
        return;
    double end = 0;
    for (const double length : lengths) {
        end += std::abs(length);
        m_ends.push_back(end);
        m_isDash.push_back(length >= 0);
    }
    // Written so that what is no number does not pass.
    if (!(end > 0 && end <= kLongest))
        return;
    m_period = end;
    m_pitch = end / static_cast<double>(gaps);
}
