#include "layerman/CompanionHost.h"

#include "database/drawing/OdDbDatabase.h"
#include "host/text/LineweightText.h"
#include "sdk/IKestServicesManager.h"
#include "sdk/IKestSysvarManager.h"
#include "sdk/KestStatus.h"

#include <algorithm>

namespace {
template <class Value>
struct Variable
{
    const char* name;
    Value (*read)(const OdDbDatabase& drawing);
};

const Variable<int> kInts[] = {
    {"CMDACTIVE", [](const OdDbDatabase&) { return 0; }},
    {"CVPORT", [](const OdDbDatabase& drawing) { return drawing.getCVPORT(); }},
    {"LWUNITS", [](const OdDbDatabase&) { return 1; }},
    {"SHOWLAYERUSAGE", [](const OdDbDatabase&) { return 1; }},
    {"TILEMODE", [](const OdDbDatabase& drawing) { return drawing.getTILEMODE() ? 1 : 0; }},
    {"UNDOCTL", [](const OdDbDatabase&) { return 0; }},
};
const Variable<QString> kStrings[] = {
    {"CMDNAMES", [](const OdDbDatabase&) { return QString(); }},
    {"CTAB", [](const OdDbDatabase& drawing) { return drawing.getCTAB(); }},
};
const Variable<OdDbObjectId> kIds[] = {
    {"CLAYER", [](const OdDbDatabase& drawing) { return drawing.getCLAYER(); }},
};

template <class Table, class Value>
int readFrom(const Table& table, const OdDbDatabase* drawing, const QString& name, Value& value)
{
    const auto found = std::find_if(std::begin(table), std::end(table), [&](const auto& variable) {
        return name.compare(QLatin1String(variable.name), Qt::CaseInsensitive) == 0;
    });
    if (found == std::end(table) || !drawing)
        return kest::kError;
    value = found->read(*drawing);
    return kest::kNormal;
}
} // namespace

/// Read-only: what this program changes, it changes in the drawing itself.
class CompanionHost::Variables : public IKestSysvarManager
{
public:
    void setDrawing(const OdDbDatabase* drawing) { m_drawing = drawing; }

    int getInt(const QString& name, int& value) const override
    {
        return readFrom(kInts, m_drawing, name, value);
    }
    int setInt(const QString&, int) override { return kest::kError; }
    int getReal(const QString&, double&) const override { return kest::kError; }
    int setReal(const QString&, double) override { return kest::kError; }
    int getString(const QString& name, QString& value) const override
    {
        return readFrom(kStrings, m_drawing, name, value);
    }
    int setString(const QString&, const QString&) override { return kest::kError; }
    int getId(const QString& name, OdDbObjectId& value) const override
    {
        return readFrom(kIds, m_drawing, name, value);
    }
    int setId(const QString&, OdDbObjectId) override { return kest::kError; }

private:
    const OdDbDatabase* m_drawing = nullptr;
};

class CompanionHost::Services : public IKestServicesManager
{
public:
    explicit Services(bool millimetres)
        : m_millimetres(millimetres)
    { }

    QString lineWeightText(int weight) const override
    {
        return lineweightText(weight, m_millimetres);
    }
    QByteArray userState(const QString&) const override { return {}; }
    void setUserState(const QString&, const QByteArray&) override { }
    void refreshView() override { }
    int pickColor(const KestPickRequest&, OdCmColor&) override { return kest::kError; }
    int pickLinetype(const KestPickRequest&, OdDbObjectId&) override { return kest::kError; }
    int pickLineweight(const KestPickRequest&, int&) override { return kest::kError; }
    int pickPlotStyle(const KestPickRequest&, QString&) override { return kest::kError; }
    void showHelp(int) override { }

private:
    bool m_millimetres;
};

CompanionHost::CompanionHost(bool millimetres)
    : m_variables(std::make_unique<Variables>())
    , m_services(std::make_unique<Services>(millimetres))
    , m_before(ksHost())
{
    KestHost host;
    host.sysvars = m_variables.get();
    host.services = m_services.get();
    ksSetHost(host);
}

CompanionHost::~CompanionHost()
{
    ksSetHost(m_before);
}

void CompanionHost::setDrawing(OdDbDatabase* drawing)
{
    m_variables->setDrawing(drawing);
}
