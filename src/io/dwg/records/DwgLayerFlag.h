#pragma once

/// Bits of the flags of a layer's record since version 2000.
namespace DwgLayerFlag {
constexpr int kFrozen = 1;
constexpr int kOff = 2;
constexpr int kFrozenInNewViewports = 4;
constexpr int kLocked = 8;
constexpr int kPlottable = 16;
constexpr int kLineWeightShift = 5;
constexpr int kLineWeightMask = 0x1F;
} // namespace DwgLayerFlag
