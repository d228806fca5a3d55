#include "host/sysvars/PreferenceSettings.h"

#include "host/sysvars/UserSettings.h"
#include "sdk/CKestPreferenceManager.h"

#include <array>

namespace {
struct BoolPreference
{
    const char* key;
    bool* value;
};

struct IntPreference
{
    const char* key;
    int* value;
};

auto boolPreferences()
{
    auto& manager = CKestPreferenceManager::instance();
    return std::array{
        BoolPreference{"Preferences/CombineLayerProperties", &manager.CombineLayerPropPreference},
        BoolPreference{"Preferences/LayerFilterViolationPrompt",
                       &CKestPreferenceManager::s_Layer_FilterViolationPrompt},
        BoolPreference{"Preferences/ApplyLayerFilterToToolbar",
                       &CKestPreferenceManager::s_bApplyLayerFiltertoLayerToolbar},
        BoolPreference{"Preferences/NotifyPresentLayer",
                       &CKestPreferenceManager::s_bNotifyPresentLayer},
    };
}

auto intPreferences()
{
    auto& manager = CKestPreferenceManager::instance();
    return std::array{
        IntPreference{"Preferences/DontListInXref", &manager.m_iDontListinXref},
        IntPreference{"Preferences/OffNotFoundLayer", &manager.m_iOffNotfoundLayer},
    };
}
} // namespace

void loadPreferences(const UserSettings& settings)
{
    for (const BoolPreference& p : boolPreferences())
        *p.value = settings.value(QLatin1String(p.key), *p.value).toBool();
    for (const IntPreference& p : intPreferences()) {
        bool isNumber = false;
        const int value = settings.value(QLatin1String(p.key), *p.value).toInt(&isNumber);
        if (isNumber)
            *p.value = value;
    }
}

void storePreferences(UserSettings& settings)
{
    for (const BoolPreference& p : boolPreferences())
        settings.setValue(QLatin1String(p.key), *p.value);
    for (const IntPreference& p : intPreferences())
        settings.setValue(QLatin1String(p.key), *p.value);
}
