#include "layermanager/filters/LayerFilterTest.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/FilterRecords.h"
#include "database/filters/OdLyLayerFilter.h"
#include "database/tables/OdDbLayerTable.h"
#include "layermanager/filters/FilterExpression.h"

#include <algorithm>

FilterMeaning meaningOfFilter(const OdLyLayerFilter& filter)
{
    const auto isNamed = [&](const QString& name) {
        return filter.name().compare(name, Qt::CaseInsensitive) == 0;
    };
    if (isNamed(FilterRecords::kUnreconciled))
        return FilterMeaning::Unreconciled;
    if (filter.isIdFilter())
        return FilterMeaning::Group;
    if (isNamed(FilterRecords::kAll))
        return FilterMeaning::All;
    return isNamed(FilterRecords::kAllUsed) ? FilterMeaning::Used : FilterMeaning::Expression;
}

std::vector<bool> membersOfGroup(const OdDbDatabase& database, const OdLyLayerGroup& group)
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

LayerFilterTest::LayerFilterTest(OdDbDatabase& database, const OdLyLayerFilter& filter)
    : m_database(&database)
    , m_meaning(meaningOfFilter(filter))
{
    if (m_meaning == FilterMeaning::Group)
        m_members = membersOfGroup(database, static_cast<const OdLyLayerGroup&>(filter));
    if (m_meaning == FilterMeaning::Used || m_meaning == FilterMeaning::Expression)
        database.layerTable().generateUsageData();
    if (m_meaning != FilterMeaning::Expression)
        return;
    LayerFilterRows rows;
    ParseFilterExpression(database, filter.filterExpression(), rows);
    const OdDbObjectId viewport = LayerRowMatcher::currentViewport(database);
    for (const LayerFilterRow& row : rows) {
        if (row.m_nVpFrozen != 0)
            m_rows.push_back(row);
        else
            m_matchers.emplace_back(row, viewport);
    }
}

bool LayerFilterTest::shows(OdDbObjectId id) const
{
    const auto layer = id.openObject<OdDbLayerTableRecord>();
    if (!layer)
        return false;
    switch (m_meaning) {
    case FilterMeaning::Group:
        return id.slot() < m_members.size() && m_members[id.slot()];
    case FilterMeaning::Unreconciled:
        return !layer->isReconciled();
    case FilterMeaning::All:
        return true;
    case FilterMeaning::Used:
        return layer->isInUse();
    case FilterMeaning::Expression:
        return passesRows(*layer);
    }
    return false;
}

bool LayerFilterTest::passesRows(const OdDbLayerTableRecord& layer) const
{
    return std::any_of(m_matchers.begin(), m_matchers.end(),
                       [&](const LayerRowMatcher& row) { return row.matches(layer); })
        || std::any_of(m_rows.begin(), m_rows.end(), [&](const LayerFilterRow& row) {
               return LayerRowMatcher(*m_database, row).matches(layer);
           });
}
