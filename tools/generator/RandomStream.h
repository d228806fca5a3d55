#pragma once

#include <cstdint>

/// Small deterministic generator (SplitMix64). The standard distributions may differ between
/// libraries; these do not, so a seed gives the same drawing everywhere.
class RandomStream
{
public:
    explicit RandomStream(std::uint64_t seed)
        : m_state(seed)
    { }

    /// A stream of its own for one item, whatever was drawn for the items before it.
    static RandomStream forItem(std::uint64_t seed, std::uint64_t item)
    {
        return RandomStream(RandomStream(seed).next() ^ RandomStream(item).next());
    }

    std::uint64_t next()
    {
        m_state += 0x9E3779B97F4A7C15ull;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }

    /// 0 to bound - 1.
    std::uint64_t below(std::uint64_t bound) { return (next() >> 11) % bound; }
    bool percent(unsigned chance) { return below(100) < chance; }
    /// A length in [from, to), a whole number of millionths, so that it is written without
    /// rounding.
    double between(double from, double to)
    {
        const auto steps = static_cast<std::uint64_t>((to - from) * 1e6);
        return from + static_cast<double>(below(steps)) / 1e6;
    }

private:
    std::uint64_t m_state;
};
