#pragma once

#include "sdk/texts/KsResString.h"

/// The module's application object.
class CLayerManager
{
public:
    CLayerManager(const CLayerManager&) = delete;
    CLayerManager& operator=(const CLayerManager&) = delete;

    static CLayerManager& instance();

    /// Called when the library was loaded; reports success.
    bool InitInstance();
    /// Called before the library is unloaded; the exit code.
    int ExitInstance();
    /// Loads the texts in the user's language that lie beside the library of `instance`.
    KsResourceHandle LoadAppLangResourceDLL(void* instance) const;

private:
    CLayerManager() = default;
};
