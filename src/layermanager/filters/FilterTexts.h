#pragma once

#include "sdk/texts/KsResString.h"

/// The resource strings of filters and of their tree.
std::span<const KsResText> filterTexts();
