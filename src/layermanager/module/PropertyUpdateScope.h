#pragma once

#include "sdk/KestSharedGlobals.h"

/// Keeps the host's property panels from reacting while the palette is built or bound.
class PropertyUpdateScope
{
public:
    PropertyUpdateScope()
        : m_before(KestSharedGlobals::IsUnderPropertyUpdate())
    {
        KestSharedGlobals::SetUnderPropertyUpdate(true);
    }
    ~PropertyUpdateScope() { KestSharedGlobals::SetUnderPropertyUpdate(m_before); }
    PropertyUpdateScope(const PropertyUpdateScope&) = delete;
    PropertyUpdateScope& operator=(const PropertyUpdateScope&) = delete;

private:
    bool m_before; ///< one may be open within another
};
