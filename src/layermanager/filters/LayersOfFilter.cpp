#include "layermanager/filters/LayersOfFilter.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/OdLyLayerFilter.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/filters/FilterExpression.h"
#include "layermanager/filters/LayerFilterTest.h"
#include "layermanager/layers/HostVariables.h"

#include <algorithm>

namespace {

/// Sorts the layers of the table into the two lists, in its order.
template <class IsIn>
void divide(const LayerIds& table, IsIn isIn, LayerIds& inLayers, LayerIds* otherLayers)
{
    inLayers.clear();
    if (otherLayers)
        otherLayers->clear();
    for (const OdDbObjectId id : table) {
        if (isIn(id))
            inLayers.push_back(id);
        else if (otherLayers)
            otherLayers->push_back(id);
    }
}

/// Has the memory of a record brought near, as far as the compiler can say that. Not read yet, it
/// has none.
void fetch(const OdDbDatabase& database, OdDbObjectId layer)
{
#ifdef __GNUC__
    constexpr std::size_t kLine = 64; // bytes; what filters ask stands in the first two
    static_assert(sizeof(OdDbLayerTableRecord) > kLine);
    if (const OdDbObject* record = database.store().object(layer.slot())) {
        __builtin_prefetch(record);
        __builtin_prefetch(reinterpret_cast<const char*>(record) + kLine);
    }
#else
    Q_UNUSED(database)
    Q_UNUSED(layer)
#endif
}

/// The same by the layers' records. In a large table waiting for their memory would take half of
/// the time, so each is asked for some layers ahead.
template <class IsIn>
void divideByRecord(const OdDbDatabase& database, IsIn isIn, LayerIds& inLayers,
                    LayerIds* otherLayers)
{
    constexpr std::size_t kAhead = 8;
    const LayerIds table = database.layerTable().records();
    std::size_t next = kAhead;
    divide(
        table,
        [&](OdDbObjectId id) {
            if (next < table.size())
                fetch(database, table[next++]);
            return isIn(*id.safeOpenObject<OdDbLayerTableRecord>());
        },
        inLayers, otherLayers);
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
    switch (meaningOfFilter(filter)) {
    case FilterMeaning::Group: {
        const std::vector<bool> isMember =
            membersOfGroup(database, static_cast<const OdLyLayerGroup&>(filter));
        const auto isIn = [&](OdDbObjectId id) {
            return id.slot() < isMember.size() && isMember[id.slot()];
        };
        return divide(database.layerTable().records(), isIn, inLayers, otherLayers);
    }
    case FilterMeaning::Unreconciled:
        return divideByRecord(
            database, [](const OdDbLayerTableRecord& layer) { return !layer.isReconciled(); },
            inLayers, otherLayers);
    case FilterMeaning::All:
        return divide(
            database.layerTable().records(), [](OdDbObjectId) { return true; }, inLayers,
            otherLayers);
    case FilterMeaning::Used:
        // The filter shows the same whether or not the grid shows usage.
        readHostInt(QStringLiteral("SHOWLAYERUSAGE"));
        database.layerTable().generateUsageData();
        return divide(
            database.layerTable().records(),
            [&](OdDbObjectId id) { return database.layerTable().useCount(id.slot()) > 0; },
            inLayers, otherLayers);
    case FilterMeaning::Expression: {
        LayerFilterRows rows;
        ParseFilterExpression(database, filter.filterExpression(), rows);
        return getLayersOfRows(database, rows, inLayers, otherLayers);
    }
    }
}
