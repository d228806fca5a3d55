#include "base/WildcardToken.h"

#include <QChar>

#include <algorithm>

bool WildcardToken::accepts(char32_t c) const
{
    const auto inRanges = [&] {
        return std::any_of(ranges.begin(), ranges.end(),
                           [c](const Range& r) { return c >= r.first && c <= r.last; });
    };
    switch (kind) {
    case Kind::Exactly:
        return c == character;
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
