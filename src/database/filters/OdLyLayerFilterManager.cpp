#include "database/filters/OdLyLayerFilterManager.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/FilterRecords.h"
#include "database/filters/FilterTreeWriter.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbXrecord.h"

#include <algorithm>
#include <set>

namespace {

/// Deeper than any drawing nests its filters; cuts dictionaries that contain themselves.
constexpr int kDeepest = 64;

class Reader
{
public:
    Reader(OdDbDatabase& database, OdLyLayerFilterPtr& current)
        : m_database(database)
        , m_current(current)
    { }

    /// The filters below a record, or below the layer table.
    void nested(OdDbObjectId owner, OdLyLayerFilter& parent, int depth)
    {
        if (depth > kDeepest || !m_seen.insert(owner.slot()).second)
            return;
        const auto filters =
            FilterRecords::dictionaryOf(m_database, owner, FilterRecords::kDictionary)
                .openObject<OdDbDictionary>();
        if (!filters)
            return;
        // Other programs order a dictionary by key, with the tenth filter behind the first.
        std::vector<DictionaryEntry> entries = filters->entries();
        std::stable_sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
            return FilterRecords::numberOf(a.key) < FilterRecords::numberOf(b.key);
        });
        for (const DictionaryEntry& entry : entries) {
            const OdLyLayerFilterPtr filter = FilterRecords::read(m_database, entry.value);
            if (!filter || !parent.allowNested(*filter))
                continue;
            parent.addNested(filter);
            if (FilterRecords::isMarkedCurrent(entry.value.openObject<OdDbXrecord>()->groups()))
                m_current = filter;
            nested(entry.value, *filter, depth + 1);
        }
    }

    /// Filters of the old form count where the drawing has none of the new one.
    void legacy(OdLyLayerFilter& root) const
    {
        const auto filters = FilterRecords::dictionaryOf(m_database, m_database.getLayerTableId(),
                                                         FilterRecords::kLegacyDictionary)
                                 .openObject<OdDbDictionary>();
        if (!filters)
            return;
        for (const DictionaryEntry& entry : filters->entries()) {
            if (const auto filter = FilterRecords::readLegacy(m_database, entry.value))
                root.addNested(filter);
        }
    }

private:
    OdDbDatabase& m_database;
    OdLyLayerFilterPtr& m_current;
    std::set<quint32> m_seen;
};

OdLyLayerFilterPtr fixedFilter(const QString& name)
{
    const auto filter = odrxCreate<OdLyLayerFilter>(name);
    filter->setOrigin({{}, {}, true, true}, {});
    filter->setDynamicallyGenerated(true);
    return filter;
}

} // namespace

void OdLyLayerFilterManager::getFilters(OdLyLayerFilterPtr& root, OdLyLayerFilterPtr& current) const
{
    root = current = odrxCreate<OdLyLayerFilter>(FilterRecords::kAll);
    const OdLyLayerFilterPtr used = fixedFilter(FilterRecords::kAllUsed);
    root->addNested(used);
    const OdDbObjectId table = m_database.getLayerTableId();
    const OdDbObjectId dictionary =
        FilterRecords::dictionaryOf(m_database, table, FilterRecords::kDictionary);
    Reader reader(m_database, current);
    reader.nested(table, *root, 0);
    if (dictionary.isNull())
        reader.legacy(*root);
    for (const OdLyLayerFilterPtr& filter : m_database.sessionFilters())
        root->addNested(FilterTreeWriter::copyOf(*filter));

    const auto top = dictionary.openObject<OdDbDictionary>();
    const QString mark = top ? FilterRecords::currentMark(top->xData()) : QString();
    if (mark == QLatin1String("<AllUsed"))
        current = used;
    else if (mark == QLatin1String("<AllUnreconciled"))
        current = FilterTreeWriter::sessionFilter(*root).value_or(root);
}

void OdLyLayerFilterManager::setFilters(const OdLyLayerFilterPtr& root,
                                        const OdLyLayerFilterPtr& current)
{
    OdLyLayerFilterPtr presentRoot;
    OdLyLayerFilterPtr presentCurrent;
    getFilters(presentRoot, presentCurrent);
    FilterTreeWriter(m_database).write({presentRoot, presentCurrent}, {root, current});
}

OdLyLayerFilterManagerPtr odlyGetLayerFilterManager(OdDbDatabase* database)
{
    return database ? odrxCreate<OdLyLayerFilterManager>(*database) : nullptr;
}
