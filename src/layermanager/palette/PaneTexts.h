#pragma once

#include "sdk/texts/KsResString.h"

/// The palette's resource strings.
std::span<const KsResText> paneTexts();

namespace pane_text {
inline constexpr int kCurrentLayer = 84537;
inline constexpr int kStatus = 85988;
} // namespace pane_text
