#include "database/OdLyLayerFilterManager.h"

#include "base/NumberText.h"
#include "database/OdDbDatabase.h"
#include "database/OdDbDictionary.h"
#include "database/OdDbLayerTableRecord.h"
#include "database/OdDbXrecord.h"

#include <set>

namespace {

/// Deeper than any drawing nests its filters; cuts dictionaries that contain themselves.
constexpr int kDeepest = 64;

/// Group codes of a filter record.
enum FilterGroup { kClass = 1, kCurrent = 290, kName = 300, kExpression = 301, kMember = 330 };

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
        const auto extension = m_database.extensionDictionary(owner).openObject<OdDbDictionary>();
        const auto filters = extension
            ? extension->getAt(QStringLiteral("ACLYDICTIONARY")).openObject<OdDbDictionary>()
            : nullptr;
        if (!filters)
            return;
        for (const DictionaryEntry& entry : filters->entries()) {
            const auto record = entry.value.openObject<OdDbXrecord>();
            const OdLyLayerFilterPtr filter = record ? made(*record) : nullptr;
            if (!filter)
                continue;
            parent.addNested(filter);
            nested(entry.value, *filter, depth + 1);
        }
    }

private:
    OdLyLayerFilterPtr made(const OdDbXrecord& record)
    {
        const auto value = [&](int code) {
            for (const GroupList::Group& group : record.groups()) {
                if (group.code == code)
                    return QString::fromUtf8(group.value);
            }
            return QString();
        };
        const QString kind = value(kClass);
        OdLyLayerFilterPtr filter;
        if (kind == QLatin1String("AcLyLayerGroup")) {
            const auto group = odrxCreate<OdLyLayerGroup>(value(kName));
            addMembers(record, *group);
            filter = group;
        } else if (kind == QLatin1String("AcLyLayerFilter")) {
            filter = odrxCreate<OdLyLayerFilter>(value(kName));
            filter->setFilterExpression(value(kExpression));
        }
        if (filter && value(kCurrent).trimmed() == QLatin1String("1"))
            m_current = filter;
        return filter;
    }

    void addMembers(const OdDbXrecord& record, OdLyLayerGroup& group) const
    {
        for (const GroupList::Group& member : record.groups()) {
            if (member.code != kMember)
                continue;
            const OdDbObjectId layer = m_database.getOdDbObjectId(
                OdDbHandle(NumberText::handle(member.value).value_or(0)));
            if (layer.openObject<OdDbLayerTableRecord>())
                group.addLayerId(layer);
        }
    }

    OdDbDatabase& m_database;
    OdLyLayerFilterPtr& m_current;
    std::set<quint32> m_seen;
};

} // namespace

void OdLyLayerFilterManager::getFilters(OdLyLayerFilterPtr& root, OdLyLayerFilterPtr& current) const
{
    root = current = odrxCreate<OdLyLayerFilter>(QStringLiteral("All"));
    Reader(m_database, current).nested(m_database.getLayerTableId(), *root, 0);
}

OdLyLayerFilterManagerPtr odlyGetLayerFilterManager(OdDbDatabase* database)
{
    return database ? odrxCreate<OdLyLayerFilterManager>(*database) : nullptr;
}
