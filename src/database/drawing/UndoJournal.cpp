#include "database/drawing/UndoJournal.h"

#include "database/objects/OdDbDictionary.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"

#include <utility>

namespace {
template <class... Ts>
struct Overloaded : Ts...
{
    using Ts::operator()...;
};
template <class... Ts>
Overloaded(Ts...) -> Overloaded<Ts...>;
} // namespace

void UndoJournal::start()
{
    m_open = true;
    if (!m_undo.empty() && m_undo.back()->changes.empty())
        return;
    m_undo.push_back(std::make_shared<Record>(Record{++m_serial, m_stamp, m_stamp}));
}

bool UndoJournal::hasUndo() const
{
    return m_undo.size() > 1 || (m_undo.size() == 1 && !m_undo.back()->changes.empty());
}

UndoJournal::Record& UndoJournal::writable()
{
    // A change outside of any record gets one of its own, so that nothing escapes undo.
    if (!m_open)
        start();
    m_redo.clear();
    Record& record = *m_undo.back();
    m_stamp = record.stampAfter = ++m_lastStamp;
    return record;
}

void UndoJournal::keepImage(OdDbObject& object)
{
    Record& record = writable();
    if (object.m_imageRecord == record.serial)
        return;
    object.m_imageRecord = record.serial;
    if (auto image = object.captureImage())
        record.changes.emplace_back(StateChange{object.objectId().slot(), std::move(image)});
}

void UndoJournal::erase(OdDbObject& object, bool erasing)
{
    const quint32 slot = object.objectId().slot();
    ObjectStore& store = m_database.store();
    if (store.has(slot, ObjectStore::kErased) == erasing)
        return;
    writable().changes.emplace_back(ExistenceChange{slot, erasing, false});
    m_database.setErased(slot, erasing);
    m_database.notify(
        [&](OdDbDatabaseReactor& r) { r.objectErased(&m_database, &object, erasing); });
    if (!store.has(slot, ObjectStore::kEntity) || store.has(slot, ObjectStore::kSubEntity))
        return;
    // Vertices and attributes go with their entity.
    for (quint32 part = slot + 1;
         part < store.fileRecords() && store.has(part, ObjectStore::kSubEntity); ++part)
        erase(*m_database.idOfSlot(part).openObject(OdDb::kForRead, true), erasing);
}

void UndoJournal::appended(quint32 slot)
{
    writable().changes.emplace_back(ExistenceChange{slot, false, true});
}

void UndoJournal::keepCurrent(const CurrentSettings& before)
{
    Record& record = writable();
    if (!std::exchange(record.hasCurrent, true))
        record.changes.emplace_back(before);
}

void UndoJournal::keepHeader(const QString& name, int code, const QString& before, bool existed)
{
    writable().changes.emplace_back(HeaderChange{name, code, before, existed});
}

void UndoJournal::keepExtension(quint32 slot, quint32 before)
{
    writable().changes.emplace_back(ExtensionChange{slot, before});
}

void UndoJournal::keepEntityLayer(quint32 slot, quint32 before)
{
    writable().changes.emplace_back(EntityLayerChange{slot, before});
}

bool UndoJournal::undo()
{
    if (!m_undo.empty() && m_undo.back()->changes.empty())
        m_undo.pop_back();
    m_open = false;
    if (m_undo.empty())
        return false;
    m_redo.push_back(std::move(m_undo.back()));
    m_undo.pop_back();
    m_stamp = m_redo.back()->stampBefore;
    exchange(m_redo.back(), true);
    return true;
}

bool UndoJournal::redo()
{
    if (m_redo.empty())
        return false;
    if (!m_undo.empty() && m_undo.back()->changes.empty())
        m_undo.pop_back();
    m_open = false;
    m_undo.push_back(std::move(m_redo.back()));
    m_redo.pop_back();
    m_stamp = m_undo.back()->stampAfter;
    exchange(m_undo.back(), false);
    return true;
}

void UndoJournal::exchange(const std::shared_ptr<Record>& record, bool backwards)
{
    // Held here: a reactor that edits the drawing clears the redo stack.
    const std::shared_ptr<Record> held = record;
    auto& changes = held->changes;
    QStringList variables = dictionaryVariables(changes);
    if (backwards) {
        for (auto it = changes.rbegin(); it != changes.rend(); ++it)
            exchange(*it);
    } else {
        for (Change& change : changes)
            exchange(change);
    }
    // Only once the whole state is consistent.
    for (std::size_t i = 0; i < changes.size(); ++i)
        announce(changes[backwards ? changes.size() - 1 - i : i]);
    // A variable that came or went has its name before, or after.
    variables += dictionaryVariables(changes);
    variables.removeDuplicates();
    for (const QString& name : variables)
        m_database.notifyHeader(name);
}

QStringList UndoJournal::dictionaryVariables(const std::vector<Change>& changes) const
{
    const ObjectStore& store = m_database.store();
    QStringList names;
    const auto note = [&](quint32 slot) {
        if (store.type(slot) != RecordType::DictionaryVar)
            return;
        const OdDbObjectId id = m_database.idOfSlot(slot);
        const auto owner = m_database.idOfSlot(store.owner(slot)).openObject<OdDbDictionary>();
        if (const QString name = owner ? owner->nameAt(id) : QString(); !name.isEmpty())
            names << name;
    };
    for (const Change& change : changes) {
        if (const auto* state = std::get_if<StateChange>(&change))
            note(state->slot);
        else if (const auto* existence = std::get_if<ExistenceChange>(&change))
            note(existence->slot);
    }
    return names;
}

void UndoJournal::exchange(Change& change)
{
    std::visit(
        Overloaded{
            [&](StateChange& c) {
                OdDbObject* object = m_database.openRaw(c.slot, OdDb::kForRead, true);
                object->m_imageRecord = 0;
                object->swapImage(*c.image);
                object->imageSwapped();
                --object->m_openCount;
            },
            [&](ExistenceChange& c) {
                m_database.setErased(c.slot, !c.exists);
                c.exists = !c.exists;
            },
            [&](CurrentSettings& c) { m_database.exchangeCurrent(c); },
            [&](HeaderChange& c) { m_database.exchangeHeader(c.name, c.code, c.value, c.exists); },
            [&](ExtensionChange& c) {
                c.dictionary = m_database.exchangeExtension(c.slot, c.dictionary);
            },
            [&](EntityLayerChange& c) {
                c.layer = m_database.exchangeEntityLayer(c.slot, c.layer);
            },
        },
        change);
}

void UndoJournal::announce(const Change& change)
{
    OdDbDatabase& db = m_database;
    std::visit(
        Overloaded{
            [&](const StateChange& c) {
                const auto object = db.idOfSlot(c.slot).openObject(OdDb::kForRead, true);
                if (!object->isErased())
                    db.notify([&](OdDbDatabaseReactor& r) { r.objectModified(&db, object.get()); });
            },
            [&](const ExistenceChange& c) {
                const auto object = db.idOfSlot(c.slot).openObject(OdDb::kForRead, true);
                const bool existsNow = !object->isErased();
                db.notify([&](OdDbDatabaseReactor& r) {
                    if (existsNow)
                        r.objectReAppended(&db, object.get());
                    else if (c.isAppend)
                        r.objectUnAppended(&db, object.get());
                    else
                        r.objectErased(&db, object.get(), true);
                });
            },
            [&](const CurrentSettings& c) { db.announceCurrent(c); },
            [&](const HeaderChange& c) { db.notifyHeader(c.name.mid(1)); },
            [&](const ExtensionChange&) {},
            [&](const EntityLayerChange& c) {
                const auto entity = db.idOfSlot(c.slot).openObject(OdDb::kForRead);
                if (entity)
                    db.notify([&](OdDbDatabaseReactor& r) { r.objectModified(&db, entity.get()); });
            },
        },
        change);
}
