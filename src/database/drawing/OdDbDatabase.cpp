#include "database/drawing/OdDbDatabase.h"

#include "database/drawing/OdDbObjectSource.h"
#include "database/drawing/ReactorTrouble.h"
#include "database/drawing/UndoJournal.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbDictionaryVar.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/objects/OdDbXrecord.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/tables/OdDbNamedRecord.h"
#include "database/values/GroupCursor.h"

#include <algorithm>

OdDbDatabase::OdDbDatabase()
    : m_store(std::make_unique<ObjectStore>())
    , m_header(std::make_unique<HeaderVariables>())
    , m_journal(std::make_unique<UndoJournal>(*this))
{
    m_tables.fill(ObjectStore::kNone);
}

OdDbDatabase::~OdDbDatabase()
{
    notify([this](OdDbDatabaseReactor& reactor) { reactor.goodbye(this); });
}

OdDbObjectId OdDbDatabase::tableId(OdDbTableKind kind) const
{
    return idOfSlot(m_tables[static_cast<std::size_t>(kind)]);
}

OdDbSymbolTable& OdDbDatabase::table(OdDbTableKind kind) const
{
    return *static_cast<OdDbSymbolTable*>(
        m_store->object(m_tables[static_cast<std::size_t>(kind)]));
}

OdDbLayerTable& OdDbDatabase::layerTable() const
{
    return static_cast<OdDbLayerTable&>(table(OdDbTableKind::Layer));
}

OdDbObjectId OdDbDatabase::getLayerZeroId() const
{
    return layerTable().getAt(QStringLiteral("0"));
}

OdDbObjectId OdDbDatabase::getLinetypeContinuousId() const
{
    return table(OdDbTableKind::Linetype).getAt(QStringLiteral("Continuous"));
}

OdDbObjectId OdDbDatabase::getNamedObjectsDictionaryId() const
{
    return m_namedObjects;
}

OdDbObjectId OdDbDatabase::getModelSpaceId() const
{
    return table(OdDbTableKind::Block).getAt(QStringLiteral("*Model_Space"));
}

OdDbObjectId OdDbDatabase::getOdDbObjectId(OdDbHandle handle) const
{
    return handle.isNull() ? OdDbObjectId() : idOfSlot(m_store->find(handle.value()));
}

void OdDbDatabase::setRoots(OdDbObjectId namedObjects)
{
    m_namedObjects = namedObjects;
}

void OdDbDatabase::setTable(OdDbTableKind kind, quint32 slot)
{
    m_tables[static_cast<std::size_t>(kind)] = slot;
}

void OdDbDatabase::setSource(std::unique_ptr<OdDbObjectSource> source)
{
    m_source = std::move(source);
}

std::unique_ptr<GroupCursor> OdDbDatabase::makeCursor() const
{
    return m_source ? m_source->makeCursor() : nullptr;
}

OdDbObjectId OdDbDatabase::extensionDictionary(OdDbObjectId object) const
{
    if (object.isNull())
        return {};
    if (const auto it = m_extensions.find(object.slot()); it != m_extensions.end())
        return idOfSlot(it->second);
    if (!m_source || object.slot() >= m_store->fileRecords())
        return {};
    return idOfSlot(m_source->extensionDictionary(object.slot()));
}

// Objects

std::unique_ptr<OdDbObject> OdDbDatabase::makeObject(quint32 slot) const
{
    switch (m_store->type(slot)) {
    case RecordType::Layer:
        return std::make_unique<OdDbLayerTableRecord>();
    case RecordType::Ltype:
        return std::make_unique<OdDbLinetypeTableRecord>();
    case RecordType::BlockRecord:
        return std::make_unique<OdDbBlockTableRecord>();
    case RecordType::Style:
    case RecordType::DimStyle:
    case RecordType::View:
    case RecordType::VPort:
    case RecordType::AppId:
    case RecordType::Ucs:
        return std::make_unique<OdDbNamedRecord>();
    case RecordType::Dictionary:
    case RecordType::DictionaryWithDefault: // that of plot styles, which is only read
        return std::make_unique<OdDbDictionary>();
    case RecordType::Xrecord:
        return std::make_unique<OdDbXrecord>();
    case RecordType::DictionaryVar:
        return std::make_unique<OdDbDictionaryVar>();
    case RecordType::Layout:
        return std::make_unique<OdDbLayout>();
    case RecordType::Viewport:
        return std::make_unique<OdDbViewport>();
    default:
        if (m_store->has(slot, ObjectStore::kEntity))
            return std::make_unique<OdDbEntity>();
        return std::make_unique<OdDbUnknownObject>();
    }
}

OdDbObject* OdDbDatabase::openRaw(quint32 slot, OdDb::OpenMode mode, bool openErased)
{
    if (slot >= m_store->size() || (!openErased && m_store->has(slot, ObjectStore::kErased)))
        return nullptr;
    OdDbObject* object = m_store->object(slot);
    if (!object) {
        object = m_store->adopt(slot, makeObject(slot));
        object->m_id = idOfSlot(slot);
        if (m_source && slot < m_store->fileRecords())
            m_source->read(*object);
    }
    ++object->m_openCount;
    if (mode == OdDb::kForWrite)
        ++object->m_writers;
    return object;
}

OdDbObject& OdDbDatabase::adoptObject(quint32 slot, std::unique_ptr<OdDbObject> object)
{
    OdDbObject* kept = m_store->adopt(slot, std::move(object));
    kept->m_id = idOfSlot(slot);
    return *kept;
}

void OdDbDatabase::closed(OdDbObject& object)
{
    object.m_writers = 0;
    if (!std::exchange(object.m_modified, false))
        return;
    ++object.m_openCount; // stays open for the listeners, without closing again
    notify([&](OdDbDatabaseReactor& reactor) { reactor.objectModified(this, &object); });
    --object.m_openCount;
}

void OdDbDatabase::setErased(quint32 slot, bool erased)
{
    m_store->setFlag(slot, ObjectStore::kErased, erased);
    m_store->setFlag(slot, ObjectStore::kTouched, true);
    if (m_store->has(slot, ObjectStore::kEntity))
        layerTable().useChanged(m_store->layer(slot), erased ? -1 : 1);
    const auto* layer = m_store->type(slot) == RecordType::Layer
        ? static_cast<const OdDbLayerTableRecord*>(m_store->object(slot))
        : nullptr;
    if (layer && layer->state().reconciled)
        layerTable().reconciledRecordsChanged(erased ? -1 : 1);
    const quint32 owner = m_store->owner(slot);
    if (owner == ObjectStore::kNone)
        return;
    if (auto* symbols = dynamic_cast<OdDbSymbolTable*>(m_store->object(owner)))
        symbols->recordErased(slot, erased);
}

// Undo

void OdDbDatabase::startUndoRecord()
{
    m_journal->start();
}

bool OdDbDatabase::isUndoRecordOpen() const
{
    return m_journal->isOpen();
}

void OdDbDatabase::endUndoRecord()
{
    m_journal->end();
}

bool OdDbDatabase::hasUndo() const
{
    return m_journal->hasUndo();
}

bool OdDbDatabase::hasRedo() const
{
    return m_journal->hasRedo();
}

bool OdDbDatabase::undo()
{
    return m_journal->undo();
}

bool OdDbDatabase::redo()
{
    return m_journal->redo();
}

quint64 OdDbDatabase::editStamp() const
{
    return m_journal->stamp();
}

// Reactors

void OdDbDatabase::addReactor(OdDbDatabaseReactor* reactor)
{
    if (std::find(m_reactors.begin(), m_reactors.end(), reactor) == m_reactors.end())
        m_reactors.push_back(reactor);
}

void OdDbDatabase::removeReactor(OdDbDatabaseReactor* reactor)
{
    // A listener may leave while it is being told; its place is cleared and swept later.
    std::replace(m_reactors.begin(), m_reactors.end(), reactor,
                 static_cast<OdDbDatabaseReactor*>(nullptr));
    if (m_notifyDepth == 0)
        std::erase(m_reactors, nullptr);
}

void OdDbDatabase::notify(const std::function<void(OdDbDatabaseReactor&)>& call)
{
    ++m_notifyDepth;
    for (std::size_t i = 0; i < m_reactors.size(); ++i) {
        if (!m_reactors[i])
            continue;
        try {
            call(*m_reactors[i]);
        } catch (...) {
            reactor_trouble::tell();
        }
    }
    if (--m_notifyDepth == 0)
        std::erase(m_reactors, nullptr);
}

void OdDbDatabase::notifyHeader(const QString& name)
{
    notify([&](OdDbDatabaseReactor& reactor) { reactor.headerSysVarChanged(this, name); });
}
