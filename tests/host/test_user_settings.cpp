#include "host/sysvars/PreferenceSettings.h"
#include "host/sysvars/UserSettings.h"
#include "sdk/CKestPreferenceManager.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(UserSettings, AreKeptInTheGivenFolder)
{
    const QTemporaryDir folder;
    UserSettings settings(folder.path());
    settings.setValue(QStringLiteral("Group/Key"), 5);
    EXPECT_EQ("", settings.save().toStdString());
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("kest.ini"))));
    EXPECT_EQ(5, UserSettings(folder.path()).value(QStringLiteral("Group/Key")).toInt());
}

TEST(UserSettings, StandInTheDesktopsConfigurationFolderWithoutOne)
{
    const QTemporaryDir folder;
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
    EXPECT_EQ(folder.filePath(QStringLiteral("kest/kest.ini")).toStdString(),
              UserSettings().path().toStdString());
    before.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", before);
}

TEST(UserSettings, AFolderThatCannotHoldThemIsASentence)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("plain")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    UserSettings settings(file.fileName());
    settings.setValue(QStringLiteral("Key"), 1);
    EXPECT_EQ("The settings cannot be written to " + settings.path().toStdString() + '.',
              settings.save().toStdString());
}

TEST(PreferenceSettings, PreferencesOfModulesAreKeptWithTheSettings)
{
    const QTemporaryDir folder;
    auto& preferences = CKestPreferenceManager::instance();
    const bool combine = preferences.CombineLayerPropPreference;
    const int off = preferences.m_iOffNotfoundLayer;
    UserSettings settings(folder.path());
    preferences.CombineLayerPropPreference = !combine;
    preferences.m_iOffNotfoundLayer = 3;
    storePreferences(settings);
    preferences.CombineLayerPropPreference = combine;
    preferences.m_iOffNotfoundLayer = off;
    loadPreferences(settings);
    EXPECT_EQ(!combine, preferences.CombineLayerPropPreference);
    EXPECT_EQ(3, preferences.m_iOffNotfoundLayer);
    preferences.CombineLayerPropPreference = combine;
    preferences.m_iOffNotfoundLayer = off;
}

TEST(PreferenceSettings, SwitchesOfTheLayerPaletteAreKeptForTheNextSession)
{
    const QTemporaryDir folder;
    bool* const switches[] = {&CKestPreferenceManager::s_Layer_FilterViolationPrompt,
                              &CKestPreferenceManager::s_bApplyLayerFiltertoLayerToolbar,
                              &CKestPreferenceManager::s_bNotifyPresentLayer};
    for (bool* const preference : switches) {
        const bool before = *preference;
        {
            UserSettings settings(folder.path());
            *preference = !before;
            storePreferences(settings);
            EXPECT_EQ("", settings.save().toStdString());
        }
        *preference = before;
        loadPreferences(UserSettings(folder.path()));
        EXPECT_EQ(!before, *preference);
        *preference = before;
    }
}
