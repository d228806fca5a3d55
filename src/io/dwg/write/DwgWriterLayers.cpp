#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbXrecord.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/write/DwgWriter.h"
#include "io/dwg/write/KeptBits.h"

#include <algorithm>

using Stream = RecordPatch::Stream;

void DwgWriter::editLayer(quint32 slot)
{
    const auto layer = m_database.idOfSlot(slot).safeOpenObject<OdDbLayerTableRecord>();
    const LayerState before = m_source.readLayer(slot);
    const LayerState& after = layer->state();
    DwgRecord record = m_source.reader();
    DwgHead head;
    if (before == after || !open(record, head, slot))
        return;
    const TableRecords::Layer fields = TableRecords::layer(record);
    RecordPatch patch(record);
    if (before.name != after.name)
        patch.replace(Stream::Text, fields.head.at, Spelling::text(m_source.format(), after.name));
    record.data.seek(fields.flagsAt.begin);
    const int flags = record.data.bitShort();
    const int flagsNow = NewDwgRecords::changedLayerFlags(flags, before, after);
    if (flagsNow != flags) {
        BitWriter bits;
        bits.bitShort(static_cast<qint16>(flagsNow));
        patch.replace(Stream::Data, fields.flagsAt, bits);
    }
    if (before.color != after.color) {
        tellLostColor(after);
        const Spelling::Color color = Spelling::color(m_source.format(), after.color);
        BitWriter data = color.data;
        if (hasTextStream(record.version()))
            patch.replace(Stream::Text, fields.colorNamesAt, color.names);
        else
            data.append(color.names);
        patch.replace(Stream::Data, fields.colorAt, data);
    }
    const auto link = [&](BitSpan at, OdDbObjectId target) {
        BitWriter bits;
        bits.handle(DwgReference::HardPointer,
                    target.isNull() ? 0 : used(target.getHandle().value()));
        patch.replace(Stream::Handles, at, bits);
    };
    if (before.linetype != after.linetype)
        link(fields.linetypeAt, after.linetype);
    if (before.plotStyle != after.plotStyle)
        link(fields.plotStyleAt, after.plotStyle);
    editLayerXData(record, head, before, after, patch);
    patched(slot, patch);
    editExtras(slot, before, after);
}

void DwgWriter::tellLostColor(const LayerState& layer)
{
    const bool isIndex =
        layer.color.colorMethod() != OdCmColor::kByColor && layer.color.bookName().isEmpty();
    if (!isIndex && m_source.format().version < DrawingVersion::V2004)
        tellNotKept(tr("The drawing's version cannot hold the true color of layer \"%1\".")
                        .arg(layer.name));
}

void DwgWriter::makeXrecord(const KeyedHandle& entry, quint64 dictionary, const GroupList& groups)
{
    addXrecord(ObjectStore::kNone, {entry.handle, dictionary, {dictionary}}, {groups, {}});
}

void DwgWriter::makeDictionary(quint64 handle, quint64 owner,
                               const std::vector<KeyedHandle>& entries)
{
    const std::vector<KeyedHandle> ordered = KeptBits::inKeyOrder(entries, {});
    m_meant->entries[handle] = ordered;
    put(ObjectStore::kNone, handle, m_newRecords.dictionary({handle, owner}, true, ordered));
}

void DwgWriter::addLayer(quint32 slot, NewDwgRecords::Head head)
{
    const auto layer = m_database.idOfSlot(slot).safeOpenObject<OdDbLayerTableRecord>();
    const LayerState& state = layer->state();
    editExtras(slot, LayerState(), state);
    tellLostColor(state);
    head.extension = extensionOf(slot);
    head.xData = layerXData(head.handle, state);
    DwgRecord record = m_source.reader();
    DwgHead zeroHead;
    TableRecords::Layer zero;
    if (open(record, zeroHead, m_database.getLayerZeroId().slot()))
        zero = TableRecords::layer(record);
    const auto handle = [this](OdDbObjectId id) {
        return id.isNull() ? 0 : used(id.getHandle().value());
    };
    put(slot, head.handle,
        m_newRecords.layer(head, state, {handle(state.linetype), handle(state.plotStyle)}, zero));
    m_addedToTables[OdDbTableKind::Layer].push_back(head.handle);
}
