#pragma once

#include <QtGlobal>

#include <vector>

/// What one place of a wildcard pattern lets stand there: always exactly one character.
struct WildcardToken
{
    enum class Kind : quint8 { Exactly, AnyOne, Digit, Letter, Other, OneOf, NoneOf };
    struct Range
    {
        char32_t first;
        char32_t last;
    };

    Kind kind = Kind::Exactly;
    char32_t character = 0; ///< of Exactly
    std::vector<Range> ranges = {}; ///< of OneOf and NoneOf

    bool accepts(char32_t c) const;
};
