#include "database/drawing/OdDbDatabase.h"
#include "database/drawing/UndoJournal.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbDictionaryVar.h"
#include "database/objects/OdDbMadeEntity.h"
#include "database/objects/OdDbXrecord.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"

#include <set>

namespace {
const QString& variableDictionary()
{
    static const QString name = QStringLiteral("AcDbVariableDictionary");
    return name;
}
} // namespace

OdDbObjectId OdDbDatabase::namedObject(std::initializer_list<QString> path) const
{
    OdDbObjectId at = m_namedObjects;
    for (const QString& key : path) {
        const auto dictionary = at.openObject<OdDbDictionary>();
        at = dictionary ? dictionary->getAt(key) : OdDbObjectId();
    }
    return at;
}

OdDbObjectId OdDbDatabase::addObject(std::unique_ptr<OdDbObject> object, RecordType type,
                                     OdDbObjectId owner)
{
    const quint32 slot = takeSlot(type, owner);
    announceAdded(slot, std::move(object));
    return idOfSlot(slot);
}

quint32 OdDbDatabase::takeSlot(RecordType type, OdDbObjectId owner)
{
    const quint32 slot = m_store->append(type, 0, ObjectStore::kSynthetic);
    m_store->addHandle(m_store->takeHandle(), slot);
    m_store->setOwner(slot, owner.slot());
    m_store->setFlag(slot, ObjectStore::kTouched, true);
    return slot;
}

void OdDbDatabase::announceAdded(quint32 slot, std::unique_ptr<OdDbObject> object)
{
    OdDbObject& added = adoptObject(slot, std::move(object));
    m_journal->appended(slot);
    ++added.m_openCount; // stays open for the listeners, without closing again
    notify([&](OdDbDatabaseReactor& reactor) { reactor.objectAppended(this, &added); });
    --added.m_openCount;
}

OdDbObjectId OdDbDatabase::addEntity(const QByteArray& type, const GroupList& groups,
                                     OdDbObjectId block, OdDbObjectId layer)
{
    const auto owner = block.safeOpenObject<OdDbBlockTableRecord>();
    if (!layer.openObject<OdDbLayerTableRecord>())
        throw OdError(OdResult::InvalidInput,
                      QStringLiteral("An entity lies on a layer of its drawing."));
    const quint32 slot = takeSlot(m_store->typeByName(type), block);
    m_store->setFlag(slot, ObjectStore::kEntity, true);
    m_store->setLayer(slot, layer.slot());
    layerTable().useChanged(layer.slot(), 1);
    owner->addRun({slot, slot + 1});
    announceAdded(slot, std::make_unique<OdDbMadeEntity>(groups));
    return idOfSlot(slot);
}

OdDbObjectId OdDbDatabase::createExtensionDictionary(OdDbObjectId object)
{
    const OdDbObjectId present = extensionDictionary(object);
    if (present.openObject<OdDbDictionary>())
        return present;
    auto dictionary = std::make_unique<OdDbDictionary>();
    dictionary->stateForLoading().treatElementsAsHard = true;
    const OdDbObjectId made = addObject(std::move(dictionary), RecordType::Dictionary, object);
    m_store->setFlag(object.slot(), ObjectStore::kTouched, true);
    m_journal->keepExtension(object.slot(), exchangeExtension(object.slot(), made.slot()));
    return made;
}

quint32 OdDbDatabase::exchangeExtension(quint32 slot, quint32 dictionary)
{
    const quint32 before = extensionDictionary(idOfSlot(slot)).slot();
    m_extensions[slot] = dictionary;
    return before;
}

OdDbObjectId OdDbDatabase::createInDictionary(OdDbObjectId dictionary, const QString& key,
                                              std::unique_ptr<OdDbObject> object, RecordType type)
{
    const OdDbObjectId made = addObject(std::move(object), type, dictionary);
    dictionary.safeOpenObject<OdDbDictionary>(OdDb::kForWrite)->setAt(key, made);
    return made;
}

OdDbObjectId OdDbDatabase::createDictionary(OdDbObjectId dictionary, const QString& key)
{
    const OdDbObjectId present = dictionary.safeOpenObject<OdDbDictionary>()->getAt(key);
    if (present.openObject<OdDbDictionary>())
        return present;
    return createInDictionary(dictionary, key, std::make_unique<OdDbDictionary>(),
                              RecordType::Dictionary);
}

OdDbObjectId OdDbDatabase::createXrecord(OdDbObjectId dictionary, const QString& key)
{
    const OdDbObjectId present = dictionary.safeOpenObject<OdDbDictionary>()->getAt(key);
    if (present.openObject<OdDbXrecord>())
        return present;
    return createInDictionary(dictionary, key, std::make_unique<OdDbXrecord>(),
                              RecordType::Xrecord);
}

void OdDbDatabase::eraseTree(OdDbObjectId root)
{
    // By hand instead of by recursion: a damaged drawing may nest as deep as it has records.
    std::vector<OdDbObjectId> waiting = {root};
    std::set<quint32> seen;
    while (!waiting.empty()) {
        const OdDbObjectId id = waiting.back();
        waiting.pop_back();
        if (id.isNull() || id.isErased() || !seen.insert(id.slot()).second)
            continue;
        const OdDbObjectId extension = extensionDictionary(id);
        if (!extension.isNull() && m_store->mayOwn(id.slot(), extension.slot()))
            waiting.push_back(extension);
        if (const auto dictionary = id.openObject<OdDbDictionary>()) {
            for (const DictionaryEntry& entry : dictionary->entries()) {
                if (!entry.value.isNull() && m_store->owner(entry.value.slot()) == id.slot())
                    waiting.push_back(entry.value);
            }
        }
        if (const auto object = id.openObject(OdDb::kForWrite))
            object->erase();
    }
}

OdDbObjectId OdDbDatabase::requireNamedObjectsDictionary()
{
    if (!m_namedObjects.openObject<OdDbDictionary>())
        m_namedObjects =
            addObject(std::make_unique<OdDbDictionary>(), RecordType::Dictionary, OdDbObjectId());
    return m_namedObjects;
}

QString OdDbDatabase::dictionaryVariable(const QString& name) const
{
    const auto variable = namedObject({variableDictionary(), name}).openObject<OdDbDictionaryVar>();
    return variable ? variable->value() : QString();
}

void OdDbDatabase::setDictionaryVariable(const QString& name, const QString& value)
{
    if (dictionaryVariable(name) == value)
        return;
    OdDbObjectId id = namedObject({variableDictionary(), name});
    if (!id.openObject<OdDbDictionaryVar>())
        id = createInDictionary(
            createDictionary(requireNamedObjectsDictionary(), variableDictionary()), name,
            std::make_unique<OdDbDictionaryVar>(), RecordType::DictionaryVar);
    id.safeOpenObject<OdDbDictionaryVar>(OdDb::kForWrite)->setValue(value);
    notifyHeader(name);
}

void OdDbDatabase::setEntityLayer(OdDbObjectId entity, OdDbObjectId layer)
{
    const auto opened = entity.safeOpenObject<OdDbEntity>(OdDb::kForWrite);
    if (!layer.openObject<OdDbLayerTableRecord>())
        throw OdError(OdResult::InvalidInput,
                      QStringLiteral("An entity can be moved to a layer of its drawing only."));
    if (opened->layerId() == layer)
        return;
    m_store->setFlag(entity.slot(), ObjectStore::kTouched, true);
    m_journal->keepEntityLayer(entity.slot(), exchangeEntityLayer(entity.slot(), layer.slot()));
    notify([&](OdDbDatabaseReactor& reactor) { reactor.objectModified(this, opened.get()); });
}

quint32 OdDbDatabase::exchangeEntityLayer(quint32 slot, quint32 layer)
{
    const quint32 before = m_store->layer(slot);
    m_store->setLayer(slot, layer);
    if (!m_store->has(slot, ObjectStore::kErased)) {
        layerTable().useChanged(before, -1);
        layerTable().useChanged(layer, 1);
    }
    return before;
}
