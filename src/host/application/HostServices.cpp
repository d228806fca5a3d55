#include "host/application/HostServices.h"

#include "host/application/HostFrontEnd.h"
#include "host/sysvars/HostSysvarManager.h"
#include "host/sysvars/UserSettings.h"
#include "host/text/LineweightText.h"

namespace {
QString stateKey(const QString& key)
{
    return QStringLiteral("Modules/") + key;
}
} // namespace

QString HostServices::lineWeightText(int weight) const
{
    int millimetres = 1;
    m_sysvars.getInt(QStringLiteral("LWUNITS"), millimetres);
    return lineweightText(weight, millimetres != 0);
}

QByteArray HostServices::userState(const QString& key) const
{
    return m_settings.value(stateKey(key)).toByteArray();
}

void HostServices::setUserState(const QString& key, const QByteArray& state)
{
    m_settings.setValue(stateKey(key), state);
}

void HostServices::refreshView()
{
    if (m_frontEnd)
        m_frontEnd->regen(false);
}
