#include "layermanager/filters/FilterNames.h"

#include "base/NameCharacters.h"
#include "database/filters/FilterRecords.h"
#include "layermanager/filters/FilterTexts.h"

#include <QSet>

#include <algorithm>

using namespace name_characters;

namespace {
bool isSameName(const QString& a, const QString& b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

QString defaultName(FilterKind kind, qsizetype number)
{
    const QString pattern = kind == FilterKind::Group ? QStringLiteral("Group Filter%1")
                                                      : QStringLiteral("Properties Filter%1");
    return pattern.arg(number);
}
} // namespace

std::vector<OdLyLayerFilterPtr> filtersOfTree(const OdLyLayerFilterPtr& root)
{
    std::vector<OdLyLayerFilterPtr> found;
    std::vector<OdLyLayerFilterPtr> waiting;
    if (root)
        waiting.push_back(root);
    while (!waiting.empty()) {
        const OdLyLayerFilterPtr filter = waiting.back();
        waiting.pop_back();
        const auto& nested = filter->getNestedFilters();
        waiting.insert(waiting.end(), nested.rbegin(), nested.rend());
        found.push_back(filter);
    }
    return found;
}

OdLyLayerFilterPtr findFilter(const OdLyLayerFilterPtr& root, const QString& name)
{
    const std::vector<OdLyLayerFilterPtr> filters = filtersOfTree(root);
    const auto found =
        std::find_if(filters.begin(), filters.end(), [&](const OdLyLayerFilterPtr& filter) {
            return isSameName(filter->name(), name);
        });
    return found != filters.end() ? *found : OdLyLayerFilterPtr();
}

QString MakeDefaultFilterName(const OdLyLayerFilterPtr& root, FilterKind kind)
{
    QSet<QString> names;
    for (const OdLyLayerFilterPtr& filter : filtersOfTree(root))
        names.insert(filter->name());
    qsizetype number = 1;
    while (names.contains(defaultName(kind, number)))
        ++number;
    return defaultName(kind, number);
}

QString typedFilterName(const QString& text)
{
    return text.trimmed();
}

FilterNameVerdict checkFilterRename(const OdLyLayerFilterPtr& root, const QString& oldName,
                                    const QString& newText)
{
    const QString name = typedFilterName(newText);
    // Nobody wants a filter without a name; emptying the field takes the edit back.
    if (name.isEmpty() || isSameName(name, oldName))
        return FilterNameVerdict::Unchanged;
    if (containsAnyOf(name, kNotInFilters))
        return FilterNameVerdict::InvalidCharacters;
    // The node of new layers comes and goes by itself; a filter of that name would go with it.
    if (findFilter(root, name) || isSameName(name, FilterRecords::kUnreconciled))
        return FilterNameVerdict::NotUnique;
    return FilterNameVerdict::Accepted;
}

QString filterNameRefusal(FilterNameVerdict verdict)
{
    switch (verdict) {
    case FilterNameVerdict::InvalidCharacters:
        return KsResString(filterTexts(), 84539).arg(kNotInFilters);
    case FilterNameVerdict::NotUnique:
        return KsResString(filterTexts(), 84540);
    case FilterNameVerdict::Accepted:
    case FilterNameVerdict::Unchanged:
        break;
    }
    return {};
}
