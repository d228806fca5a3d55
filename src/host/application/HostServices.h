#pragma once

#include "sdk/IKestServicesManager.h"

class HostDialogs;
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

    /// Null takes the dialogs away.
    void setDialogs(HostDialogs* dialogs) { m_dialogs = dialogs; }

    QString lineWeightText(int weight) const override;
    QByteArray userState(const QString& key) const override;
    void setUserState(const QString& key, const QByteArray& state) override;
    void refreshView() override;
    int pickColor(const KestPickRequest& request, OdCmColor& color) override;
    int pickLinetype(const KestPickRequest& request, OdDbObjectId& linetype) override;
    int pickLineweight(const KestPickRequest& request, int& weight) override;
    int pickPlotStyle(const KestPickRequest& request, QString& name) override;
    void showHelp(int topic) override;

private:
    const HostSysvarManager& m_sysvars;
    UserSettings& m_settings;
    HostFrontEnd* m_frontEnd = nullptr;
    HostDialogs* m_dialogs = nullptr;
};
