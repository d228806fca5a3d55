#include "host/sysvars/UserSettings.h"

#include "host/text/HostText.h"

#include <QDir>
#include <QStandardPaths>

namespace {
QString settingsFile(const QString& folder)
{
    if (!folder.isEmpty())
        return QDir(folder).absoluteFilePath(QStringLiteral("kest.ini"));
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QDir(base).filePath(QStringLiteral("kest/kest.ini"));
}
} // namespace

UserSettings::UserSettings(const QString& folder)
    : m_settings(settingsFile(folder), QSettings::IniFormat)
{ }

QVariant UserSettings::value(const QString& key, const QVariant& fallback) const
{
    return m_settings.value(key, fallback);
}

void UserSettings::setValue(const QString& key, const QVariant& value)
{
    if (m_settings.value(key) != value)
        m_settings.setValue(key, value);
}

QString UserSettings::save()
{
    m_settings.sync();
    return m_settings.status() == QSettings::AccessError
        ? HostText::tr("The settings cannot be written to %1.").arg(path())
        : QString();
}

QString UserSettings::loadProblem() const
{
    return m_settings.status() == QSettings::FormatError
        ? HostText::tr("The settings in %1 cannot be understood; defaults are used.").arg(path())
        : QString();
}
