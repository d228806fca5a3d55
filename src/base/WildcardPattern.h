#pragma once

#include "base/WildcardAlternative.h"

#include <QStringList>

/// A wildcard pattern for names, compiled once.
///
///     *        any run of characters, also none      ?   any one character
///     #        one digit                             @   one letter
///     .        one character that is neither         ~   in front: what does not match
///     [abc]    one of the set, a-z in it is a range; "]" as its first member is a member
///     [~abc]   one that is not in the set            `   the next character as it is
///     ,        separates patterns: a name that matches one of them matches
///
/// A bracket that is not closed is an ordinary character. A back-quote works inside a set too; a
/// bracket does not keep a comma from separating.
///
/// Where case does not matter, pattern and name are folded character by character, each to one
/// character, as the names of a table are for their index; the kinds of characters are those of the
/// folded ones. A character is a code point.
///
/// Matching allocates nothing and takes no more time than the pattern's length times the name's,
/// whatever the pattern; the memory of a pattern grows with its length.
class WildcardPattern
{
public:
    explicit WildcardPattern(QStringView pattern,
                             Qt::CaseSensitivity sensitivity = Qt::CaseInsensitive);

    bool matches(QStringView name) const;

    /// The patterns between commas, blanks around each taken off, empty ones left out.
    static QStringList alternatives(QStringView pattern);
    /// Whether one alternative matches just one name, however that is spelled.
    static bool isLiteral(QStringView alternative);
    /// One alternative without its back-quotes.
    static QString unescaped(QStringView alternative);

private:
    Qt::CaseSensitivity m_sensitivity;
    std::vector<WildcardAlternative> m_alternatives;
};
