#pragma once

#include <QSettings>
#include <QString>
#include <QVariant>

/// The user's settings: one ini file.
class UserSettings
{
public:
    /// In `folder`; when that is empty, in the folder "kest" where the desktop keeps
    /// configurations.
    explicit UserSettings(const QString& folder = {});

    QString path() const { return m_settings.fileName(); }
    QVariant value(const QString& key, const QVariant& fallback = {}) const;
    void setValue(const QString& key, const QVariant& value);
    void remove(const QString& key) { m_settings.remove(key); }
    /// Writes to the disk; a sentence when that fails, else empty.
    QString save();
    /// A sentence when the file is there and cannot be understood, else empty.
    QString loadProblem() const;

private:
    QSettings m_settings;
};
