#include "base/NameCharacters.h"

#include <algorithm>

bool name_characters::containsAnyOf(QStringView name, QLatin1String characters)
{
    return std::any_of(name.begin(), name.end(),
                       [characters](QChar c) { return characters.contains(c); });
}

bool name_characters::canNameRecord(QStringView name)
{
    constexpr qsizetype kLongest = 255;
    const auto isControl = [](QChar c) { return c < QLatin1Char(' '); };
    return !name.isEmpty() && name.size() <= kLongest && !containsAnyOf(name, kNotInLayers)
        && std::none_of(name.begin(), name.end(), isControl);
}
