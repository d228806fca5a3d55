#include "base/WildcardPattern.h"

#include <QVarLengthArray>

#include <algorithm>

namespace {
constexpr char32_t kEscape = U'`';
constexpr char32_t kNegation = U'~';

/// Reads the characters of a text, surrogate pairs as one.
template <class Sink>
void eachCharacter(QStringView text, Sink sink)
{
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar unit = text[at];
        if (unit.isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate()) {
            sink(QChar::surrogateToUcs4(unit, text[at + 1]));
            ++at;
        } else {
            sink(char32_t(unit.unicode()));
        }
    }
}

bool isIn(QLatin1String set, char32_t character)
{
    return character < 128 && set.contains(QLatin1Char(static_cast<char>(character)));
}
} // namespace

WildcardPattern::WildcardPattern(QStringView pattern)
{
    for (const std::vector<char32_t>& text : split(pattern))
        m_alternatives.push_back(compile(text));
}

std::vector<std::vector<char32_t>> WildcardPattern::split(QStringView pattern)
{
    std::vector<std::vector<char32_t>> parts(1);
    bool escaped = false;
    eachCharacter(pattern, [&](char32_t character) {
        if (character == U',' && !escaped)
            parts.emplace_back();
        else
            parts.back().push_back(character);
        escaped = character == kEscape && !escaped;
    });
    return parts;
}

bool WildcardPattern::readSet(const std::vector<char32_t>& text, std::size_t& at, Token& token)
{
    std::size_t next = at + 1;
    token.kind = Kind::OneOf;
    if (next < text.size() && text[next] == kNegation) {
        token.kind = Kind::NoneOf;
        ++next;
    }
    const auto folded = [&](std::size_t place) { return QChar::toCaseFolded(text[place]); };
    const std::size_t firstMember = next;
    for (; next < text.size() && (text[next] != U']' || next == firstMember); ++next) {
        if (text[next] == kEscape && next + 1 < text.size())
            ++next;
        Range range{folded(next), folded(next)};
        const bool isRange =
            next + 2 < text.size() && text[next + 1] == U'-' && text[next + 2] != U']';
        if (isRange) {
            range.last = folded(next + 2);
            next += 2;
        }
        token.ranges.push_back(range);
    }
    if (next >= text.size())
        return false;
    at = next;
    return true;
}

WildcardPattern::Alternative WildcardPattern::compile(const std::vector<char32_t>& text)
{
    Alternative result;
    std::size_t at = 0;
    // Behind a bracket that no other closes there is none that would be closed, and searching
    // again for each would take quadratic time.
    bool bracketsClose = true;
    if (!text.empty() && text.front() == kNegation) {
        result.negated = true;
        ++at;
    }
    for (; at < text.size(); ++at) {
        Token token;
        switch (text[at]) {
        case U'*':
            token.kind = Kind::AnyRun;
            break;
        case U'?':
            token.kind = Kind::AnyOne;
            break;
        case U'#':
            token.kind = Kind::Digit;
            break;
        case U'@':
            token.kind = Kind::Letter;
            break;
        case U'.':
            token.kind = Kind::Other;
            break;
        case U'[':
            bracketsClose = bracketsClose && readSet(text, at, token);
            if (!bracketsClose)
                token = {Kind::Exactly, U'['};
            break;
        case kEscape:
            if (at + 1 < text.size())
                ++at;
            [[fallthrough]];
        default:
            token.character = QChar::toCaseFolded(text[at]);
        }
        const bool repeatsRun = token.kind == Kind::AnyRun && !result.tokens.empty()
            && result.tokens.back().kind == Kind::AnyRun;
        if (!repeatsRun)
            result.tokens.push_back(std::move(token));
    }
    return result;
}

bool WildcardPattern::Token::accepts(char32_t c) const
{
    const auto inRanges = [&] {
        return std::any_of(ranges.begin(), ranges.end(),
                           [c](const Range& r) { return c >= r.first && c <= r.last; });
    };
    switch (kind) {
    case Kind::Exactly:
        return c == character;
    case Kind::AnyRun:
    case Kind::AnyOne:
        return true;
    case Kind::Digit:
        return QChar::isDigit(c);
    case Kind::Letter:
        return QChar::isLetter(c);
    case Kind::Other:
        return !QChar::isDigit(c) && !QChar::isLetter(c);
    case Kind::OneOf:
        return inRanges();
    case Kind::NoneOf:
        return !inRanges();
    }
    return false;
}

bool WildcardPattern::Alternative::matches(const char32_t* name, std::size_t length) const
{
    // Only the last run has to be given more characters: an earlier one that took the first place
    // where the part behind it fits leaves the most to the rest.
    constexpr std::size_t kNone = ~std::size_t(0);
    std::size_t token = 0;
    std::size_t at = 0;
    std::size_t runToken = kNone;
    std::size_t runAt = 0;
    while (at < length) {
        if (token < tokens.size() && tokens[token].kind == Kind::AnyRun) {
            runToken = token++;
            runAt = at;
        } else if (token < tokens.size() && tokens[token].accepts(name[at])) {
            ++token;
            ++at;
        } else if (runToken != kNone) {
            token = runToken + 1;
            at = ++runAt;
        } else {
            return negated;
        }
    }
    while (token < tokens.size() && tokens[token].kind == Kind::AnyRun)
        ++token;
    return (token == tokens.size()) != negated;
}

bool WildcardPattern::matches(QStringView name) const
{
    QVarLengthArray<char32_t, 256> folded;
    eachCharacter(name, [&](char32_t c) { folded.append(QChar::toCaseFolded(c)); });
    const auto length = static_cast<std::size_t>(folded.size());
    return std::any_of(m_alternatives.begin(), m_alternatives.end(),
                       [&](const Alternative& a) { return a.matches(folded.constData(), length); });
}

QStringList WildcardPattern::alternatives(QStringView pattern)
{
    QStringList result;
    for (const std::vector<char32_t>& part : split(pattern)) {
        const QString text =
            QString::fromUcs4(part.data(), static_cast<qsizetype>(part.size())).trimmed();
        if (!text.isEmpty())
            result << text;
    }
    return result;
}

bool WildcardPattern::isLiteral(QStringView alternative)
{
    if (alternative.startsWith(QLatin1Char('~')))
        return false;
    bool escaped = false;
    bool literal = true;
    eachCharacter(alternative, [&](char32_t character) {
        literal = literal && (escaped || !isIn(QLatin1String("*?#@.["), character));
        escaped = character == kEscape && !escaped;
    });
    return literal;
}

QString WildcardPattern::unescaped(QStringView alternative)
{
    QString result;
    bool escaped = false;
    for (const QChar unit : alternative) {
        escaped = !escaped && unit == QLatin1Char('`');
        if (!escaped)
            result += unit;
    }
    return result;
}
