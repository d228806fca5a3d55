#include "layermanager/layers/operations/LayerOverrides.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbLayout.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/layers/operations/UndoRecordOnDemand.h"

#include <algorithm>

namespace {

using Record = OdDbLayerTableRecord;
using Ids = std::span<const OdDbObjectId>;
using enum OverrideScope;

/// The viewports that a scope is about; none for all.
std::vector<OdDbObjectId> viewportsOf(const OdDbDatabase& database, OverrideScope scope)
{
    std::vector<OdDbObjectId> found;
    if (scope == ActiveViewport || scope == PropertiesInActiveViewport) {
        found.push_back(database.activeViewportId());
    } else if (scope == PropertiesInEachLayout) {
        for (const OdDbObjectId id : database.layouts()) {
            const auto layout = id.openObject<OdDbLayout>();
            if (layout->getTabOrder() != 0)
                found.push_back(database.activeViewportOf(layout->getBlockTableRecordId()));
        }
    }
    std::erase_if(found, [](OdDbObjectId viewport) { return viewport.isNull(); });
    return found;
}

bool hasProperties(const LayerOverride& there)
{
    return there.color || there.linetype || there.lineWeight || there.plotStyle;
}

bool hasOverrides(const Record& layer, OverrideScope scope, Ids viewports)
{
    if (scope == AllViewports)
        return layer.hasAnyOverrides();
    return std::any_of(viewports.begin(), viewports.end(), [&](OdDbObjectId viewport) {
        const LayerOverride* there = layer.overrideIn(viewport);
        return there && (scope == ActiveViewport || hasProperties(*there));
    });
}

void removeProperties(Record& layer, OdDbObjectId viewport)
{
    layer.removeColorOverride(viewport);
    layer.removeLinetypeOverride(viewport);
    layer.removeLineWeightOverride(viewport);
    layer.removePlotStyleOverride(viewport);
}

void remove(Record& layer, OverrideScope scope, Ids viewports)
{
    if (scope == AllViewports)
        return layer.removeAllOverrides();
    for (const OdDbObjectId viewport : viewports) {
        if (scope == ActiveViewport)
            layer.removeViewportOverrides(viewport);
        else
            removeProperties(layer, viewport);
    }
}

} // namespace

LayerOutcome removeLayerOverrides(OdDbDatabase& database, OverrideScope scope, Ids layers)
{
    LayerOutcome outcome;
    UndoRecordOnDemand record(database);
    const std::vector<OdDbObjectId> viewports = viewportsOf(database, scope);
    for (const OdDbObjectId id : layers) {
        try {
            const auto layer = id.openObject<Record>(OdDb::kForWrite);
            if (!layer || !hasOverrides(*layer, scope, viewports))
                continue;
            record.begin();
            remove(*layer, scope, viewports);
            outcome.changed.push_back(id);
        } catch (const OdError& error) {
            outcome.refuse(id, error.description());
        }
    }
    return outcome;
}

bool haveLayerOverrides(const OdDbDatabase& database, OverrideScope scope, Ids layers)
{
    const std::vector<OdDbObjectId> viewports = viewportsOf(database, scope);
    return std::any_of(layers.begin(), layers.end(), [&](OdDbObjectId id) {
        const auto layer = id.openObject<Record>();
        return layer && hasOverrides(*layer, scope, viewports);
    });
}
