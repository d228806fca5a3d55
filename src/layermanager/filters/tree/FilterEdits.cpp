#include "layermanager/filters/tree/FilterEdits.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "layermanager/filters/LayersOfFilter.h"
#include "layermanager/layers/LayerUndoRecord.h"

namespace {

OdLyLayerFilterPtr addressee(const OdLyLayerFilter& filter, const OdLyLayerFilter& child)
{
    OdLyLayerFilterPtr place = filter.parent();
    while (place && !place->allowNested(child))
        place = place->parent();
    return place;
}

} // namespace

FilterKey keyOfFilter(const OdLyLayerFilterPtr& root, const OdLyLayerFilter& wanted)
{
    FilterKey key{wanted.name()};
    for (const OdLyLayerFilterPtr& filter : filtersOfTree(root)) {
        if (filter.get() == &wanted)
            break;
        if (filter->name().compare(wanted.name(), Qt::CaseInsensitive) == 0)
            ++key.occurrence;
    }
    return key;
}

FilterTreeEdit::FilterTreeEdit(OdDbDatabase& database)
    : m_database(database)
{
    odlyGetLayerFilterManager(&database)->getFilters(m_root, m_current);
}

OdLyLayerFilterPtr FilterTreeEdit::find(const FilterKey& key) const
{
    int before = 0;
    for (const OdLyLayerFilterPtr& filter : filtersOfTree(m_root)) {
        if (filter->name().compare(key.name, Qt::CaseInsensitive) == 0
            && before++ == key.occurrence)
            return filter;
    }
    return {};
}

void FilterTreeEdit::write()
{
    odlyGetLayerFilterManager(&m_database)->setFilters(m_root, m_current);
}

bool setCurrentFilter(OdDbDatabase& database, const FilterKey& filter)
{
    FilterTreeEdit edit(database);
    const OdLyLayerFilterPtr wanted = edit.find(filter);
    if (!wanted || wanted == edit.current())
        return false;
    beginLayerUndoRecord(database);
    edit.setCurrent(wanted);
    edit.write();
    return true;
}

std::optional<FilterKey> addGroupFilter(OdDbDatabase& database, const FilterKey& parent)
{
    const OdLyLayerFilterPtr root = FilterTreeEdit(database).root();
    return addFilter(database, parent,
                     odrxCreate<OdLyLayerGroup>(MakeDefaultFilterName(root, FilterKind::Group)));
}

std::optional<FilterKey> addFilter(OdDbDatabase& database, const FilterKey& parent,
                                   const OdLyLayerFilterPtr& filter)
{
    FilterTreeEdit edit(database);
    const OdLyLayerFilterPtr place = edit.find(parent);
    if (!place || !place->allowNested(*filter))
        return std::nullopt;
    beginLayerUndoRecord(database);
    place->addNested(filter);
    edit.setCurrent(filter);
    edit.write();
    return keyOfFilter(edit.root(), *filter);
}

std::optional<FilterKey> convertToGroup(OdDbDatabase& database, const FilterKey& filter)
{
    FilterTreeEdit edit(database);
    const OdLyLayerFilterPtr converted = edit.find(filter);
    if (!converted || converted->isIdFilter() || !converted->allowDelete())
        return std::nullopt;
    const auto group =
        odrxCreate<OdLyLayerGroup>(MakeDefaultFilterName(edit.root(), FilterKind::Group));
    const OdLyLayerFilterPtr place = addressee(*converted, *group);
    if (!place)
        return std::nullopt;
    LayerIds layers;
    GetLayersOfFilter(database, *converted, layers);
    for (const OdDbObjectId layer : layers)
        group->addLayerId(layer);
    beginLayerUndoRecord(database);
    for (const OdLyLayerFilterPtr& nested :
         std::vector<OdLyLayerFilterPtr>(converted->getNestedFilters()))
    {
        converted->removeNested(nested);
        group->addNested(nested);
    }
    converted->parent()->removeNested(converted);
    place->addNested(group);
    if (edit.current() == converted)
        edit.setCurrent(group);
    edit.write();
    return keyOfFilter(edit.root(), *group);
}

FilterNameVerdict renameFilter(OdDbDatabase& database, const FilterKey& filter,
                               const QString& newText)
{
    FilterTreeEdit edit(database);
    const OdLyLayerFilterPtr renamed = edit.find(filter);
    if (!renamed || !renamed->allowRename())
        return FilterNameVerdict::Unchanged;
    const FilterNameVerdict verdict = checkFilterRename(edit.root(), renamed->name(), newText);
    if (verdict != FilterNameVerdict::Accepted)
        return verdict;
    beginLayerUndoRecord(database);
    renamed->setName(typedFilterName(newText));
    edit.write();
    return verdict;
}

std::optional<FilterKey> changeFilter(OdDbDatabase& database, const FilterKey& filter,
                                      const QString& name, const QString& expression)
{
    FilterTreeEdit edit(database);
    const OdLyLayerFilterPtr changed = edit.find(filter);
    if (!changed || changed->isIdFilter() || !changed->allowRename())
        return std::nullopt;
    if (changed->name() != name || changed->filterExpression() != expression) {
        beginLayerUndoRecord(database);
        changed->setName(name);
        changed->setFilterExpression(expression);
        edit.write();
    }
    return keyOfFilter(edit.root(), *changed);
}

std::optional<FilterKey> deleteFilter(OdDbDatabase& database, const FilterKey& filter)
{
    FilterTreeEdit edit(database);
    const OdLyLayerFilterPtr deleted = edit.find(filter);
    if (!deleted || !deleted->allowDelete() || deleted->dynamicallyGenerated())
        return std::nullopt;
    const OdLyLayerFilterPtr parent = deleted->parent();
    beginLayerUndoRecord(database);
    for (const OdLyLayerFilterPtr& gone : filtersOfTree(deleted)) {
        if (gone == edit.current())
            edit.setCurrent(parent);
    }
    parent->removeNested(deleted);
    edit.write();
    return keyOfFilter(edit.root(), *parent);
}
