#include "io/records/ErasedLayers.h"

#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbXrecord.h"
#include "database/store/NameIndex.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"

namespace {

constexpr int kNameInState = 8;
constexpr int kLayerHandle = 330;
constexpr int kDeepest = 64;

} // namespace

ErasedLayers::ErasedLayers(const OdDbDatabase& database)
    : m_database(database)
{
    const ObjectStore& store = database.store();
    for (const quint32 slot : store.touched()) {
        if (store.type(slot) != RecordType::Layer || !store.has(slot, ObjectStore::kErased))
            continue;
        const auto layer =
            database.idOfSlot(slot).safeOpenObject<OdDbLayerTableRecord>(OdDb::kForRead, true);
        m_slots.insert(slot);
        m_names.insert(NameIndex::fold(layer->getName()));
    }
}

bool ErasedLayers::isErased(QByteArrayView handle) const
{
    const OdDbObjectId id =
        m_database.getOdDbObjectId(OdDbHandle(NumberText::handle(handle).value_or(0)));
    return !id.isNull() && m_slots.contains(id.slot());
}

bool ErasedLayers::isErasedName(const QString& name) const
{
    return m_names.contains(NameIndex::fold(name)) && m_database.layerTable().getAt(name).isNull();
}

GroupList ErasedLayers::cleaned(const GroupList& groups, bool isState) const
{
    GroupList kept;
    bool drops = false;
    for (const GroupList::Group& group : groups) {
        // In a state a layer's handle, or name, opens its entry; in a filter it is all there is.
        if (group.code == kLayerHandle)
            drops = isErased(group.value);
        else if (!isState)
            drops = false;
        else if (group.code == kNameInState)
            drops = isErasedName(QString::fromUtf8(group.value));
        if (!drops)
            kept.append(group);
    }
    return kept;
}

void ErasedLayers::clean(OdDbObjectId dictionary, bool isState, int depth, std::set<quint32>& seen,
                         std::map<quint32, GroupList>& found) const
{
    const auto opened = dictionary.openObject<OdDbDictionary>();
    if (!opened || depth > kDeepest)
        return;
    for (const DictionaryEntry& entry : opened->entries()) {
        const auto record = entry.value.openObject<OdDbXrecord>();
        // Damaged drawings may name a record many times, and records above it.
        if (!record || !seen.insert(entry.value.slot()).second)
            continue;
        GroupList groups = cleaned(record->groups(), isState);
        if (!(groups == record->groups()))
            found.emplace(entry.value.slot(), std::move(groups));
        const auto children =
            m_database.extensionDictionary(entry.value).openObject<OdDbDictionary>();
        if (children && !isState)
            clean(children->getAt(QStringLiteral("ACLYDICTIONARY")), isState, depth + 1, seen,
                  found);
    }
}

std::map<quint32, GroupList> ErasedLayers::cleanedRecords() const
{
    std::map<quint32, GroupList> found;
    std::set<quint32> seen;
    const auto extension =
        m_database.extensionDictionary(m_database.getLayerTableId()).openObject<OdDbDictionary>();
    if (isEmpty() || !extension)
        return found;
    clean(extension->getAt(QStringLiteral("ACLYDICTIONARY")), false, 0, seen, found);
    clean(extension->getAt(QStringLiteral("ACAD_LAYERSTATES")), true, 0, seen, found);
    return found;
}
