#pragma once

#include "base/FlatName.h"
#include "base/WildcardSegment.h"

/// One of the patterns that WildcardPattern finds between commas: segments with a run of any
/// characters between each two. The first one stands at the name's front, the last one at its end,
/// and each of the others takes the first place where it fits, which leaves the most to the rest.
class WildcardAlternative
{
public:
    WildcardAlternative(QStringView text, Qt::CaseSensitivity sensitivity);

    /// Whether the length of a name and its first unit are enough to know that it does not fit;
    /// matches() is isNegated() then.
    bool isRuledOutAtSight(QStringView name) const
    {
        if (name.size() < m_leastLength)
            return true;
        if (m_first == 0)
            return false;
        const char16_t unit = name.front().unicode();
        return unit < 0x80 && (unit | m_firstCase) != m_first;
    }
    bool isNegated() const { return m_negated; }

    bool matches(const FlatName& name) const { return fits(name) != m_negated; }
    /// The same for a text of any kind, read like CharacterReader does. Reads each character at
    /// most once for each token, and once more.
    template <class Reader>
    bool matches(const Reader& text) const
    {
        return fits(text) != m_negated;
    }

private:
    void noteFirst(Qt::CaseSensitivity sensitivity);
    bool fits(const FlatName& name) const;
    template <class Reader>
    bool fits(const Reader& text) const;
    /// Moves `at` behind the segment where that fits at this place and ends by `end`.
    template <class Reader>
    static bool skip(const WildcardSegment& segment, const Reader& text, qsizetype& at,
                     qsizetype end);
    template <class Reader>
    static bool skipBackwards(const WildcardSegment& segment, const Reader& text, qsizetype begin,
                              qsizetype& end);

    bool m_negated = false;
    qsizetype m_leastLength = 0; ///< in characters
    char16_t m_first = 0; ///< where the pattern begins with a character of ASCII
    char16_t m_firstCase = 0; ///< the bit that tells its upper from its lower case, if that is all
    std::vector<WildcardSegment> m_segments;
};

inline bool WildcardAlternative::fits(const FlatName& name) const
{
    const bool isWhole = m_segments.size() == 1;
    if (name.size() < m_leastLength || (isWhole && name.size() > m_leastLength))
        return false;
    const WildcardSegment& first = m_segments.front();
    if (!first.isAt(name.begin()))
        return false;
    if (isWhole)
        return true;
    const WildcardSegment& last = m_segments.back();
    const char16_t* end = name.end() - last.length();
    if (!last.isAt(end))
        return false;
    const char16_t* at = name.begin() + first.length();
    for (std::size_t i = 1; i + 1 < m_segments.size(); ++i) {
        at = m_segments[i].findIn(at, end);
        if (!at)
            return false;
        at += m_segments[i].length();
    }
    return true;
}

template <class Reader>
bool WildcardAlternative::fits(const Reader& text) const
{
    qsizetype at = 0;
    qsizetype end = text.size();
    if (!skip(m_segments.front(), text, at, end))
        return false;
    if (m_segments.size() == 1)
        return at == end;
    if (!skipBackwards(m_segments.back(), text, at, end))
        return false;
    for (std::size_t i = 1; i + 1 < m_segments.size(); ++i) {
        qsizetype behind = at;
        while (!skip(m_segments[i], text, behind, end)) {
            if (at == end)
                return false;
            text.next(at);
            behind = at;
        }
        at = behind;
    }
    return true;
}

template <class Reader>
bool WildcardAlternative::skip(const WildcardSegment& segment, const Reader& text, qsizetype& at,
                               qsizetype end)
{
    for (const WildcardToken& token : segment.tokens()) {
        if (at == end || !token.accepts(text.next(at)))
            return false;
    }
    return true;
}

template <class Reader>
bool WildcardAlternative::skipBackwards(const WildcardSegment& segment, const Reader& text,
                                        qsizetype begin, qsizetype& end)
{
    const std::vector<WildcardToken>& tokens = segment.tokens();
    for (auto token = tokens.rbegin(); token != tokens.rend(); ++token) {
        if (end == begin || !token->accepts(text.previous(end)))
            return false;
    }
    return true;
}
