#pragma once

class UserSettings;

/// Fills the preferences that modules read from the settings, and keeps them there.
void loadPreferences(const UserSettings& settings);
void storePreferences(UserSettings& settings);
