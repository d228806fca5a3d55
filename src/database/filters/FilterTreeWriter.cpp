#include "database/filters/FilterTreeWriter.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/FilterRecords.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbXrecord.h"
#include "database/store/ObjectStore.h"

#include <QSet>

#include <algorithm>

namespace {

/// Whether two trees say the same about the drawing; what programs made is not looked at.
bool isSame(const OdLyLayerFilter& a, const OdLyLayerFilter& b)
{
    if (a.record() != b.record() || a.name() != b.name() || a.isIdFilter() != b.isIdFilter()
        || a.storedExpression() != b.storedExpression())
        return false;
    if (a.isIdFilter()
        && static_cast<const OdLyLayerGroup&>(a).layerIds()
            != static_cast<const OdLyLayerGroup&>(b).layerIds())
        return false;
    const auto kept = [](const OdLyLayerFilter& filter) {
        std::vector<OdLyLayerFilterPtr> nested = filter.getNestedFilters();
        std::erase_if(nested, [](const auto& child) { return child->dynamicallyGenerated(); });
        return nested;
    };
    const auto left = kept(a);
    const auto right = kept(b);
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const auto& x, const auto& y) { return isSame(*x, *y); });
}

bool isSameFilter(const OdLyLayerFilter& a, const OdLyLayerFilter& b)
{
    return a.record() == b.record() && a.name() == b.name();
}

} // namespace

OdLyLayerFilterPtr FilterTreeWriter::copyOf(const OdLyLayerFilter& filter)
{
    OdLyLayerFilterPtr copy;
    if (filter.isIdFilter()) {
        const auto group = odrxCreate<OdLyLayerGroup>(filter.name());
        for (const OdDbObjectId layer : static_cast<const OdLyLayerGroup&>(filter).layerIds())
            group->addLayerId(layer);
        copy = group;
    } else {
        copy = odrxCreate<OdLyLayerFilter>(filter.name());
        copy->setFilterExpression(filter.filterExpression());
    }
    copy->setDynamicallyGenerated(filter.dynamicallyGenerated());
    return copy;
}

std::optional<OdLyLayerFilterPtr> FilterTreeWriter::sessionFilter(const OdLyLayerFilter& root)
{
    for (const OdLyLayerFilterPtr& child : root.getNestedFilters()) {
        if (child->dynamicallyGenerated() && child->allowDelete())
            return child;
    }
    return std::nullopt;
}

void FilterTreeWriter::write(const Tree& present, const Tree& wanted)
{
    std::vector<OdLyLayerFilterPtr> session;
    for (const OdLyLayerFilterPtr& child : wanted.root->getNestedFilters()) {
        if (child->dynamicallyGenerated() && child->allowDelete())
            session.push_back(copyOf(*child));
    }
    m_database.setSessionFilters(session);

    const bool sameTree = isSame(*present.root, *wanted.root);
    const OdLyLayerFilter& current = wanted.current ? *wanted.current : *wanted.root;
    if (sameTree && isSameFilter(*present.current, current))
        return;
    m_current = &current;
    m_currentRecord = sameTree ? current.record() : OdDbObjectId();
    if (!sameTree) {
        removeMirrors(*present.root, *wanted.root);
        writeNested(m_database.getLayerTableId(), *wanted.root);
    }
    writeCurrent({wanted.root, OdLyLayerFilterPtr(const_cast<OdLyLayerFilter*>(m_current))});
}

void FilterTreeWriter::removeMirrors(const OdLyLayerFilter& present, const OdLyLayerFilter& wanted)
{
    const OdDbObjectId id = FilterRecords::dictionaryOf(m_database, m_database.getLayerTableId(),
                                                        FilterRecords::kLegacyDictionary);
    const auto legacy = id.openObject<OdDbDictionary>();
    if (!legacy)
        return;
    QSet<QString> names;
    for (const OdLyLayerFilterPtr& child : wanted.getNestedFilters())
        names.insert(child->name().toCaseFolded());
    QSet<QString> gone;
    for (const OdLyLayerFilterPtr& child : present.getNestedFilters()) {
        if (!names.contains(child->name().toCaseFolded()))
            gone.insert(child->name().toCaseFolded());
    }
    std::vector<DictionaryEntry> kept = legacy->entries();
    std::vector<OdDbObjectId> erased;
    std::erase_if(kept, [&](const DictionaryEntry& entry) {
        const bool drops = gone.contains(entry.key.toCaseFolded());
        if (drops)
            erased.push_back(entry.value);
        return drops;
    });
    if (erased.empty())
        return;
    id.safeOpenObject<OdDbDictionary>(OdDb::kForWrite)->setEntries(kept);
    for (const OdDbObjectId record : erased)
        m_database.eraseTree(record);
}

bool FilterTreeWriter::isOwnRecord(const OdLyLayerFilter& filter, OdDbObjectId dictionary) const
{
    const OdDbObjectId record = filter.record();
    return !record.isNull() && !record.isErased()
        && m_database.store().owner(record.slot()) == dictionary.slot();
}

void FilterTreeWriter::writeNested(OdDbObjectId owner, const OdLyLayerFilter& parent)
{
    std::vector<OdLyLayerFilterPtr> children = parent.getNestedFilters();
    std::erase_if(children, [](const auto& child) { return child->dynamicallyGenerated(); });
    OdDbObjectId dictionary =
        FilterRecords::dictionaryOf(m_database, owner, FilterRecords::kDictionary);
    if (dictionary.isNull()) {
        if (children.empty())
            return;
        dictionary = m_database.createDictionary(m_database.createExtensionDictionary(owner),
                                                 FilterRecords::kDictionary);
    }
    std::set<quint32> kept;
    for (const OdLyLayerFilterPtr& child : children) {
        if (isOwnRecord(*child, dictionary))
            kept.insert(child->record().slot());
    }
    // Entries of filters that are gone go; other classes stay where they are.
    std::vector<DictionaryEntry> entries;
    std::vector<OdDbObjectId> gone;
    QSet<QString> keys;
    quint32 number = 0; // the highest, of whatever entry
    for (const DictionaryEntry& entry : dictionary.openObject<OdDbDictionary>()->entries()) {
        const bool isFilter = FilterRecords::read(m_database, entry.value).get() != nullptr;
        if (isFilter && !kept.contains(entry.value.slot())) {
            gone.push_back(entry.value);
            continue;
        }
        entries.push_back(entry);
        keys.insert(entry.key.toCaseFolded());
        number = std::max(number, FilterRecords::numberOf(entry.key));
    }
    for (const OdLyLayerFilterPtr& child : children) {
        QString key;
        if (!isOwnRecord(*child, dictionary)) {
            do
                key = FilterRecords::keyOf(++number);
            while (keys.contains(key.toCaseFolded()));
        }
        const OdDbObjectId record = writeFilter(dictionary, *child, key);
        child->setRecord(record);
        if (!key.isEmpty()) {
            entries.push_back({key, record});
            keys.insert(key.toCaseFolded());
        }
        writeNested(record, *child);
    }
    dictionary.safeOpenObject<OdDbDictionary>(OdDb::kForWrite)->setEntries(entries);
    for (const OdDbObjectId record : gone)
        m_database.eraseTree(record);
}

OdDbObjectId FilterTreeWriter::writeFilter(OdDbObjectId dictionary, const OdLyLayerFilter& filter,
                                           const QString& newKey)
{
    OdDbObjectId record = filter.record();
    GroupList before;
    if (!newKey.isEmpty()) {
        record =
            m_database.addObject(std::make_unique<OdDbXrecord>(), RecordType::Xrecord, dictionary);
    } else {
        before = record.openObject<OdDbXrecord>()->groups();
        const OdLyLayerFilterPtr present = FilterRecords::read(m_database, record);
        const bool same = present && present->name() == filter.name()
            && present->storedExpression() == filter.storedExpression()
            && (!filter.isIdFilter()
                || static_cast<const OdLyLayerGroup&>(*present).layerIds()
                    == static_cast<const OdLyLayerGroup&>(filter).layerIds());
        if (same) {
            if (m_current == &filter)
                m_currentRecord = record;
            return record;
        }
    }
    record.safeOpenObject<OdDbXrecord>(OdDb::kForWrite)
        ->setGroups(FilterRecords::written(filter, before));
    if (m_current == &filter)
        m_currentRecord = record;
    return record;
}

void FilterTreeWriter::markCurrent(OdDbObjectId record, bool current)
{
    const auto opened = record.openObject<OdDbXrecord>();
    if (!opened || FilterRecords::isMarkedCurrent(opened->groups()) == current)
        return;
    record.safeOpenObject<OdDbXrecord>(OdDb::kForWrite)
        ->setGroups(FilterRecords::markedCurrent(opened->groups(), current));
}

void FilterTreeWriter::writeCurrent(const Tree& wanted)
{
    std::vector<OdDbObjectId> owners = {m_database.getLayerTableId()};
    std::set<quint32> seen;
    OdDbObjectId top;
    while (!owners.empty()) {
        const OdDbObjectId owner = owners.back();
        owners.pop_back();
        const OdDbObjectId id =
            FilterRecords::dictionaryOf(m_database, owner, FilterRecords::kDictionary);
        const auto dictionary = id.openObject<OdDbDictionary>();
        if (!dictionary || !seen.insert(id.slot()).second)
            continue;
        if (top.isNull())
            top = id;
        for (const DictionaryEntry& entry : dictionary->entries()) {
            if (entry.value.openObject<OdDbXrecord>()) {
                markCurrent(entry.value, entry.value == m_currentRecord);
                owners.push_back(entry.value);
            }
        }
    }
    QString mark;
    if (m_currentRecord.isNull())
        mark = wanted.current->name() == FilterRecords::kAllUsed ? QStringLiteral("<AllUsed")
            : wanted.current->dynamicallyGenerated() ? QStringLiteral("<AllUnreconciled")
                                                     : QStringLiteral("<All");
    if (top.isNull()) {
        if (mark == QLatin1String("<All"))
            return;
        top = m_database.createDictionary(
            m_database.createExtensionDictionary(m_database.getLayerTableId()),
            FilterRecords::kDictionary);
    }
    const auto dictionary = top.safeOpenObject<OdDbDictionary>(OdDb::kForWrite);
    if (FilterRecords::currentMark(dictionary->xData()) != mark)
        dictionary->setXData(FilterRecords::withCurrentMark(dictionary->xData(), mark));
}
