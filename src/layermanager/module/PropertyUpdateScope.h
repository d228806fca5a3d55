#pragma once

#include "sdk/KestSharedGlobals.h"

/// Keeps the host's property panels from reacting while the palette is built or bound.
class PropertyUpdateScope
{
public:
    PropertyUpdateScope() { KestSharedGlobals::SetUnderPropertyUpdate(true); }
    ~PropertyUpdateScope() { KestSharedGlobals::SetUnderPropertyUpdate(false); }
    PropertyUpdateScope(const PropertyUpdateScope&) = delete;
    PropertyUpdateScope& operator=(const PropertyUpdateScope&) = delete;
};
