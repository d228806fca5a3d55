#include "support/reference/ReferenceWildcard.h"

#include <functional>
#include <string>
#include <vector>

namespace {
using Fits = std::function<bool(char32_t)>;
using Places = std::vector<bool>;

std::u32string characters(QStringView text, Qt::CaseSensitivity sensitivity)
{
    std::u32string result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        char32_t c = text[i].unicode();
        if (i + 1 < text.size() && QChar::isHighSurrogate(c) && text[i + 1].isLowSurrogate()) {
            c = QChar::surrogateToUcs4(text[i], text[i + 1]);
            ++i;
        }
        result += sensitivity == Qt::CaseInsensitive ? QChar::toCaseFolded(c) : c;
    }
    return result;
}

/// Where the set that begins with the bracket at `i` ends; npos where it does not.
std::size_t closingBracket(const std::u32string& pattern, std::size_t i)
{
    ++i;
    if (i < pattern.size() && pattern[i] == U'~')
        ++i;
    for (bool first = true; i < pattern.size(); ++i, first = false) {
        if (pattern[i] == U']' && !first)
            return i;
        if (pattern[i] == U'`')
            ++i;
    }
    return std::u32string::npos;
}

/// Whether the text between the brackets of a set has the character.
bool setHas(const std::u32string& set, char32_t c)
{
    // A character that a back-quote protects is no minus sign that makes a range.
    struct Member
    {
        char32_t character;
        bool isProtected;
    };
    std::vector<Member> members;
    for (std::size_t i = 0; i < set.size(); ++i) {
        const bool isProtected = set[i] == U'`' && i + 1 < set.size();
        members.push_back({set[i + (isProtected ? 1 : 0)], isProtected});
        i += isProtected ? 1 : 0;
    }
    for (std::size_t i = 0; i < members.size(); ++i) {
        const bool isRange = i + 2 < members.size() && members[i + 1].character == U'-'
            && !members[i + 1].isProtected;
        const char32_t last = members[i + (isRange ? 2 : 0)].character;
        if (members[i].character <= c && c <= last)
            return true;
        i += isRange ? 2 : 0;
    }
    return false;
}

/// What the token at `i` accepts; `i` moves behind it.
Fits tokenAt(const std::u32string& pattern, std::size_t& i)
{
    const char32_t token = pattern[i++];
    const auto isDigit = [](char32_t c) { return QChar::isDigit(c); };
    const auto isLetter = [](char32_t c) { return QChar::isLetter(c); };
    if (token == U'?')
        return [](char32_t) { return true; };
    if (token == U'#')
        return isDigit;
    if (token == U'@')
        return isLetter;
    if (token == U'.')
        return [=](char32_t c) { return !isDigit(c) && !isLetter(c); };
    if (token == U'`' && i < pattern.size())
        return [wanted = pattern[i++]](char32_t c) { return c == wanted; };
    const std::size_t closing =
        token == U'[' ? closingBracket(pattern, i - 1) : std::u32string::npos;
    if (closing == std::u32string::npos)
        return [token](char32_t c) { return c == token; };
    const bool excludes = pattern[i] == U'~';
    i += excludes ? 1 : 0;
    const std::u32string set = pattern.substr(i, closing - i);
    i = closing + 1;
    return [=](char32_t c) { return setHas(set, c) != excludes; };
}

bool matchesAlternative(const std::u32string& text, const std::u32string& pattern)
{
    const bool negated = !pattern.empty() && pattern.front() == U'~';
    Places reached(text.size() + 1, false);
    reached[0] = true;
    for (std::size_t i = negated ? 1 : 0; i < pattern.size();) {
        if (pattern[i] == U'*') {
            ++i;
            for (std::size_t at = 1; at < reached.size(); ++at)
                reached[at] = reached[at] || reached[at - 1];
            continue;
        }
        const Fits fits = tokenAt(pattern, i);
        Places next(reached.size(), false);
        for (std::size_t at = 0; at < text.size(); ++at)
            next[at + 1] = reached[at] && fits(text[at]);
        reached = std::move(next);
    }
    return reached.back() != negated;
}
} // namespace

bool referenceWildcardMatch(QStringView text, QStringView pattern, Qt::CaseSensitivity sensitivity)
{
    const std::u32string name = characters(text, sensitivity);
    const std::u32string whole = characters(pattern, sensitivity);
    std::u32string alternative;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (whole[i] == U',') {
            if (matchesAlternative(name, alternative))
                return true;
            alternative.clear();
            continue;
        }
        alternative += whole[i];
        if (whole[i] == U'`' && i + 1 < whole.size())
            alternative += whole[++i];
    }
    return matchesAlternative(name, alternative);
}
