#include "host/application/HostServices.h"

#include "host/application/HostDialogs.h"
#include "host/application/HostFrontEnd.h"
#include "host/sysvars/HostSysvarManager.h"
#include "host/sysvars/UserSettings.h"
#include "host/text/LineweightText.h"
#include "sdk/KestStatus.h"

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
        m_frontEnd->repaint();
}

int HostServices::pickColor(const KestPickRequest& request, OdCmColor& color)
{
    return m_dialogs ? m_dialogs->pickColor(request, color) : kest::kError;
}

int HostServices::pickLinetype(const KestPickRequest& request, OdDbObjectId& linetype)
{
    return m_dialogs ? m_dialogs->pickLinetype(request, linetype) : kest::kError;
}

int HostServices::pickLineweight(const KestPickRequest& request, int& weight)
{
    return m_dialogs ? m_dialogs->pickLineweight(request, weight) : kest::kError;
}

int HostServices::pickPlotStyle(const KestPickRequest& request, QString& name)
{
    return m_dialogs ? m_dialogs->pickPlotStyle(request, name) : kest::kError;
}

void HostServices::showHelp(int topic)
{
    if (m_dialogs)
        m_dialogs->showHelp(topic);
}
