#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbDictionaryVar.h"
#include "database/objects/OdDbMadeEntity.h"
#include "database/objects/OdDbXrecord.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/write/DwgWriter.h"
#include "io/dwg/write/KeptBits.h"

#include <algorithm>

using Stream = RecordPatch::Stream;

namespace {
constexpr QByteArrayView kVariableClass("DICTIONARYVAR");
}

NewDwgRecords::Head DwgWriter::headOf(quint32 slot) const
{
    NewDwgRecords::Head head;
    head.handle = m_store.handle(slot);
    const quint32 owner = m_store.owner(slot);
    if (owner != ObjectStore::kNone) {
        head.owner = m_store.handle(owner);
        if (m_store.type(owner) == RecordType::Dictionary)
            head.reactors = {head.owner};
    }
    head.extension = extensionOf(slot);
    return head;
}

QString DwgWriter::whyNotHeld(quint32 slot) const
{
    BitWriter unused;
    return m_store.type(slot) != RecordType::Xrecord
            || Spelling::freeGroups(m_source.format(), xrecordNow(slot).groups, unused)
        ? QString()
        : tr("A record holds groups that DWG drawings have no form for.");
}

void DwgWriter::addRecord(quint32 slot)
{
    const OdDbObjectId id = m_database.idOfSlot(slot);
    const NewDwgRecords::Head head = headOf(slot);
    used(head.extension);
    if (m_store.has(slot, ObjectStore::kEntity))
        return addEntity(slot, head);
    switch (m_store.type(slot)) {
    case RecordType::Layer:
        return addLayer(slot, head);
    case RecordType::Ltype:
        put(slot, head.handle,
            m_newRecords.linetype(head, id.safeOpenObject<OdDbLinetypeTableRecord>()->state()));
        m_addedToTables[OdDbTableKind::Linetype].push_back(head.handle);
        return;
    case RecordType::Dictionary:
        return addDictionary(slot, head);
    case RecordType::Xrecord:
        return addXrecord(slot, head, xrecordNow(slot));
    case RecordType::DictionaryVar:
        return addVariable(slot, head);
    default:
        return;
    }
}

void DwgWriter::addVariable(quint32 slot, const NewDwgRecords::Head& head)
{
    const QString value = m_database.idOfSlot(slot).safeOpenObject<OdDbDictionaryVar>()->value();
    quint16 type = m_source.classes().number(kVariableClass);
    if (type == 0) {
        type = m_source.classes().nextNumber();
        m_meant->addsVariableClass = true;
    }
    m_meant->variables[head.handle] = value;
    put(slot, head.handle, m_newRecords.variable(head, type, value));
}

void DwgWriter::addDictionary(quint32 slot, const NewDwgRecords::Head& head)
{
    const auto dictionary = m_database.idOfSlot(slot).safeOpenObject<OdDbDictionary>();
    NewDwgRecords::Head whole = head;
    whole.xData = newXData(head.handle, divided(dictionary->xData()));
    m_meant->xData[head.handle] = dictionary->xData();
    const std::vector<KeyedHandle> entries = KeptBits::inKeyOrder(entriesNow(slot), {});
    m_meant->entries[head.handle] = entries;
    put(slot, head.handle,
        m_newRecords.dictionary(whole, dictionary->state().treatElementsAsHard, entries));
}

void DwgWriter::addXrecord(quint32 slot, NewDwgRecords::Head head, const XrecordState& state)
{
    head.xData = newXData(head.handle, divided(state.xData));
    m_meant->xData[head.handle] = state.xData;
    m_meant->groups[head.handle] = state.groups;
    put(slot, head.handle, m_newRecords.xrecord(head, state.groups).value());
}

NewDwgRecords::EntityHead DwgWriter::entityHead(quint32 slot, const GroupList& groups) const
{
    constexpr quint8 kByBlock = 1;
    constexpr quint8 kNamed = 3;
    NewDwgRecords::EntityHead head;
    head.layer = m_store.handle(m_store.layer(slot));
    const quint32 block = m_store.owner(slot);
    const OdDbObjectId sheet =
        m_database.table(OdDbTableKind::Block).getAt(QStringLiteral("*Paper_Space"));
    if (block == m_database.getModelSpaceId().slot())
        head.space = DwgEntityHead::Space::Model;
    else if (block == sheet.slot())
        head.space = DwgEntityHead::Space::Paper;
    const OdDbObjectId style =
        m_database.table(OdDbTableKind::Style).getAt(QStringLiteral("Standard"));
    head.textStyle = style.isNull() ? 0 : style.getHandle().value();
    for (const GroupList::Group& group : groups) {
        const qint64 number = NumberText::integer(group.value).value_or(0);
        if (group.code == 62) {
            head.color = static_cast<qint16>(number);
        } else if (group.code == 370) {
            head.lineWeight = static_cast<qint16>(number);
        } else if (group.code == 48) {
            head.linetypeScale = NumberText::real(group.value).value_or(1.0);
        } else if (group.code == 6) {
            const QString name = QString::fromUtf8(group.value);
            const OdDbObjectId linetype = m_database.table(OdDbTableKind::Linetype).getAt(name);
            const bool isByBlock = name.compare(QLatin1String("ByBlock"), Qt::CaseInsensitive) == 0;
            head.linetypeKind = isByBlock ? kByBlock : linetype.isNull() ? quint8(0) : kNamed;
            head.linetype = head.linetypeKind == kNamed ? linetype.getHandle().value() : quint64(0);
        }
    }
    return head;
}

void DwgWriter::addEntity(quint32 slot, const NewDwgRecords::Head& head)
{
    const auto made = m_database.idOfSlot(slot).safeOpenObject<OdDbEntity>();
    if (!made->madeGroups())
        return;
    const NewDwgRecords::EntityHead entity = entityHead(slot, *made->madeGroups());
    const auto record =
        m_newRecords.entity(head, entity, m_store.typeName(slot), *made->madeGroups());
    if (!record)
        return tellNotKept(tr("New entities of type %1 cannot be saved in DWG drawings.")
                               .arg(QString::fromLatin1(m_store.typeName(slot))));
    put(slot, head.handle, *record);
    m_meant->layers[head.handle] = entity.layer;
    m_meant->entities[head.handle] = {*made->madeGroups(), entity.linetypeKind, entity.linetype};
    m_changedBlocks.insert(m_store.owner(slot));
}

// Blocks

void DwgWriter::editBlocks()
{
    for (const quint32 slot : m_changedBlocks) {
        DwgRecord record = m_source.reader();
        DwgHead head;
        if (!isInFile(slot) || !open(record, head, slot))
            continue;
        const TableRecords::Block old = TableRecords::block(record);
        const auto block = m_database.idOfSlot(slot).safeOpenObject<OdDbBlockTableRecord>();
        std::vector<quint64> entities;
        for (const EntityRun& run : block->entityRuns()) {
            for (quint32 at = run.first; at < run.end; ++at) {
                const bool counts = m_store.owner(at) == slot
                    && !m_store.has(at, ObjectStore::kSubEntity)
                    && !m_store.has(at, ObjectStore::kErased)
                    && (isInFile(at) || m_meant->records.contains(m_store.handle(at)));
                if (counts)
                    entities.push_back(m_store.handle(at));
            }
        }
        RecordPatch patch(record);
        DwgReference kind = DwgReference::HardOwner;
        const bool isList = record.since(DrawingVersion::V2004);
        if (!isList) {
            relinkEntities(entities);
            kind = DwgReference::SoftPointer;
            entities = {entities.empty() ? 0 : entities.front(),
                        entities.empty() ? 0 : entities.back()};
        }
        const auto isUnknown = [&](quint64 handle) {
            return isList && m_store.find(handle) == ObjectStore::kNone;
        };
        const KeptBits::References now =
            KeptBits::references(record, old.entitiesAt, entities, kind, isUnknown);
        if (isList)
            patch.replace(Stream::Data, old.countAt, number(now.handles.size()));
        patch.replace(Stream::Handles, old.entitiesAt, now.bits);
        patched(slot, patch);
    }
}

void DwgWriter::relinkEntities(const std::vector<quint64>& entities)
{
    for (std::size_t i = 0; i < entities.size(); ++i) {
        const quint32 slot = m_store.find(entities[i]);
        const quint64 previous = i > 0 ? entities[i - 1] : 0;
        const quint64 next = i + 1 < entities.size() ? entities[i + 1] : 0;
        DwgRecord record = m_source.reader();
        DwgHead head;
        DwgEntityHead entity;
        if (!open(record, head, slot, &entity))
            continue;
        if (entity.previous == previous && entity.next == next)
            continue;
        const bool areBeside = previous == head.handle - 1 && next == head.handle + 1;
        BitWriter close;
        close.bit(areBeside);
        BitWriter links;
        record.handles.seek(entity.linksAt.begin);
        for (const auto& [was, now] : {std::pair(entity.previous, previous), {entity.next, next}}) {
            const quint64 at = record.handles.position();
            const bool hasLinks = at < entity.linksAt.end;
            if (hasLinks)
                record.reference();
            if (hasLinks && was == now)
                links.append(record.body(), at, record.handles.position());
            else
                links.handle(DwgHandle::shortest(head.handle, now));
        }
        RecordPatch patch(record);
        patch.replace(Stream::Data, entity.closeNeighbours, close);
        patch.replace(Stream::Handles, entity.linksAt, areBeside ? BitWriter() : links);
        patched(slot, patch);
    }
}

// Tables

void DwgWriter::editTables()
{
    std::set<OdDbTableKind> changed = m_shrunkTables;
    for (const auto& [kind, handles] : m_addedToTables)
        changed.insert(kind);
    for (const OdDbTableKind kind : changed) {
        const quint32 slot = m_database.tableId(kind).slot();
        DwgRecord record = m_source.reader();
        DwgHead head;
        if (!isInFile(slot) || !open(record, head, slot))
            continue;
        TableRecords::Listed listed = TableRecords::listed(record, 0);
        std::erase_if(listed.handles,
                      [this](quint64 handle) { return m_meant->removed.contains(handle); });
        const std::vector<quint64>& added = m_addedToTables[kind];
        listed.handles.insert(listed.handles.end(), added.begin(), added.end());
        for (const quint64 handle : listed.handles)
            used(handle);
        RecordPatch patch(record);
        patch.replace(Stream::Data, listed.count, number(listed.handles.size()));
        patch.replace(
            Stream::Handles, listed.counted,
            KeptBits::references(record, listed.counted, listed.handles, DwgReference::SoftOwner)
                .bits);
        patched(slot, patch);
    }
}
