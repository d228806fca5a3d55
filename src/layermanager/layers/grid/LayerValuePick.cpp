#include "layermanager/layers/grid/LayerValuePick.h"

#include "sdk/IKestServicesManager.h"
#include "sdk/KestStatus.h"

namespace {

struct PickDialog
{
    IKestServicesManager& services;
    KestPickRequest request;

    bool ask(bool) { return false; }
    bool ask(OdCmColor& color) { return services.pickColor(request, color) == kest::kNormal; }
    bool ask(OdDbObjectId& linetype)
    {
        return services.pickLinetype(request, linetype) == kest::kNormal;
    }
    bool ask(QString& plotStyle)
    {
        return services.pickPlotStyle(request, plotStyle) == kest::kNormal;
    }
    bool ask(qint16& weight)
    {
        int picked = weight;
        const bool answered = services.pickLineweight(request, picked) == kest::kNormal;
        weight = static_cast<qint16>(picked);
        return answered;
    }
};

} // namespace

std::optional<LayerValue> pickLayerValue(QWidget* parent, const LayerValue& start)
{
    IKestServicesManager* services = getServicesManagerInterface();
    if (!services)
        return std::nullopt;
    PickDialog dialog{*services, {}};
    dialog.request.parent = parent;
    LayerValue value = start;
    const bool answered = std::visit([&](auto& current) { return dialog.ask(current); }, value);
    return answered ? std::optional(value) : std::nullopt;
}
