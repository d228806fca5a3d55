#include "layermanager/filters/LayersOfFilter.h"

#include "database/OdDbDatabase.h"
#include "database/OdDbLayerTable.h"
#include "database/OdDbLayerTableRecord.h"
#include "database/OdLyLayerFilter.h"
#include "layermanager/filters/FilterExpression.h"
#include "layermanager/filters/LayerFilterMatch.h"
#include "layermanager/layers/HostVariables.h"

#include <algorithm>

namespace {

/// Sorts the layers of the table into the two lists, in its order.
template <class IsIn>
void divide(const OdDbDatabase& database, IsIn isIn, LayerIds& inLayers, LayerIds* otherLayers)
{
    inLayers.clear();
    if (otherLayers)
        otherLayers->clear();
    for (const OdDbObjectId id : database.layerTable().records()) {
        if (isIn(id))
            inLayers.push_back(id);
        else if (otherLayers)
            otherLayers->push_back(id);
    }
}

/// The same by the layers' records.
template <class IsIn>
void divideByRecord(const OdDbDatabase& database, IsIn isIn, LayerIds& inLayers,
                    LayerIds* otherLayers)
{
    divide(
        database, [&](OdDbObjectId id) { return isIn(*id.safeOpenObject<OdDbLayerTableRecord>()); },
        inLayers, otherLayers);
}

/// By slot, whether a layer is a member. Ids of other drawings are none.
std::vector<bool> membersOf(const OdDbDatabase& database, const OdLyLayerGroup& group)
{
    std::vector<bool> isMember;
    for (const OdDbObjectId id : group.layerIds()) {
        if (id.isNull() || id.database() != &database)
            continue;
        if (id.slot() >= isMember.size())
            isMember.resize(id.slot() + std::size_t(1));
        isMember[id.slot()] = true;
    }
    return isMember;
}

enum class Meaning { Group, Unreconciled, All, Used, Expression };

/// A group is one whatever its name; of the others the names decide.
Meaning meaningOf(const OdLyLayerFilter& filter)
{
    const auto isNamed = [&](QLatin1String name) {
        return filter.name().compare(name, Qt::CaseInsensitive) == 0;
    };
    if (isNamed(QLatin1String("UnReconciled New Layers")))
        return Meaning::Unreconciled;
    if (filter.isIdFilter())
        return Meaning::Group;
    if (isNamed(QLatin1String("All")))
        return Meaning::All;
    return isNamed(QLatin1String("All used layers")) ? Meaning::Used : Meaning::Expression;
}

} // namespace

void getLayersOfRows(OdDbDatabase& database, const LayerFilterRows& rows, LayerIds& inLayers,
                     LayerIds* otherLayers)
{
    database.layerTable().generateUsageData();
    const OdDbObjectId viewport = LayerRowMatcher::currentViewport(database);
    std::vector<LayerRowMatcher> matchers;
    matchers.reserve(rows.size());
    for (const LayerFilterRow& row : rows)
        matchers.emplace_back(row, viewport);
    const auto passesAny = [&](const OdDbLayerTableRecord& layer) {
        return std::any_of(matchers.begin(), matchers.end(),
                           [&](const LayerRowMatcher& row) { return row.matches(layer); });
    };
    divideByRecord(database, passesAny, inLayers, otherLayers);
}

void GetLayersOfFilter(OdDbDatabase& database, const OdLyLayerFilter& filter, LayerIds& inLayers,
                       LayerIds* otherLayers)
{
    switch (meaningOf(filter)) {
    case Meaning::Group: {
        const std::vector<bool> isMember =
            membersOf(database, static_cast<const OdLyLayerGroup&>(filter));
        const auto isIn = [&](OdDbObjectId id) {
            return id.slot() < isMember.size() && isMember[id.slot()];
        };
        return divide(database, isIn, inLayers, otherLayers);
    }
    case Meaning::Unreconciled:
        return divideByRecord(
            database, [](const OdDbLayerTableRecord& layer) { return !layer.isReconciled(); },
            inLayers, otherLayers);
    case Meaning::All:
        return divide(
            database, [](OdDbObjectId) { return true; }, inLayers, otherLayers);
    case Meaning::Used:
        // The filter shows the same whether or not the grid shows usage.
        readHostInt(QStringLiteral("SHOWLAYERUSAGE"));
        database.layerTable().generateUsageData();
        return divide(
            database,
            [&](OdDbObjectId id) { return database.layerTable().useCount(id.slot()) > 0; },
            inLayers, otherLayers);
    case Meaning::Expression: {
        LayerFilterRows rows;
        ParseFilterExpression(database, filter.filterExpression(), rows);
        return getLayersOfRows(database, rows, inLayers, otherLayers);
    }
    }
}
