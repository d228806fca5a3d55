#include "io/dwg/write/DwgWriter.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/records/SheetRecords.h"
#include "io/dwg/write/KeptBits.h"
#include "io/dwg/write/file/DwgFileBuilder.h"

#include <QCoreApplication>

#include <algorithm>

using Stream = RecordPatch::Stream;

namespace {

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

} // namespace

QString DwgWriter::tr(const char* text)
{
    return QCoreApplication::translate("DwgWriter", text);
}

BitWriter DwgWriter::number(std::size_t count)
{
    BitWriter out;
    out.bitLong(static_cast<qint32>(count));
    return out;
}

DwgWriter::DwgWriter(const DwgObjectSource& source, const OdDbDatabase& database)
    : RecordWriter(source, database)
    , m_source(source)
    , m_newRecords(source.format())
{ }

DrawingPieces DwgWriter::run()
{
    cleanReferences();
    for (const quint32 slot : m_store.touched())
        editTouched(slot);
    editDictionaries();
    editBlocks();
    clearReferences();
    editTables();
    DwgFileBuilder builder(m_source, m_database, *m_meant);
    DrawingPieces pieces = builder.build(m_highestNew);
    m_notKept += builder.notKept() + pieces.report.notKept;
    m_meant->settings = builder.settings();
    pieces.meant = m_meant;
    pieces.report.settingsChanged = builder.settingsChanged();
    report(pieces);
    return pieces;
}

bool DwgWriter::open(DwgRecord& record, DwgHead& head, quint32 slot, DwgEntityHead* entity) const
{
    const auto edited = m_meant->records.find(m_store.handle(slot));
    if (edited != m_meant->records.end())
        record = DwgRecord(m_source.format(), edited->second);
    if (edited != m_meant->records.end() ? !record.open(0) : !m_source.open(record, slot))
        return false;
    DwgEntityHead unused;
    record.readHead(head, entity ? *entity : unused, m_store.has(slot, ObjectStore::kEntity));
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

void DwgWriter::setExtension(quint32 slot, quint64 dictionary)
{
    DwgRecord record = m_source.reader();
    DwgHead head;
    if (!open(record, head, slot))
        return;
    RecordPatch patch(record);
    if (record.since(DrawingVersion::V2004))
        patch.replace(Stream::Data, head.noExtension, bit(dictionary == 0));
    const bool stands = dictionary != 0 || !record.since(DrawingVersion::V2004);
    patch.replace(Stream::Handles, head.extensionAt,
                  stands ? reference(DwgReference::HardOwner, dictionary) : BitWriter());
    patched(slot, patch);
}

void DwgWriter::setFrozen(quint32 viewport, const std::vector<OdDbObjectId>&,
                          const std::vector<OdDbObjectId>& after)
{
    DwgRecord record = m_source.reader();
    DwgHead head;
    if (!open(record, head, viewport))
        return;
    const SheetRecords::Viewport fields = SheetRecords::viewport(record);
    std::vector<quint64> handles;
    for (const OdDbObjectId layer : after)
        handles.push_back(layer.getHandle().value());
    const auto isUnknown = [this](quint64 handle) {
        const quint32 slot = m_store.find(handle);
        return slot == ObjectStore::kNone || m_store.type(slot) != RecordType::Layer;
    };
    // Version 2000 has hard pointers here.
    const DwgReference kind =
        record.since(DrawingVersion::V2004) ? DwgReference::SoftPointer : DwgReference::HardPointer;
    RecordPatch patch(record);
    const KeptBits::References now =
        KeptBits::references(record, fields.frozenAt, handles, kind, isUnknown);
    patch.replace(Stream::Data, fields.frozenCountAt, number(now.handles.size()));
    patch.replace(Stream::Handles, fields.frozenAt, now.bits);
    m_meant->frozen[m_store.handle(viewport)] = now.handles;
    patched(viewport, patch);
}

void DwgWriter::setXrecord(quint32 slot, const XrecordState& before, const XrecordState& after)
{
    DwgRecord record = m_source.reader();
    DwgHead head;
    if (!open(record, head, slot))
        return;
    const FreeRecords::Xrecord fields = FreeRecords::xrecord(record);
    if (record.hasFailed())
        return;
    RecordPatch patch(record);
    const auto spell = [this](const GroupList& groups, BitWriter& out) {
        return Spelling::freeGroups(m_source.format(), groups, out);
    };
    const bool changes = !(before.groups == after.groups);
    BitWriter groups;
    if (changes && !KeptBits::groups(record.body(), fields.own, after.groups, spell, groups)) {
        tellNotKept(tr("A record holds groups that DWG drawings have no form for."));
    } else if (changes) {
        BitWriter all = number(groups.size() / 8);
        all.append(groups);
        patch.replace(Stream::Data, fields.at, all);
        m_meant->groups[head.handle] = after.groups;
    }
    if (!(before.xData == after.xData)) {
        m_meant->xData[head.handle] = after.xData;
        setXData(record, head, divided(after.xData), patch);
    }
    patched(slot, patch);
}

void DwgWriter::setVariable(quint32 slot, const QString& value)
{
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
    patch.replace(Stream::Text, at, Spelling::text(m_source.format(), value));
    m_meant->variables[m_store.handle(slot)] = value;
    patched(slot, patch);
}

void DwgWriter::editEntity(quint32 slot)
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
    m_meant->layers[m_store.handle(slot)] = layer;
    patched(slot, patch);
}

void DwgWriter::setDictionary(quint32 slot, const DictionaryState& before,
                              const std::vector<KeyedHandle>& entries, const GroupList& xData)
{
    DwgRecord record = m_source.reader();
    DwgHead head;
    if (!open(record, head, slot))
        return;
    const FreeRecords::Dictionary fields = FreeRecords::dictionary(record);
    const KeptBits::Entries now = KeptBits::entries(record, m_source.format(), fields,
                                                    KeptBits::inKeyOrder(entries, fields.entries));
    RecordPatch patch(record);
    if (!(before.xData == xData)) {
        m_meant->xData[head.handle] = xData;
        setXData(record, head, divided(xData), patch);
    }
    patch.replace(Stream::Data, fields.count, number(entries.size()));
    patch.replace(Stream::Text, fields.keys, now.keys);
    patch.replace(Stream::Handles, fields.references, now.references);
    m_meant->entries[m_store.handle(slot)] = now.entries;
    patched(slot, patch);
}

void DwgWriter::recordRemoved(quint32 slot)
{
    const quint64 handle = m_store.handle(slot);
    m_meant->removed.insert(handle);
    m_meant->slotOf[handle] = slot;
    if (m_store.type(slot) == RecordType::Layer)
        m_shrunkTables.insert(OdDbTableKind::Layer);
    if (m_store.has(slot, ObjectStore::kEntity) && m_store.owner(slot) != ObjectStore::kNone)
        m_changedBlocks.insert(m_store.owner(slot));
}

void DwgWriter::report(DrawingPieces& pieces) const
{
    SaveReport& report = pieces.report;
    const auto isLayer = [this](quint64 handle) {
        const auto slot = m_meant->slotOf.find(handle);
        return slot != m_meant->slotOf.end() && m_store.type(slot->second) == RecordType::Layer;
    };
    quint64 inFile = 0;
    quint64 changed = m_meant->removed.size();
    for (const auto& [handle, record] : m_meant->records) {
        if (m_meant->removed.contains(handle))
            continue;
        ++changed;
        report.layerRecordsChanged += isLayer(handle) ? 1 : 0;
        inFile += m_store.isNewHandle(handle) ? 0 : 1;
    }
    for (const quint64 handle : m_meant->removed)
        report.layerRecordsChanged += isLayer(handle) ? 1 : 0;
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
    return m_format.version < DrawingVersion::V2000
        ? QCoreApplication::translate("DwgWriter",
                                      "Drawings of the versions R13 and R14 can be opened, but "
                                      "edits of them cannot be saved.")
        : QString();
}

DrawingPieces DwgObjectSource::write(const OdDbDatabase& drawing) const
{
    if (!m_faults.isEmpty() || (!refusal().isEmpty() && isEdited(drawing)))
        throw OdError_FileAccess(OdResult::CantWriteFile, readOnlySentence());
    return DwgWriter(*this, drawing).run();
}
