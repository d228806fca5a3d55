#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/records/FreeRecords.h"
#include "io/dwg/records/SheetRecords.h"
#include "io/dwg/write/DwgWriter.h"
#include "io/dwg/write/KeptBits.h"

#include <algorithm>

using Stream = RecordPatch::Stream;

namespace {

BitWriter noReference()
{
    BitWriter none;
    none.handle(DwgReference::SoftPointer, 0);
    return none;
}

} // namespace

void DwgWriter::clearReferences()
{
    const auto anyOf = [this](auto isOfKind) {
        return std::any_of(m_removed.begin(), m_removed.end(), isOfKind);
    };
    if (anyOf([this](quint32 slot) { return m_store.type(slot) == RecordType::Viewport; })) {
        editRecords("LAYOUT", &DwgWriter::clearLayout);
        editRecords("VX", &DwgWriter::clearViewportEntry);
    }
    if (anyOf([this](quint32 slot) { return m_store.type(slot) == RecordType::Insert; }))
        editRecords("BLOCK_RECORD", &DwgWriter::clearUsesOfBlock);
    if (anyOf([this](quint32 slot) { return m_store.has(slot, ObjectStore::kEntity); })) {
        editRecords("GROUP", &DwgWriter::clearGroup);
        editRecords("SORTENTSTABLE", &DwgWriter::clearDrawOrder);
        clearReactors();
    }
}

void DwgWriter::clearReactors()
{
    DwgHead head;
    for (quint32 slot = 0; slot < m_store.fileRecords(); ++slot) {
        DwgRecord record = m_source.reader();
        if (isGone(m_store.handle(slot)) || !open(record, head, slot))
            continue;
        RecordPatch patch(record);
        const bool changes = !head.reactors.empty()
            && clearList(record, head.reactors, head.reactorCount, head.reactorsAt, patch);
        if (changes && !record.hasFailed())
            patched(slot, patch);
    }
}

bool DwgWriter::isGone(quint64 handle) const
{
    return m_meant->removed.contains(handle);
}

void DwgWriter::editRecords(QByteArrayView type, EditOfRecord edit)
{
    const RecordType wanted = m_store.typeByName(type);
    for (quint32 slot = 0; slot < m_store.fileRecords(); ++slot) {
        if (m_store.type(slot) != wanted || isGone(m_store.handle(slot)))
            continue;
        DwgRecord record = m_source.reader();
        DwgHead head;
        if (!open(record, head, slot))
            continue;
        RecordPatch patch(record);
        (this->*edit)(record, patch);
        if (record.hasFailed())
            tellNotKept(tr("The record with the handle %1 may still name what was erased.")
                            .arg(QString::number(m_store.handle(slot), 16).toUpper()));
        else
            patched(slot, patch);
    }
}

bool DwgWriter::clearList(DwgRecord& record, std::vector<quint64> handles, BitSpan count,
                          BitSpan at, RecordPatch& patch) const
{
    if (std::erase_if(handles, [this](quint64 handle) { return isGone(handle); }) == 0)
        return false;
    if (count.end > count.begin)
        patch.replace(Stream::Data, count, number(handles.size()));
    patch.replace(Stream::Handles, at,
                  KeptBits::references(record, at, handles, DwgReference::SoftPointer).bits);
    return true;
}

void DwgWriter::clearLayout(DwgRecord& record, RecordPatch& patch) const
{
    const SheetRecords::Layout layout = SheetRecords::layout(record);
    if (isGone(layout.lastActiveViewport))
        patch.replace(Stream::Handles, layout.lastActiveAt, noReference());
    clearList(record, layout.viewports, layout.countAt, layout.viewportsAt, patch);
}

void DwgWriter::clearViewportEntry(DwgRecord& record, RecordPatch& patch) const
{
    TableRecords::name(record);
    record.data.bit();
    record.reference(); // block of the external reference
    const quint64 begin = record.handles.position();
    if (isGone(record.reference()))
        patch.replace(Stream::Handles, {begin, record.handles.position()}, noReference());
}

void DwgWriter::clearUsesOfBlock(DwgRecord& record, RecordPatch& patch) const
{
    const TableRecords::Block block = TableRecords::block(record);
    // A byte for each use, none of them zero, stands where other lists have their count.
    BitWriter bytes;
    for (std::size_t i = 0; i < block.uses.size(); ++i) {
        const quint64 at = block.useBytesAt.begin + 8 * i;
        if (!isGone(block.uses[i]))
            bytes.append(record.body(), at, at + 8);
    }
    if (clearList(record, block.uses, {}, block.usesAt, patch))
        patch.replace(Stream::Data, block.useBytesAt, bytes);
}

void DwgWriter::clearGroup(DwgRecord& record, RecordPatch& patch) const
{
    const FreeRecords::Group group = FreeRecords::group(record);
    clearList(record, group.members, group.count, group.membersAt, patch);
}

void DwgWriter::clearDrawOrder(DwgRecord& record, RecordPatch& patch) const
{
    const FreeRecords::DrawOrder order = FreeRecords::drawOrder(record);
    if (!clearList(record, order.entities, order.count, order.entitiesAt, patch))
        return;
    for (std::size_t i = 0; i < order.entities.size(); ++i) {
        if (isGone(order.entities[i]))
            patch.replace(Stream::Data, order.orderAt[i], BitWriter());
    }
}
