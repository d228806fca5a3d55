#pragma once

/// Status codes of host calls.
namespace kest {
inline constexpr int kNormal = 5100; ///< normal completion
inline constexpr int kError = -5001; ///< failed, or no match
inline constexpr int kCancel = -5002; ///< the user cancelled
inline constexpr int kNone = 5000; ///< the user answered with nothing
} // namespace kest
