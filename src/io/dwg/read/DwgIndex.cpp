#include "io/dwg/read/DwgIndex.h"

#include "database/values/OdError.h"
#include "io/dwg/container/FlatFile.h"
#include "io/dwg/records/DwgTypes.h"
#include "io/dwg/records/FreeRecords.h"
#include "io/dwg/records/SheetRecords.h"
#include "io/dwg/sections/ObjectMap.h"

#include <QCoreApplication>

#include <algorithm>
#include <thread>
#include <unordered_set>

namespace {

constexpr int kMostFaults = 10;
/// Records between two looks at the progress.
constexpr std::size_t kSlice = 50000;
/// Fewer are not worth a second thread.
constexpr std::size_t kWorthTwoThreads = 4000;

QString tr(const char* text)
{
    return QCoreApplication::translate("DwgIndex", text);
}

bool ownsParts(quint16 type)
{
    return type == DwgType::Insert || type == DwgType::MInsert || type == DwgType::Polyline2d
        || type == DwgType::Polyline3d || type == DwgType::PolylineFaces
        || type == DwgType::PolylineMesh;
}

bool isControl(quint16 type)
{
    return type >= DwgType::BlockControl && type <= DwgType::DimStyleControl && type % 2 == 0;
}

/// References that the record of a table has behind those that it counts.
int extrasOf(quint16 type)
{
    return type == DwgType::BlockControl || type == DwgType::LtypeControl ? 2 : 0;
}

/// Reads the values of the open record, behind its head, where an edit relies on their places.
void readValues(DwgRecord& record)
{
    const quint16 type = record.type();
    if (type == DwgType::Layer)
        TableRecords::layer(record);
    else if (type == DwgType::Dictionary)
        FreeRecords::dictionary(record);
    else if (type == DwgType::Xrecord)
        FreeRecords::xrecordGroups(record);
    else if (type == DwgType::Viewport)
        SheetRecords::viewport(record);
    else if (isControl(type))
        TableRecords::listed(record, extrasOf(type));
}

/// Offsets that several entries have, ascending.
std::vector<quint64> repeatedOffsets(const std::vector<ObjectMap::Entry>& entries)
{
    const auto follows = [](const auto& a, const auto& b) { return a.offset >= b.offset; };
    // Most files have their records in the order of the handles.
    if (std::adjacent_find(entries.begin(), entries.end(), follows) == entries.end())
        return {};
    std::vector<quint64> offsets;
    offsets.reserve(entries.size());
    for (const ObjectMap::Entry& entry : entries)
        offsets.push_back(entry.offset);
    std::sort(offsets.begin(), offsets.end());
    std::vector<quint64> repeated;
    for (std::size_t i = 1; i < offsets.size(); ++i) {
        if (offsets[i] == offsets[i - 1])
            repeated.push_back(offsets[i]);
    }
    return repeated;
}

bool isPart(quint16 type)
{
    return type == DwgType::Attrib || type == DwgType::SeqEnd
        || (type >= DwgType::Vertex2d && type <= DwgType::VertexFace);
}

} // namespace

DwgIndex::DwgIndex(const DwgFile& file, const DwgFormat& format, const DwgClasses& classes)
    : m_file(file)
    , m_format(format)
    , m_classes(classes)
    , m_objects(file.section(DwgSection::Objects))
    , m_faults(file.faults())
{ }

void DwgIndex::run(const IoProgress& progress)
{
    if (!m_classes.isSound())
        addFault(tr("The section of classes is damaged."));
    readMap();
    requireOneRun();
    scanAll(progress);
    readBlocks();
    readTables();
    orderRecords();
}

void DwgIndex::addFault(const QString& sentence)
{
    if (m_faults.size() < kMostFaults)
        m_faults << sentence;
}

void DwgIndex::requireOneRun()
{
    const auto* const flat = dynamic_cast<const FlatFile*>(&m_file);
    if (!flat || m_records.empty())
        return;
    const auto [first, last] =
        std::minmax_element(m_records.begin(), m_records.end(),
                            [](const Record& a, const Record& b) { return a.offset < b.offset; });
    const auto isAmong = [first = first->offset, last = last->offset](quint64 begin, quint64 end) {
        return begin <= last && end > first;
    };
    for (const FlatFile::Locator& locator : flat->locators()) {
        if (locator.size > 0 && isAmong(locator.offset, quint64(locator.offset) + locator.size))
            addFault(tr("The section %1 stands among the records.").arg(locator.number));
    }
    if (const quint64 preview = flat->previewAt(); isAmong(preview, preview + 1))
        addFault(tr("The preview stands among the records."));
}

void DwgIndex::readMap()
{
    const ObjectMap map = ObjectMap::read(m_file.section(DwgSection::ObjectMap));
    if (map.entries.empty())
        throw OdError_InvalidDrawing(m_file.image().name(), 0,
                                     tr("the object map is missing or empty."));
    if (!map.complete)
        addFault(tr("The object map breaks off."));
    if (!map.sumsHold)
        addFault(tr("A check sum of the object map is wrong."));
    // Handles are given out in a row; a gap of a few times as many still is an array.
    constexpr quint64 kGaps = 8;
    const quint64 highest =
        std::max_element(map.entries.begin(), map.entries.end(), [](const auto& a, const auto& b) {
            return a.handle < b.handle;
        })->handle;
    m_handles = HandleIndex(std::min<quint64>(highest, map.entries.size() * kGaps) + 1);
    m_records.reserve(map.entries.size());
    const std::vector<quint64> repeated = repeatedOffsets(map.entries);
    std::unordered_set<quint64> taken; // of these
    for (const ObjectMap::Entry& entry : map.entries) {
        // Each would be read, and taken apart, as often as it is named.
        if (std::binary_search(repeated.begin(), repeated.end(), entry.offset)
            && !taken.insert(entry.offset).second)
        {
            addFault(tr("Two handles of the object map name one record."));
            continue;
        }
        const auto number = static_cast<quint32>(m_records.size());
        if (entry.handle == 0 || !m_handles.add(entry.handle, number)) {
            addFault(tr("Handle %1 stands twice in the object map.")
                         .arg(QString::number(entry.handle, 16).toUpper()));
            continue;
        }
        Record record;
        record.handle = entry.handle;
        record.offset = entry.offset;
        m_records.push_back(record);
    }
}

void DwgIndex::scan(std::size_t first, std::size_t end)
{
    DwgRecord reader(m_format, m_objects);
    DwgHead head;
    DwgEntityHead entity;
    for (std::size_t i = first; i < end; ++i) {
        Record& record = m_records[i];
        if (!reader.open(record.offset))
            continue;
        record.type = reader.type();
        record.entity = m_classes.isEntity(record.type);
        record.part = isPart(record.type);
        if (record.entity) {
            reader.readHead(head, entity);
            record.layer = entity.layer;
            record.next = entity.next;
            record.space = static_cast<quint8>(entity.space);
        } else {
            reader.readHead(head);
        }
        record.owner = head.owner;
        readValues(reader);
        record.readable = !reader.hasFailed() && head.handle == record.handle;
        record.sound = record.readable && reader.sumHolds();
    }
}

void DwgIndex::scanAll(const IoProgress& progress)
{
    const quint64 bytes = m_file.image().size();
    for (std::size_t first = 0; first < m_records.size(); first += kSlice) {
        if (progress && !progress(bytes * first / m_records.size(), bytes))
            throw OdError(OdResult::Cancelled, tr("Cancelled."));
        const std::size_t end = std::min(first + kSlice, m_records.size());
        if (end - first < kWorthTwoThreads) {
            scan(first, end);
            continue;
        }
        const std::size_t middle = first + (end - first) / 2;
        std::jthread other([this, middle, end] { scan(middle, end); });
        scan(first, middle);
    }
    for (const Record& record : m_records) {
        if (!record.sound)
            addFault(tr("The record with the handle %1 is damaged.")
                         .arg(QString::number(record.handle, 16).toUpper()));
    }
}

void DwgIndex::readBlocks()
{
    DwgRecord reader(m_format, m_objects);
    DwgHead head;
    for (quint32 i = 0; i < m_records.size(); ++i) {
        if (m_records[i].type != DwgType::BlockHeader || !m_records[i].readable
            || !reader.open(m_records[i].offset))
            continue;
        reader.readHead(head);
        m_blocks.push_back({i, TableRecords::block(reader)});
        if (reader.hasFailed())
            addFault(tr("The block with the handle %1 is damaged.")
                         .arg(QString::number(m_records[i].handle, 16).toUpper()));
    }
}

void DwgIndex::readTables()
{
    DwgRecord reader(m_format, m_objects);
    DwgHead head;
    for (quint32 i = 0; i < m_records.size(); ++i) {
        const quint16 type = m_records[i].type;
        if (!isControl(type) || !m_records[i].readable || !reader.open(m_records[i].offset))
            continue;
        reader.readHead(head);
        const int extras = extrasOf(type);
        std::vector<quint64> handles = TableRecords::listed(reader, extras).handles;
        // Model and paper space, by layer and by block stand behind the others; DXF has them ahead.
        if (handles.size() >= static_cast<std::size_t>(extras))
            std::rotate(handles.begin(), handles.end() - extras, handles.end());
        Table table{i, {}};
        for (const quint64 handle : handles) {
            const quint32 record = find(handle);
            // Each table's records have the type after its own.
            if (record != HandleIndex::kNone && m_records[record].type == type + 1)
                table.records.push_back(record);
        }
        m_tables.push_back(std::move(table));
    }
}

const DwgIndex::Table* DwgIndex::table(quint64 handle) const
{
    const quint32 control = find(handle);
    const auto found = std::find_if(m_tables.begin(), m_tables.end(),
                                    [&](const Table& t) { return t.control == control; });
    return found == m_tables.end() ? nullptr : &*found;
}

std::vector<quint32> DwgIndex::owned(const OwnedEntities& entities)
{
    std::vector<quint32> found;
    for (const quint64 handle : entities.listed) {
        if (const quint32 record = find(handle); record != HandleIndex::kNone)
            found.push_back(record);
    }
    // A chain ends where it comes back to itself, or to what another one has.
    ++m_chains;
    quint32 at = entities.first == 0 ? HandleIndex::kNone : find(entities.first);
    while (at != HandleIndex::kNone && !m_taken[at] && m_chainOf[at] != m_chains) {
        m_chainOf[at] = m_chains;
        found.push_back(at);
        if (m_records[at].handle == entities.last || m_records[at].next == 0)
            break;
        at = find(m_records[at].next);
    }
    return found;
}

void DwgIndex::take(quint32 record)
{
    if (record == HandleIndex::kNone || m_taken[record])
        return;
    m_taken[record] = true;
    m_order.push_back(record);
}

void DwgIndex::takeWithParts(quint32 record)
{
    if (record == HandleIndex::kNone || m_taken[record] || !m_records[record].entity)
        return;
    take(record);
    if (!ownsParts(m_records[record].type))
        return;
    DwgRecord reader(m_format, m_objects);
    DwgHead head;
    DwgEntityHead entity;
    if (!reader.open(m_records[record].offset))
        return;
    reader.readHead(head, entity);
    const OwnedEntities parts = OwnedEntities::read(reader);
    for (const quint32 part : owned(parts)) {
        if (m_records[part].part)
            take(part);
    }
    if (const quint32 end = find(parts.end); end != HandleIndex::kNone && m_records[end].part)
        take(end);
}

void DwgIndex::orderBlock(const BlockRecord& block)
{
    const OwnedEntities& entities = block.block.entities;
    takeWithParts(find(entities.begin));
    for (const quint32 record : owned(entities)) {
        if (!m_records[record].part)
            takeWithParts(record);
    }
    takeWithParts(find(entities.end));
}

void DwgIndex::orderRecords()
{
    m_taken.assign(m_records.size(), false);
    m_chainOf.assign(m_records.size(), 0);
    m_order.reserve(m_records.size());
    for (const Table& table : m_tables) {
        for (const quint32 record : table.records)
            take(record);
    }
    for (quint32 i = 0; i < m_records.size(); ++i) {
        if (!m_records[i].entity)
            take(i);
    }
    for (const BlockRecord& block : m_blocks)
        orderBlock(block);
    // Entities that no block lists: drawn with nothing, but kept and counted.
    for (quint32 i = 0; i < m_records.size(); ++i) {
        if (!m_records[i].part)
            takeWithParts(i);
    }
    for (quint32 i = 0; i < m_records.size(); ++i)
        take(i);
    m_taken.clear();
}
