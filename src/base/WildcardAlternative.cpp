#include "base/WildcardAlternative.h"

#include "base/CharacterReader.h"

namespace {
using Kind = WildcardToken::Kind;

constexpr char32_t kBackQuote = U'`';
constexpr char32_t kNegation = U'~';

/// Reads the tokens of a pattern one by one.
class TokenReader
{
public:
    TokenReader(QStringView pattern, Qt::CaseSensitivity sensitivity)
    {
        const CharacterReader reader(pattern, sensitivity);
        for (qsizetype at = 0; at < pattern.size();)
            m_text.push_back(reader.next(at));
    }

    bool atEnd() const { return m_at == m_text.size(); }
    bool take(char32_t character)
    {
        const bool isThere = !atEnd() && m_text[m_at] == character;
        m_at += isThere ? 1 : 0;
        return isThere;
    }
    WildcardToken next();

private:
    /// The next character, the one behind a back-quote included. At the very end a back-quote is
    /// a character itself.
    char32_t literal()
    {
        if (m_text[m_at] == kBackQuote && m_at + 1 < m_text.size())
            ++m_at;
        return m_text[m_at++];
    }
    WildcardToken::Range member();
    /// The set that begins behind a bracket. False, and nothing read, where it is not closed.
    bool readSet(WildcardToken& set);

    std::vector<char32_t> m_text;
    std::size_t m_at = 0;
    /// Behind a bracket that no other closes there is none that would be closed, and searching
    /// again for each would take quadratic time.
    bool m_bracketsClose = true;
};

WildcardToken TokenReader::next()
{
    if (take(U'?'))
        return {Kind::AnyOne};
    if (take(U'#'))
        return {Kind::Digit};
    if (take(U'@'))
        return {Kind::Letter};
    if (take(U'.'))
        return {Kind::Other};
    if (take(U'[')) {
        WildcardToken set;
        m_bracketsClose = m_bracketsClose && readSet(set);
        return m_bracketsClose ? set : WildcardToken{Kind::Exactly, U'['};
    }
    return {Kind::Exactly, literal()};
}

WildcardToken::Range TokenReader::member()
{
    const char32_t first = literal();
    const bool isRange =
        m_at + 1 < m_text.size() && m_text[m_at] == U'-' && m_text[m_at + 1] != U']';
    m_at += isRange ? 1 : 0;
    return {first, isRange ? literal() : first};
}

bool TokenReader::readSet(WildcardToken& set)
{
    const std::size_t begin = m_at;
    set.kind = take(kNegation) ? Kind::NoneOf : Kind::OneOf;
    while (!atEnd() && (set.ranges.empty() || m_text[m_at] != U']'))
        set.ranges.push_back(member());
    if (take(U']'))
        return true;
    m_at = begin;
    return false;
}
} // namespace

WildcardAlternative::WildcardAlternative(QStringView text, Qt::CaseSensitivity sensitivity)
    : m_segments(1)
{
    TokenReader tokens(text, sensitivity);
    m_negated = tokens.take(kNegation);
    while (!tokens.atEnd()) {
        if (!tokens.take(U'*')) {
            m_segments.back().add(tokens.next());
            ++m_leastLength;
        } else if (m_segments.size() == 1 || m_segments.back().length() > 0) {
            m_segments.emplace_back();
        }
    }
    noteFirst(sensitivity);
}

void WildcardAlternative::noteFirst(Qt::CaseSensitivity sensitivity)
{
    const WildcardSegment& segment = m_segments.front();
    if (segment.length() == 0 || segment.tokens().front().kind != Kind::Exactly)
        return;
    const char32_t first = segment.tokens().front().character;
    if (first >= 0x80)
        return;
    m_first = static_cast<char16_t>(first);
    const bool isLetter = first >= U'a' && first <= U'z';
    m_firstCase = isLetter && sensitivity == Qt::CaseInsensitive ? 0x20 : 0;
}
