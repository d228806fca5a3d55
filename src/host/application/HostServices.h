#pragma once

#include "sdk/IKestServicesManager.h"

class HostFrontEnd;
class HostSysvarManager;
class UserSettings;

/// The host's services for modules.
class HostServices : public IKestServicesManager
{
public:
    HostServices(const HostSysvarManager& sysvars, UserSettings& settings)
        : m_sysvars(sysvars)
        , m_settings(settings)
    { }
    void setFrontEnd(HostFrontEnd& frontEnd) { m_frontEnd = &frontEnd; }

    QString lineWeightText(int weight) const override;
    QByteArray userState(const QString& key) const override;
    void setUserState(const QString& key, const QByteArray& state) override;
    void refreshView() override;

private:
    const HostSysvarManager& m_sysvars;
    UserSettings& m_settings;
    HostFrontEnd* m_frontEnd = nullptr;
};
