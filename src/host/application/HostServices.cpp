#include "host/application/HostServices.h"

#include "host/application/HostFrontEnd.h"
#include "host/sysvars/HostSysvarManager.h"
#include "host/text/LineweightText.h"

QString HostServices::lineWeightText(int weight) const
{
    int millimetres = 1;
    m_sysvars.getInt(QStringLiteral("LWUNITS"), millimetres);
    return lineweightText(weight, millimetres != 0);
}

void HostServices::refreshView()
{
    if (m_frontEnd)
        m_frontEnd->regen(false);
}
