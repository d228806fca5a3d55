#pragma once

#include <QStringList>
#include <QStringView>

#include <vector>

/// A wildcard pattern for names, compiled once. Letters match whatever their case.
///
///     *        any run of characters, also none      ?   any one character
///     #        one digit                             @   one letter
///     .        one character that is neither         ~   in front: what does not match
///     [abc]    one of the set, a-z in it is a range; "]" as its first member is a member
///     [~abc]   one that is not in the set            `   the next character as it is
///     ,        separates patterns: a name that matches one of them matches
///
/// A bracket that is not closed is an ordinary character. Time and memory are bounded by the
/// pattern's length times the name's, whatever the pattern.
class WildcardPattern
{
public:
    explicit WildcardPattern(QStringView pattern);

    bool matches(QStringView name) const;

    /// The patterns between commas, blanks around each taken off, empty ones left out.
    static QStringList alternatives(QStringView pattern);
    /// Whether one alternative matches just one name, however that is spelled.
    static bool isLiteral(QStringView alternative);
    /// One alternative without its back-quotes.
    static QString unescaped(QStringView alternative);

private:
    enum class Kind : quint8 { Exactly, AnyRun, AnyOne, Digit, Letter, Other, OneOf, NoneOf };
    struct Range
    {
        char32_t first;
        char32_t last;
    };
    struct Token
    {
        Kind kind = Kind::Exactly;
        char32_t character = 0;
        std::vector<Range> ranges = {};

        bool accepts(char32_t character) const;
    };
    struct Alternative
    {
        bool negated = false;
        std::vector<Token> tokens = {};

        bool matches(const char32_t* name, std::size_t length) const;
    };

    static Alternative compile(const std::vector<char32_t>& text);
    static bool readSet(const std::vector<char32_t>& text, std::size_t& at, Token& token);
    static std::vector<std::vector<char32_t>> split(QStringView pattern);

    std::vector<Alternative> m_alternatives;
};

/// Whether a name matches; see WildcardPattern. A pattern that is tried on many names is compiled
/// once.
inline bool matchesWildcard(const WildcardPattern& pattern, QStringView name)
{
    return pattern.matches(name);
}
