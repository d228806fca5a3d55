#pragma once

#include <QString>

/// A text as a sentence quotes it: of a long one the beginning.
inline QString abridged(const QString& text)
{
    constexpr qsizetype kLongest = 120;
    constexpr qsizetype kShown = 100;
    return text.size() > kLongest ? text.left(kShown) + QStringLiteral("...") : text;
}
