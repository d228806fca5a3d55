#pragma once

#include <array>
#include <cstdint>

/// How the value of a group is written. A text drawing has a line for each; a binary one has a
/// zero-terminated text, a little-endian number, or a length byte with that many bytes.
enum class GroupKind : std::uint8_t {
    Text,
    Handle, ///< hexadecimal text in either form
    Real, ///< 8 bytes
    Int16,
    Int32,
    Int64,
    Bool, ///< 1 byte
    Chunk, ///< hexadecimal text in text drawings
};

namespace GroupCodes {

/// Codes of files are 0 to kHighest; the few negative ones stand in text drawings only.
constexpr int kHighest = 1071;

struct Range
{
    int first;
    int last;
    GroupKind kind;
};

/// Ascending. Codes in no range have no form in binary drawings; in text drawings they are texts.
constexpr Range kRanges[] = {
    {0, 4, GroupKind::Text},        {5, 5, GroupKind::Handle},      {6, 9, GroupKind::Text},
    {10, 59, GroupKind::Real},      {60, 79, GroupKind::Int16},     {90, 99, GroupKind::Int32},
    {100, 102, GroupKind::Text},    {105, 105, GroupKind::Handle},  {110, 149, GroupKind::Real},
    {160, 169, GroupKind::Int64},   {170, 179, GroupKind::Int16},   {210, 239, GroupKind::Real},
    {270, 289, GroupKind::Int16},   {290, 299, GroupKind::Bool},    {300, 309, GroupKind::Text},
    {310, 319, GroupKind::Chunk},   {320, 369, GroupKind::Handle},  {370, 389, GroupKind::Int16},
    {390, 399, GroupKind::Handle},  {400, 409, GroupKind::Int16},   {410, 419, GroupKind::Text},
    {420, 429, GroupKind::Int32},   {430, 439, GroupKind::Text},    {440, 459, GroupKind::Int32},
    {460, 469, GroupKind::Real},    {470, 479, GroupKind::Text},    {480, 481, GroupKind::Handle},
    {999, 1003, GroupKind::Text},   {1004, 1004, GroupKind::Chunk}, {1005, 1005, GroupKind::Handle},
    {1006, 1009, GroupKind::Text},  {1010, 1059, GroupKind::Real},  {1060, 1070, GroupKind::Int16},
    {1071, 1071, GroupKind::Int32},
};

/// Per code its kind + 1; 0 where it is in no range.
constexpr auto kKinds = [] {
    std::array<std::uint8_t, kHighest + 1> kinds{};
    for (const Range& range : kRanges) {
        for (int code = range.first; code <= range.last; ++code)
            kinds[static_cast<std::size_t>(code)] =
                static_cast<std::uint8_t>(static_cast<int>(range.kind) + 1);
    }
    return kinds;
}();

} // namespace GroupCodes

/// Whether groups of that code have a form in binary drawings.
constexpr bool hasBinaryForm(int code)
{
    return code >= 0 && code <= GroupCodes::kHighest
        && GroupCodes::kKinds[static_cast<std::size_t>(code)] != 0;
}

constexpr GroupKind groupKind(int code)
{
    return hasBinaryForm(code)
        ? static_cast<GroupKind>(GroupCodes::kKinds[static_cast<std::size_t>(code)] - 1)
        : GroupKind::Text;
}
