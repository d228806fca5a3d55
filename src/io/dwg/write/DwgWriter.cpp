#include "io/dwg/write/DwgWriter.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbDictionaryVar.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbXrecord.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/records/SheetRecords.h"
#include "io/dwg/write/DwgFileBuilder.h"
#include "io/dxf/read/LayerGroups.h"
#include "io/records/ErasedLayers.h"

#include <QCoreApplication>

#include <algorithm>

using Stream = RecordPatch::Stream;

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("DwgWriter", text);
}

BitWriter reference(DwgReference kind, quint64 handle)
{
    BitWriter out;
    out.handle(kind, handle);
    return out;
}

BitWriter bit(bool value)
{
    BitWriter out;
    out.bit(value);
    return out;
}

bool isEdited(const OdDbDatabase& drawing)
{
    const auto& variables = drawing.header().all();
    return !drawing.store().touched().empty() || !(drawing.current() == drawing.loadedCurrent())
        || std::any_of(variables.begin(), variables.end(),
                       [](const auto& variable) { return variable.value != variable.loadedValue; });
}

BitWriter number(std::size_t count)
{
    BitWriter out;
    out.bitLong(static_cast<qint32>(count));
    return out;
}

} // namespace

DwgWriter::DwgWriter(const DwgObjectSource& source, const OdDbDatabase& database)
    : m_source(source)
    , m_database(database)
    , m_store(database.store())
    , m_newRecords(source.format())
{ }

DrawingPieces DwgWriter::run()
{
    cleanReferences();
    for (const quint32 slot : m_store.touched())
        editTouched(slot);
    for (const auto& [slot, edit] : m_dictionaryEdits)
        editDictionary(slot, edit);
    editBlocks();
    editTables();
    DwgFileBuilder builder(m_source, m_database, *m_meant);
    DrawingPieces pieces = builder.build(m_highestNew);
    m_notKept += builder.notKept();
    pieces.meant = m_meant;
    pieces.report.settingsChanged = builder.settingsChanged();
    report(pieces);
    return pieces;
}

bool DwgWriter::isInFile(quint32 slot) const
{
    return slot < m_store.fileRecords();
}

bool DwgWriter::isLive(quint32 slot) const
{
    constexpr int kDeepest = 1000;
    for (int depth = 0; slot != ObjectStore::kNone && depth < kDeepest; ++depth) {
        if (m_store.has(slot, ObjectStore::kErased))
            return false;
        slot = m_store.owner(slot);
    }
    return true;
}

quint64 DwgWriter::used(quint64 handle)
{
    if (m_store.isNewHandle(handle))
        m_highestNew = std::max(m_highestNew, handle);
    return handle;
}

void DwgWriter::tellNotKept(const QString& sentence)
{
    if (!m_notKept.contains(sentence))
        m_notKept << sentence;
}

bool DwgWriter::open(DwgRecord& record, DwgHead& head, quint32 slot, DwgEntityHead* entity) const
{
    const auto edited = m_meant->records.find(m_store.handle(slot));
    if (edited != m_meant->records.end())
        record = DwgRecord(m_source.format(), edited->second);
    if (edited != m_meant->records.end() ? !record.open(0) : !m_source.open(record, slot))
        return false;
    DwgEntityHead unused;
    if (m_store.has(slot, ObjectStore::kEntity))
        record.readHead(head, entity ? *entity : unused);
    else
        record.readHead(head);
    return true;
}

void DwgWriter::patched(quint32 slot, const RecordPatch& patch)
{
    if (!patch.isEmpty())
        put(slot, m_store.handle(slot), patch.result());
}

void DwgWriter::put(quint32 slot, quint64 handle, const QByteArray& record)
{
    // Readers look some bytes ahead.
    QByteArray padded = record;
    padded.reserve(record.size() + BitReader::kPadding);
    m_meant->records[used(handle)] = padded;
    if (slot != ObjectStore::kNone)
        m_meant->slotOf[handle] = slot;
}

Spelling::HandleOf DwgWriter::handleOf() const
{
    return [this](int, const QString& name) {
        return m_database.table(OdDbTableKind::Layer).getAt(name).getHandle().value();
    };
}

void DwgWriter::editTouched(quint32 slot)
{
    if (!isInFile(slot)) {
        if (isLive(slot))
            addRecord(slot);
        return;
    }
    if (m_store.has(slot, ObjectStore::kErased))
        return removeRecord(slot);
    if (m_store.has(slot, ObjectStore::kEntity))
        editEntityLayer(slot);
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
        editDictionaryVar(slot);
        break;
    default:
        break;
    }
    if (!m_madeDictionaries.contains(slot))
        editExtension(slot);
}

quint64 DwgWriter::extensionOf(quint32 slot) const
{
    const auto made = m_madeDictionaries.find(slot);
    if (made != m_madeDictionaries.end())
        return m_source.handleOfMade(slot, QStringLiteral("dictionary"));
    const OdDbObjectId dictionary = m_database.extensionDictionary(m_database.idOfSlot(slot));
    return dictionary.isNull() || dictionary.isErased() ? 0 : dictionary.getHandle().value();
}

void DwgWriter::editExtension(quint32 slot)
{
    DwgRecord record = m_source.reader();
    DwgHead head;
    if (!open(record, head, slot))
        return;
    const quint64 now = extensionOf(slot);
    if (now == head.extension)
        return;
    RecordPatch patch(record);
    if (record.since(DwgVersion::V2004))
        patch.replace(Stream::Data, head.noExtension, bit(now == 0));
    const bool stands = now != 0 || !record.since(DwgVersion::V2004);
    patch.replace(Stream::Handles, head.extensionAt,
                  stands ? reference(DwgReference::HardOwner, used(now)) : BitWriter());
    patched(slot, patch);
}

void DwgWriter::editViewport(quint32 slot)
{
    const auto viewport = m_database.idOfSlot(slot).safeOpenObject<OdDbViewport>();
    OdDbObjectIdArray after = viewport->frozenLayers();
    std::erase_if(after, [](OdDbObjectId layer) { return layer.isErased(); });
    if (m_source.readViewport(slot).frozenLayers == after)
        return;
    DwgRecord record = m_source.reader();
    DwgHead head;
    if (!open(record, head, slot))
        return;
    const SheetRecords::Viewport fields = SheetRecords::viewport(record);
    BitWriter references;
    for (const OdDbObjectId layer : after)
        references.handle(DwgReference::SoftPointer, used(layer.getHandle().value()));
    RecordPatch patch(record);
    patch.replace(Stream::Data, fields.frozenCountAt, number(after.size()));
    patch.replace(Stream::Handles, fields.frozenAt, references);
    patched(slot, patch);
}

void DwgWriter::editXrecord(quint32 slot)
{
    const XrecordState before = m_source.readXrecord(slot);
    const auto cleaned = m_cleaned.find(slot);
    const auto object = m_database.idOfSlot(slot).safeOpenObject<OdDbXrecord>();
    const GroupList& after = cleaned == m_cleaned.end() ? object->groups() : cleaned->second;
    if (before.groups == after && before.xData == object->xData())
        return;
    DwgRecord record = m_source.reader();
    DwgHead head;
    if (!open(record, head, slot))
        return;
    BitSpan at;
    FreeRecords::xrecord(record, &at);
    BitWriter groups;
    if (!Spelling::xrecord(m_source.format(), after, groups))
        return tellNotKept(tr("A record holds groups that DWG drawings have no form for."));
    RecordPatch patch(record);
    if (!(before.xData == object->xData()))
        replaceXData(head, object->xData(), patch);
    if (!(before.groups == after))
        patch.replace(Stream::Data, at, groups);
    patched(slot, patch);
}

void DwgWriter::editDictionaryVar(quint32 slot)
{
    const auto variable = m_database.idOfSlot(slot).safeOpenObject<OdDbDictionaryVar>();
    if (m_source.readDictionaryVar(slot) == variable->state())
        return;
    DwgRecord record = m_source.reader();
    DwgHead head;
    if (!open(record, head, slot))
        return;
    record.data.rawChar(); // schema
    BitSpan at;
    at.begin = record.textPosition();
    record.text();
    at.end = record.textPosition();
    RecordPatch patch(record);
    patch.replace(Stream::Text, at, Spelling::text(m_source.format(), variable->value()));
    patched(slot, patch);
}

void DwgWriter::editEntityLayer(quint32 slot)
{
    DwgRecord record = m_source.reader();
    DwgHead head;
    DwgEntityHead entity;
    if (m_store.layer(slot) == ObjectStore::kNone || !open(record, head, slot, &entity))
        return;
    const quint64 layer = m_store.handle(m_store.layer(slot));
    if (entity.layer == layer)
        return;
    RecordPatch patch(record);
    patch.replace(Stream::Handles, entity.layerAt,
                  reference(DwgReference::HardPointer, used(layer)));
    patched(slot, patch);
}

void DwgWriter::editDictionary(quint32 slot, const DictionaryEdit& edit)
{
    if (!isInFile(slot) || !isLive(slot))
        return;
    const DictionaryState before = m_source.readDictionary(slot);
    const auto object = m_database.idOfSlot(slot).safeOpenObject<OdDbDictionary>();
    std::vector<NewDwgRecords::Entry> wanted;
    for (const DictionaryEntry& entry : object->entries()) {
        const bool gone = entry.value.isNull() || !isLive(entry.value.slot());
        if (!gone && !edit.removed.contains(entry.key.toCaseFolded()))
            wanted.emplace_back(entry.key, used(entry.value.getHandle().value()));
    }
    for (const NewDwgRecords::Entry& entry : edit.added)
        wanted.emplace_back(entry.first, used(entry.second));
    DwgRecord record = m_source.reader();
    DwgHead head;
    if (!open(record, head, slot))
        return;
    const FreeRecords::Dictionary fields = FreeRecords::dictionary(record);
    const bool sameXData = before.xData == object->xData();
    if (fields.entries == wanted && sameXData)
        return;
    BitWriter texts;
    BitWriter references;
    for (const auto& [key, handle] : wanted) {
        texts.append(Spelling::text(m_source.format(), key));
        references.handle(DwgReference::SoftOwner, handle);
    }
    RecordPatch patch(record);
    if (!sameXData)
        replaceXData(head, object->xData(), patch);
    patch.replace(Stream::Data, fields.count, number(wanted.size()));
    patch.replace(Stream::Text, {fields.textsBegin, fields.textsEnd}, texts);
    patch.replace(Stream::Handles, fields.references, references);
    patched(slot, patch);
}

void DwgWriter::replaceXData(const DwgHead& head, const GroupList& groups, RecordPatch& patch)
{
    patch.replace(Stream::Data, head.xData, NewDwgRecords::spelledXData(spelledXData(groups)));
}

void DwgWriter::cleanReferences()
{
    const ErasedLayers erased(m_database);
    if (erased.isEmpty())
        return;
    for (const quint32 slot : m_store.viewports()) {
        if (isInFile(slot) && !m_store.has(slot, ObjectStore::kErased))
            editViewport(slot);
    }
    m_cleaned = erased.cleanedRecords();
    for (const auto& [slot, groups] : m_cleaned) {
        if (isInFile(slot) && isLive(slot))
            editXrecord(slot);
    }
}

void DwgWriter::removeRecord(quint32 first)
{
    std::vector<quint32> waiting = {first};
    while (!waiting.empty()) {
        const quint32 slot = waiting.back();
        waiting.pop_back();
        if (!isInFile(slot) || !m_meant->removed.insert(m_store.handle(slot)).second)
            continue;
        m_meant->slotOf[m_store.handle(slot)] = slot;
        if (m_store.type(slot) == RecordType::Layer)
            m_shrunkTables.insert(OdDbTableKind::Layer);
        if (m_store.has(slot, ObjectStore::kEntity) && m_store.owner(slot) != ObjectStore::kNone)
            m_changedBlocks.insert(m_store.owner(slot));
        waiting.push_back(m_source.extensionDictionary(slot));
        if (m_store.type(slot) != RecordType::Dictionary)
            continue;
        for (const DictionaryEntry& entry : m_source.readDictionary(slot).entries) {
            if (!entry.value.isNull() && m_store.owner(entry.value.slot()) == slot)
                waiting.push_back(entry.value.slot());
        }
    }
}

void DwgWriter::report(DrawingPieces& pieces) const
{
    SaveReport& report = pieces.report;
    const auto isLayer = [this](quint64 handle) {
        const auto slot = m_meant->slotOf.find(handle);
        return slot != m_meant->slotOf.end() && m_store.type(slot->second) == RecordType::Layer;
    };
    quint64 inFile = 0;
    for (const auto& [handle, record] : m_meant->records) {
        report.layerRecordsChanged += isLayer(handle) ? 1 : 0;
        inFile += m_store.isNewHandle(handle) ? 0 : 1;
    }
    for (const quint64 handle : m_meant->removed)
        report.layerRecordsChanged += isLayer(handle) ? 1 : 0;
    const quint64 changed = m_meant->records.size() + m_meant->removed.size();
    report.otherRecordsChanged = changed - report.layerRecordsChanged;
    report.recordsChanged = changed + report.settingsChanged;
    report.recordsIdentical = m_store.fileRecords() - inFile - m_meant->removed.size();
    report.notKept = m_notKept;
}

QString DwgObjectSource::refusal() const
{
    if (!m_faults.isEmpty())
        return m_faults.join(QLatin1Char(' '));
    // Records of these versions have another order, which nothing here spells.
    return m_format.version < DwgVersion::V2000 ? tr("Drawings of the versions R13 and R14 can be "
                                                     "opened, but edits of them cannot be saved.")
                                                : QString();
}

DrawingPieces DwgObjectSource::write(const OdDbDatabase& drawing) const
{
    if (!m_faults.isEmpty())
        throw OdError_FileAccess(
            OdResult::CantWriteFile,
            tr("The drawing is open for reading only. %1 Its layer states can be exported and used "
               "in other drawings.")
                .arg(refusal()));
    if (!refusal().isEmpty() && isEdited(drawing))
        throw OdError_FileAccess(OdResult::CantWriteFile, refusal());
    return DwgWriter(*this, drawing).run();
}
