#include "layermanager/filters/tree/UnreconciledFilter.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/FilterRecords.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/values/OdError.h"
#include "layermanager/layers/HostVariables.h"

#include <algorithm>

namespace {

/// Evaluation mode in which layers of external references do not count.
constexpr int kOwnLayersOnly = 1;

bool isUnreconciled(const OdDbLayerTableRecord& layer, int evaluationMode)
{
    if (layer.objectId() == layer.database()->getLayerZeroId()
        || layer.getName().contains(QLatin1Char('*'))
        || (evaluationMode == kOwnLayersOnly && layer.isDependent()))
        return false;
    try {
        return !layer.isReconciled();
    } catch (const OdError&) {
        return false; // one layer that does not answer is left out
    }
}

OdLyLayerFilterPtr unreconciledFilter(const OdLyLayerFilter& root)
{
    const auto& nested = root.getNestedFilters();
    const auto it = std::find_if(nested.begin(), nested.end(), [](const auto& filter) {
        return filter->name().compare(FilterRecords::kUnreconciled, Qt::CaseInsensitive) == 0;
    });
    return it == nested.end() ? nullptr : *it;
}

OdLyLayerGroupPtr collected(OdDbDatabase& database, int evaluationMode)
{
    const auto group = odrxCreate<OdLyLayerGroup>(FilterRecords::kUnreconciled);
    group->setDynamicallyGenerated(true);
    return CollectUnreconciledLayers(database, *group, evaluationMode) ? group : nullptr;
}

bool hasLayersOf(const OdLyLayerFilter& filter, const OdLyLayerGroup& group)
{
    return filter.isIdFilter()
        && static_cast<const OdLyLayerGroup&>(filter).layerIds() == group.layerIds();
}

} // namespace

bool CollectUnreconciledLayers(OdDbDatabase& database, OdLyLayerGroup& group, int evaluationMode)
{
    bool added = false;
    for (const quint32 slot : database.layerTable().slotsInOrder()) {
        const OdDbObjectId id = database.idOfSlot(slot);
        const auto layer = id.openObject<OdDbLayerTableRecord>();
        if (!layer || !isUnreconciled(*layer, evaluationMode))
            continue;
        group.addLayerId(id);
        added = true;
    }
    return added;
}

bool updateUnreconciledFilter(OdDbDatabase& database)
{
    const OdLyLayerFilterManagerPtr manager = odlyGetLayerFilterManager(&database);
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    manager->getFilters(root, current);
    const OdLyLayerFilterPtr present = unreconciledFilter(*root);

    const std::optional<int> evaluation = readHostInt(QStringLiteral("layerEval"));
    if (!evaluation)
        return false;
    const bool evaluates =
        *evaluation != 0 && readHostInt(QStringLiteral("LAYEREVALCTL")).value_or(0) != 0;
    const OdLyLayerGroupPtr wanted = evaluates ? collected(database, *evaluation) : nullptr;
    if (!present && !wanted)
        return false;
    if (present && wanted && hasLayersOf(*present, *wanted))
        return false;
    const bool wasCurrent = present && present == current;
    if (present)
        present->parent()->removeNested(present);
    if (wanted)
        root->addNested(wanted);
    // Where it goes, the drawing's note of it as the current one stays, and means the root: to
    // write here would be an edit that nobody made, and would end what can be redone.
    if (wasCurrent && wanted)
        current = wanted;
    manager->setFilters(root, current);
    return true;
}
