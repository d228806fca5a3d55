#include "layermanager/module/CLayerManager.h"

CLayerManager& CLayerManager::instance()
{
    static CLayerManager manager;
    return manager;
}

bool CLayerManager::InitInstance()
{
    return true;
}

int CLayerManager::ExitInstance()
{
    return 0;
}

KsResourceHandle CLayerManager::LoadAppLangResourceDLL(void* instance) const
{
    return KsLoadAppLangResourceDLL(instance);
}
