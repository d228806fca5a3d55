#pragma once

#include "sdk/texts/KsResString.h"

/// The tooltips of the layer settings: 40102 to 40114.
std::span<const KsResText> settingsTexts();
