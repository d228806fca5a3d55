#include "sdk/CKestPreferenceManager.h"

bool CKestPreferenceManager::s_Layer_FilterViolationPrompt = true;
bool CKestPreferenceManager::s_bApplyLayerFiltertoLayerToolbar = false;
bool CKestPreferenceManager::s_bNotifyPresentLayer = false;

CKestPreferenceManager& CKestPreferenceManager::instance()
{
    static CKestPreferenceManager preferences;
    return preferences;
}
