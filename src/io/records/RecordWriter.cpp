#include "io/records/RecordWriter.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbDictionaryVar.h"
#include "database/objects/OdDbEntity.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/records/ErasedLayers.h"
#include "io/records/LayerExtras.h"
#include "io/records/RecordSource.h"

#include <algorithm>

namespace {
constexpr const char* kDictionary = "dictionary";
}

RecordWriter::RecordWriter(const RecordSource& source, const OdDbDatabase& database)
    : m_database(database)
    , m_store(database.store())
    , m_source(source)
{
    const auto& touched = m_store.touched();
    m_erasedDictionaries = std::any_of(touched.begin(), touched.end(), [this](quint32 slot) {
        return m_store.type(slot) == RecordType::Dictionary
            && m_store.has(slot, ObjectStore::kErased);
    });
}

// What the drawing says

bool RecordWriter::isInFile(quint32 slot) const
{
    return slot < m_store.fileRecords();
}

bool RecordWriter::isLive(quint32 slot) const
{
    constexpr int kMostOwners = 1000;
    for (int depth = 0; slot != ObjectStore::kNone && depth < kMostOwners; ++depth) {
        if (m_store.has(slot, ObjectStore::kErased))
            return false;
        slot = m_store.owner(slot);
    }
    return true;
}

quint64 RecordWriter::extensionOf(quint32 slot) const
{
    if (m_madeDictionaries.contains(slot))
        return m_source.handleOfMade(slot, QLatin1String(kDictionary));
    const OdDbObjectId dictionary = m_database.extensionDictionary(m_database.idOfSlot(slot));
    return dictionary.isNull() || dictionary.isErased() ? 0 : dictionary.getHandle().value();
}

XrecordState RecordWriter::xrecordNow(quint32 slot) const
{
    const auto rewritten = m_rewritten.find(slot);
    return rewritten == m_rewritten.end()
        ? m_database.idOfSlot(slot).safeOpenObject<OdDbXrecord>()->state()
        : rewritten->second;
}

std::vector<KeyedHandle> RecordWriter::entriesNow(quint32 slot)
{
    const auto edit = m_dictionaryEdits.find(slot);
    const auto isRemoved = [&](const QString& key) {
        return edit != m_dictionaryEdits.end() && edit->second.removed.contains(key.toCaseFolded());
    };
    std::vector<KeyedHandle> entries;
    const auto dictionary = m_database.idOfSlot(slot).safeOpenObject<OdDbDictionary>();
    for (const DictionaryEntry& entry : dictionary->entries()) {
        const quint32 value = entry.value.slot();
        const bool stays = entry.value.isNull()
            ? isInFile(slot)
            : isLive(value) && (isInFile(value) || whyNotHeld(value).isEmpty());
        if (stays && !isRemoved(entry.key))
            entries.push_back({entry.key, entry.value.getHandle().value()});
    }
    if (edit != m_dictionaryEdits.end())
        entries.insert(entries.end(), edit->second.added.begin(), edit->second.added.end());
    for (const KeyedHandle& entry : entries)
        used(entry.handle);
    return entries;
}

std::vector<OdDbObjectId> RecordWriter::frozenNow(quint32 viewport) const
{
    std::vector<OdDbObjectId> layers =
        m_database.idOfSlot(viewport).safeOpenObject<OdDbViewport>()->frozenLayers();
    std::erase_if(layers, [](OdDbObjectId layer) { return layer.isErased(); });
    return layers;
}

quint64 RecordWriter::used(quint64 handle)
{
    if (m_store.isNewHandle(handle))
        m_highestNew = std::max(m_highestNew, handle);
    return handle;
}

void RecordWriter::tellNotKept(const QString& sentence)
{
    if (!m_notKept.contains(sentence))
        m_notKept << sentence;
}

// Edits

void RecordWriter::cleanReferences()
{
    const ErasedLayers erased(m_database);
    if (erased.isEmpty())
        return;
    const auto isUntouched = [this](quint32 slot) {
        return isInFile(slot) && isLive(slot) && !m_store.has(slot, ObjectStore::kTouched);
    };
    for (const quint32 slot : m_store.viewports()) {
        if (isUntouched(slot))
            editViewport(slot);
    }
    for (const auto& [slot, groups] : erased.cleanedRecords()) {
        const auto record = m_database.idOfSlot(slot).safeOpenObject<OdDbXrecord>();
        m_rewritten[slot] = {groups, record->xData()};
        if (isUntouched(slot))
            editXrecord(slot);
    }
}

void RecordWriter::editTouched(quint32 slot)
{
    if (!isInFile(slot)) {
        const QString why = isLive(slot) ? whyNotHeld(slot) : QString();
        if (!why.isEmpty())
            tellNotKept(why);
        else if (isLive(slot))
            addRecord(slot);
        return;
    }
    if (m_store.has(slot, ObjectStore::kErased))
        return removeRecord(slot);
    if (m_store.has(slot, ObjectStore::kEntity))
        editEntity(slot);
    switch (m_store.type(slot)) {
    case RecordType::Layer:
        editLayer(slot);
        break;
    case RecordType::Viewport:
        editViewport(slot);
        break;
    case RecordType::Dictionary:
        m_dictionaryEdits.try_emplace(slot);
        break;
    case RecordType::Xrecord:
        editXrecord(slot);
        break;
    case RecordType::DictionaryVar:
        editVariable(slot);
        break;
    default:
        break;
    }
    editExtension(slot);
}

void RecordWriter::editViewport(quint32 slot)
{
    const std::vector<OdDbObjectId> before = m_source.readViewport(slot).frozenLayers;
    const std::vector<OdDbObjectId> after = frozenNow(slot);
    if (before == after)
        return;
    for (const OdDbObjectId layer : after)
        used(layer.getHandle().value());
    setFrozen(slot, before, after);
}

void RecordWriter::editXrecord(quint32 slot)
{
    const XrecordState before = m_source.readXrecord(slot);
    const XrecordState after = xrecordNow(slot);
    if (!(before == after))
        setXrecord(slot, before, after);
}

void RecordWriter::editVariable(quint32 slot)
{
    const auto variable = m_database.idOfSlot(slot).safeOpenObject<OdDbDictionaryVar>();
    if (!(m_source.readDictionaryVar(slot) == variable->state()))
        setVariable(slot, variable->value());
}

void RecordWriter::editExtension(quint32 slot)
{
    if (m_madeDictionaries.contains(slot)
        || (!m_erasedDictionaries && !m_database.hasOtherExtension(slot)))
        return;
    const quint32 inFile = m_source.extensionDictionary(slot);
    const quint64 was = inFile == ObjectStore::kNone ? 0 : m_store.handle(inFile);
    const quint64 now = extensionOf(slot);
    if (now != was && (now == 0 || canHoldObjects()))
        setExtension(slot, used(now));
}

void RecordWriter::editExtras(quint32 slot, const LayerState& before, const LayerState& after)
{
    const OdDbObjectId layer = m_database.idOfSlot(slot);
    const std::vector<LayerExtras::Change> changes =
        LayerExtras::changes(m_source, layer, before, after);
    if (changes.empty() || !canHoldObjects())
        return;
    const OdDbObjectId present = m_database.extensionDictionary(layer);
    const bool hasDictionary = !present.isNull() && isLive(present.slot());
    const quint64 dictionary = hasDictionary
        ? present.getHandle().value()
        : m_source.handleOfMade(slot, QLatin1String(kDictionary));
    for (const LayerExtras::Change& change : changes) {
        if (change.slot != ObjectStore::kNone && !change.after.isEmpty()) {
            m_rewritten[change.slot] = {change.after, m_source.readXrecord(change.slot).xData};
            editXrecord(change.slot);
        } else if (change.slot != ObjectStore::kNone) {
            removeRecord(change.slot);
            m_dictionaryEdits[present.slot()].removed.insert(change.key.toCaseFolded());
        } else if (!change.after.isEmpty()) {
            const KeyedHandle entry = {change.key, used(m_source.handleOfMade(slot, change.key))};
            if (hasDictionary)
                m_dictionaryEdits[present.slot()].added.push_back(entry);
            else
                m_madeDictionaries[slot].push_back(entry);
            makeXrecord(entry, dictionary, change.after);
        }
    }
    const auto made = m_madeDictionaries.find(slot);
    if (made == m_madeDictionaries.end())
        return;
    makeDictionary(used(dictionary), m_store.handle(slot), made->second);
    if (isInFile(slot))
        setExtension(slot, dictionary);
}

void RecordWriter::editDictionaries()
{
    for (const auto& [slot, edit] : m_dictionaryEdits) {
        if (isInFile(slot) && isLive(slot))
            editDictionary(slot);
    }
}

void RecordWriter::editDictionary(quint32 slot)
{
    const DictionaryState before = m_source.readDictionary(slot);
    const auto dictionary = m_database.idOfSlot(slot).safeOpenObject<OdDbDictionary>();
    const std::vector<KeyedHandle> entries = entriesNow(slot);
    const bool isSame =
        std::equal(before.entries.begin(), before.entries.end(), entries.begin(), entries.end(),
                   [](const DictionaryEntry& a, const KeyedHandle& b) {
                       return a.key == b.key && a.value.getHandle().value() == b.handle;
                   });
    if (!isSame || !(before.xData == dictionary->xData()))
        setDictionary(slot, before, entries, dictionary->xData());
}

void RecordWriter::removeRecord(quint32 first)
{
    std::vector<quint32> waiting = {first};
    while (!waiting.empty()) {
        const quint32 slot = waiting.back();
        waiting.pop_back();
        if (!isInFile(slot) || !m_removed.insert(slot).second)
            continue;
        recordRemoved(slot);
        const quint32 extension = m_source.extensionDictionary(slot);
        if (extension != ObjectStore::kNone && m_store.mayOwn(slot, extension))
            waiting.push_back(extension);
        if (m_store.type(slot) != RecordType::Dictionary)
            continue;
        for (const DictionaryEntry& entry : m_source.readDictionary(slot).entries) {
            if (!entry.value.isNull() && m_store.owner(entry.value.slot()) == slot)
                waiting.push_back(entry.value.slot());
        }
    }
}
