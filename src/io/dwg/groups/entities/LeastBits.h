#pragma once

#include <QtGlobal>

/// Fewest bits that a value of a list takes: no more of them can be counted than the record has
/// room for.
namespace LeastBits {
constexpr quint64 kReal = 2;
constexpr quint64 kFlatPoint = 2 * kReal;
constexpr quint64 kPoint = 3 * kReal;
constexpr quint64 kHandle = 8;
} // namespace LeastBits
