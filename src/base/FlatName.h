#pragma once

#include <QStringView>

#include <array>
#include <cstring>
#include <functional>
#include <numeric>

/// A name on the stack, folded where case does not matter, in which one unit is one character.
/// Names that are longer than kLongest or hold surrogates cannot be had so. Behind its end
/// a word's worth of units can be read; what they are is not said.
class FlatName
{
public:
    static constexpr qsizetype kLongest = 256;

    FlatName(QStringView name, Qt::CaseSensitivity sensitivity)
    {
        if (name.size() > kLongest)
            return;
        m_size = name.size();
        const auto size = static_cast<std::size_t>(m_size);
        const char16_t seen = sensitivity == Qt::CaseInsensitive ? copy<true>(name.utf16(), size)
                                                                 : copy<false>(name.utf16(), size);
        m_isFlat = seen < 0x80 || foldBeyondAscii(sensitivity);
    }

    bool isFlat() const { return m_isFlat; }
    const char16_t* begin() const { return m_units.data(); }
    const char16_t* end() const { return begin() + m_size; }
    qsizetype size() const { return m_size; }

private:
    static constexpr std::size_t kBlock = 8;
    static constexpr qsizetype kReadBehind = 4;

    using Block = std::array<char16_t, kBlock>;

    /// Copies one block and notes its bits, in a shape that compilers turn into a few instructions
    /// on all units at once.
    template <bool kFold>
    static void copyBlock(const char16_t* from, char16_t* to, Block& seen)
    {
        Block block;
        std::memcpy(block.data(), from, sizeof block);
        for (std::size_t i = 0; i < kBlock; ++i) {
            seen[i] = static_cast<char16_t>(seen[i] | block[i]);
            if constexpr (kFold)
                block[i] = foldedAscii(block[i]);
        }
        std::memcpy(to, block.data(), sizeof block);
    }

    static char16_t foldedAscii(char16_t unit)
    {
        const bool upper = static_cast<char16_t>(unit - u'A') < 26;
        return static_cast<char16_t>(unit + (upper ? 32 : 0));
    }

    /// All bits of the units that were copied.
    template <bool kFold>
    char16_t copy(const char16_t* from, std::size_t size)
    {
        Block seen = {};
        char16_t* to = m_units.data();
        if (size >= kBlock) {
            for (std::size_t at = 0; at < size - kBlock; at += kBlock)
                copyBlock<kFold>(from + at, to + at, seen);
            // The last block overlaps what is there already.
            copyBlock<kFold>(from + size - kBlock, to + size - kBlock, seen);
        } else {
            for (std::size_t at = 0; at < size; ++at) {
                seen[0] = static_cast<char16_t>(seen[0] | from[at]);
                to[at] = kFold ? foldedAscii(from[at]) : from[at];
            }
        }
        std::memset(to + size, 0, kReadBehind * sizeof(char16_t));
        return std::accumulate(seen.begin(), seen.end(), char16_t(0), std::bit_or<char16_t>());
    }

    /// False where there are surrogates.
    bool foldBeyondAscii(Qt::CaseSensitivity sensitivity);

    std::array<char16_t, kLongest + kReadBehind> m_units;
    qsizetype m_size = 0;
    bool m_isFlat = false;
};
