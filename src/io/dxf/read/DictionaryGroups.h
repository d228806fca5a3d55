#pragma once

/// DICTIONARY records as groups.
namespace DictionaryGroups {

/// Whether a group of that code holds the object of the key before it. 350 is a soft owner, 360 a
/// hard one; some programs write 340.
constexpr bool isValue(int code)
{
    return code == 350 || code == 360 || code == 340;
}

} // namespace DictionaryGroups
