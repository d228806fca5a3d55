#include "layermanager/filters/tree/ExcessFilters.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "layermanager/filters/tree/FilterEdits.h"
#include "layermanager/layers/LayerUndoRecord.h"

#include <algorithm>

namespace {

constexpr int kFewestFilters = 10;

} // namespace

bool hasExcessFilters(OdDbDatabase& database)
{
    const std::vector<OdLyLayerFilterPtr> filters = filtersOfTree(FilterTreeEdit(database).root());
    const auto own = std::count_if(filters.begin(), filters.end(), [](const auto& filter) {
        return filter->allowDelete() && !filter->dynamicallyGenerated();
    });
    return own >= kFewestFilters && own >= static_cast<qint64>(database.layerTable().count());
}

void deleteAllFilters(OdDbDatabase& database)
{
    beginLayerUndoRecord(database);
    FilterTreeEdit edit(database);
    for (const OdLyLayerFilterPtr& filter :
         std::vector<OdLyLayerFilterPtr>(edit.root()->getNestedFilters()))
    {
        if (filter->allowDelete())
            edit.root()->removeNested(filter);
    }
    edit.setCurrent(edit.root());
    edit.write();
}
