#include "io/dwg/write/DwgVerifier.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/read/HandleIndex.h"
#include "io/dwg/records/TableRecords.h"
#include "io/dwg/sections/ObjectMap.h"
#include "io/files/WrittenBytes.h"

#include <QCoreApplication>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("DwgVerifier", text);
}

bool isAsMeant(const TableRecords::Layer& layer, const LayerState& meant)
{
    const auto handle = [](OdDbObjectId id) { return id.isNull() ? 0 : id.getHandle().value(); };
    return layer.head.name == meant.name && layer.frozen == meant.frozen && layer.off == meant.off
        && layer.locked == meant.locked && layer.plottable == meant.plottable
        && layer.frozenInNewViewports == meant.frozenInNewViewports
        && (handle(meant.linetype) == 0 || layer.linetype == handle(meant.linetype));
}

} // namespace

DwgVerifier::DwgVerifier(const DwgObjectSource& source, const OdDbDatabase& database,
                         const DrawingPieces& pieces, const WrittenBytes& written)
    : m_source(source)
    , m_database(database)
    , m_pieces(pieces)
    , m_written(written)
    , m_meant(*static_cast<const DwgMeant*>(pieces.meant.get()))
{ }

void DwgVerifier::fail(quint64 handle)
{
    throw OdError_FileAccess(OdResult::CantWriteFile,
                             tr("What was written does not say what the drawing says: the record "
                                "with the handle %1 differs. The file is as it was.")
                                 .arg(QString::number(handle, 16).toUpper()));
}

void DwgVerifier::run() const
{
    // A file that is what it was needs no second look.
    if (m_meant.records.empty() && m_meant.removed.empty() && m_pieces.report.settingsChanged == 0)
        return;
    const auto image = FileImage::copyOf(m_written.view(0, m_written.size()).toByteArray(),
                                         m_source.image().name());
    const std::unique_ptr<DwgFile> file = DwgFile::open(image);
    if (!file->faults().isEmpty())
        throw OdError_FileAccess(
            OdResult::CantWriteFile,
            tr("What was written cannot be read back: %1 The file is as it was.")
                .arg(file->faults().join(QLatin1Char(' '))));
    compareRecords(*file);
    compareLayers(*file);
}

void DwgVerifier::compareRecords(const DwgFile& file) const
{
    const ObjectStore& store = m_database.store();
    const ObjectMap map = ObjectMap::read(file.section(DwgSection::ObjectMap));
    std::size_t expected = store.fileRecords() - m_meant.removed.size();
    DwgRecord before = m_source.reader();
    DwgRecord after(m_source.format(), file.section(DwgSection::Objects));
    for (const ObjectMap::Entry& entry : map.entries) {
        if (!after.open(entry.offset) || m_meant.removed.contains(entry.handle))
            fail(entry.handle);
        const auto changed = m_meant.records.find(entry.handle);
        const quint32 slot = store.find(entry.handle);
        const bool isInFile = slot < store.fileRecords();
        if (changed != m_meant.records.end()) {
            expected += isInFile ? 0 : 1;
            if (after.bytes() != changed->second)
                fail(entry.handle);
        } else if (!isInFile || !m_source.open(before, slot) || before.bytes() != after.bytes()) {
            fail(entry.handle);
        }
    }
    if (!map.complete || !map.sumsHold || map.entries.size() != expected)
        fail(0);
}

void DwgVerifier::compareLayers(const DwgFile& file) const
{
    const ObjectStore& store = m_database.store();
    const ObjectMap map = ObjectMap::read(file.section(DwgSection::ObjectMap));
    DwgRecord record(m_source.format(), file.section(DwgSection::Objects));
    DwgHead head;
    for (const ObjectMap::Entry& entry : map.entries) {
        const auto slot = m_meant.slotOf.find(entry.handle);
        if (slot == m_meant.slotOf.end() || store.type(slot->second) != RecordType::Layer)
            continue;
        const auto layer = m_database.idOfSlot(slot->second).openObject<OdDbLayerTableRecord>();
        if (!layer || !record.open(entry.offset))
            fail(entry.handle);
        record.readHead(head);
        if (!isAsMeant(TableRecords::layer(record), layer->state()) || record.hasFailed())
            fail(entry.handle);
    }
}

void DwgObjectSource::verify(const OdDbDatabase& drawing, const DrawingPieces& pieces,
                             const WrittenBytes& written) const
{
    DwgVerifier(*this, drawing, pieces, written).run();
}
