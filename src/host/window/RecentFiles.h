#pragma once

#include <QStringList>

class UserSettings;

/// Files that were used, the latest first, kept in the settings.
class RecentFiles
{
public:
    static constexpr int kMaxFiles = 10;

    explicit RecentFiles(UserSettings& settings)
        : m_settings(settings)
    { }

    QStringList files() const;
    void add(const QString& path);
    void remove(const QString& path);
    /// The text of a file's menu entry: "&1 plan.dxf - /home/ann/house"; missing files say so.
    static QString menuText(int position, const QString& path, bool exists);

private:
    UserSettings& m_settings;
};
