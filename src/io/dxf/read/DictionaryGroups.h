#pragma once

/// DICTIONARY records as groups.
namespace DictionaryGroups {

constexpr int kSoftOwner = 350;
constexpr int kHardOwner = 360;

/// Whether a group of that code holds the object of the key before it: an owner, or what some
/// programs write for one.
constexpr bool isValue(int code)
{
    constexpr int kHardPointer = 340;
    return code == kSoftOwner || code == kHardOwner || code == kHardPointer;
}

} // namespace DictionaryGroups
