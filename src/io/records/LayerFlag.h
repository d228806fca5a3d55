#pragma once

/// Bits of group 70 of a LAYER record.
namespace LayerFlag {
constexpr int kFrozen = 1;
constexpr int kFrozenInNewViewports = 2;
constexpr int kLocked = 4;
constexpr int kDependent = 16;
} // namespace LayerFlag
