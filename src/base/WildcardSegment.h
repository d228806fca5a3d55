#pragma once

#include "base/WildcardToken.h"

#include <bit>

/// The tokens of a wildcard pattern between two runs. Beside the tokens, which say everything, it
/// holds them laid out for a FlatName: four units to a word, with a mask that leaves out the places
/// where more than one character fits.
class WildcardSegment
{
public:
    void add(WildcardToken token);

    /// In characters.
    qsizetype length() const { return static_cast<qsizetype>(m_tokens.size()); }
    const std::vector<WildcardToken>& tokens() const { return m_tokens; }

    /// Whether the units of a flat name from `at` on fit. Up to the full word behind the segment's
    /// end there must be something to read.
    bool isAt(const char16_t* at) const { return wordsFit(at) && choicesFit(at); }
    /// The first place in [at, end) where it fits, null where there is none. Not for an empty one.
    const char16_t* findIn(const char16_t* at, const char16_t* end) const
    {
        constexpr qsizetype kStep = kUnitsPerWord;
        for (qsizetype places = end - at - length() + 1; places > 0; places -= kStep, at += kStep) {
            for (quint64 hits = m_beginning.hits(at); hits != 0; hits &= hits - 1) {
                const qsizetype i = std::countr_zero(hits) / 16;
                if (i < places && isAt(at + i))
                    return at + i;
            }
        }
        return nullptr;
    }

private:
    static constexpr std::size_t kUnitsPerWord = 4;
    struct Word
    {
        quint64 units = 0;
        quint64 mask = 0;

        void set(std::size_t place, char16_t unit);
        quint64 differences(const char16_t* at) const { return (wordAt(at) ^ units) & mask; }
        bool fits(const char16_t* at) const { return differences(at) == 0; }
    };
    /// The first unit is the lowest, whatever the machine: one load where that is its order.
    static quint64 wordAt(const char16_t* at)
    {
        return quint64(at[0]) | quint64(at[1]) << 16 | quint64(at[2]) << 32 | quint64(at[3]) << 48;
    }
    /// The first two places of a segment, each as often as a word has units: tells for four places
    /// of a name at once whether the segment may begin there.
    struct Beginning
    {
        Word first;
        Word second;

        /// The highest bit of each unit whose place may be one. Behind the first such place there
        /// may be some that are none.
        quint64 hits(const char16_t* at) const
        {
            constexpr quint64 kOnes = 0x0001000100010001;
            constexpr quint64 kHighest = 0x8000800080008000;
            const quint64 x = first.differences(at) | second.differences(at + 1);
            return (x - kOnes) & ~x & kHighest;
        }
    };

    bool wordsFit(const char16_t* at) const
    {
        for (std::size_t i = 0; i < m_words.size(); ++i) {
            if (!m_words[i].fits(at + i * kUnitsPerWord))
                return false;
        }
        return true;
    }
    bool choicesFit(const char16_t* at) const
    {
        for (const std::size_t place : m_choices) {
            if (!m_tokens[place].accepts(at[place]))
                return false;
        }
        return true;
    }

    std::vector<WildcardToken> m_tokens;
    Beginning m_beginning;
    std::vector<Word> m_words;
    std::vector<std::size_t> m_choices; ///< places of tokens that some characters fit
};
