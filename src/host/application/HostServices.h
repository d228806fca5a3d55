#pragma once

#include "sdk/IKestServicesManager.h"

class HostFrontEnd;
class HostSysvarManager;

/// The host's services for modules.
class HostServices : public IKestServicesManager
{
public:
    explicit HostServices(const HostSysvarManager& sysvars)
        : m_sysvars(sysvars)
    { }
    void setFrontEnd(HostFrontEnd& frontEnd) { m_frontEnd = &frontEnd; }

    QString lineWeightText(int weight) const override;
    void refreshView() override;

private:
    const HostSysvarManager& m_sysvars;
    HostFrontEnd* m_frontEnd = nullptr;
};
