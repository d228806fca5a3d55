#include "io/dwg/support/DwgParts.h"

#include "io/dwg/records/FreeRecords.h"
#include "io/dwg/records/SheetRecords.h"
#include "io/dwg/records/TableRecords.h"
#include "io/dwg/sections/HeaderSection.h"
#include "io/dwg/sections/ObjectMap.h"

#include <algorithm>

namespace {

QString hexadecimal(quint64 handle)
{
    return QString::number(handle, 16).toUpper();
}

} // namespace

DwgParts::DwgParts(const QByteArray& bytes)
    : m_file(DwgFile::open(FileImage::copyOf(bytes, QStringLiteral("parts.dwg"))))
    , m_format(DwgFormat::of(m_file->version(), m_file->codePage()))
    , m_classes(*m_file, m_format)
    , m_faults(m_file->faults())
{
    readRecords();
    checkOverlaps();
    const HeaderSection header(*m_file, m_format);
    if (!header.isSound())
        m_faults << QStringLiteral("header variables");
    const quint64 seed = header.reference(QStringLiteral("$HANDSEED"));
    if (!m_records.empty() && seed <= m_records.rbegin()->first)
        m_faults << QStringLiteral("handle seed %1, but there is a record %2")
                        .arg(hexadecimal(seed), hexadecimal(m_records.rbegin()->first));
}

void DwgParts::readRecords()
{
    const ObjectMap map = ObjectMap::read(m_file->section(DwgSection::ObjectMap));
    if (!map.complete || !map.sumsHold || map.entries.empty())
        m_faults << QStringLiteral("object map");
    DwgRecord reader(m_format, m_file->section(DwgSection::Objects));
    quint64 last = 0;
    for (const ObjectMap::Entry& entry : map.entries) {
        if (entry.handle <= last)
            m_faults << QStringLiteral("handle %1 out of order").arg(hexadecimal(entry.handle));
        last = entry.handle;
        if (!reader.open(entry.offset) || !reader.sumHolds()) {
            m_faults << QStringLiteral("record %1").arg(hexadecimal(entry.handle));
            continue;
        }
        m_records[entry.handle] = reader.bytes();
        m_types[entry.handle] = m_classes.name(reader.type()).toByteArray();
        DwgHead head;
        DwgEntityHead entity;
        reader.readHead(head, entity, m_classes.isEntity(reader.type()));
        if (reader.hasFailed() || head.handle != entry.handle)
            m_faults << QStringLiteral("head of record %1").arg(hexadecimal(entry.handle));
    }
}

void DwgParts::checkOverlaps()
{
    std::vector<QByteArrayView> inOrder;
    for (const auto& [handle, bytes] : m_records)
        inOrder.push_back(bytes);
    std::sort(inOrder.begin(), inOrder.end(),
              [](QByteArrayView a, QByteArrayView b) { return a.data() < b.data(); });
    for (std::size_t i = 1; i < inOrder.size(); ++i) {
        if (inOrder[i].data() < inOrder[i - 1].data() + inOrder[i - 1].size())
            m_faults << QStringLiteral("two records overlap");
    }
}

std::vector<std::pair<const char*, quint64>> DwgParts::references(quint64 handle) const
{
    DwgRecord record(m_format, m_records.at(handle));
    record.open(0);
    DwgHead head;
    DwgEntityHead entity;
    const bool isEntity = m_classes.isEntity(record.type());
    record.readHead(head, entity, isEntity);
    std::vector<std::pair<const char*, quint64>> found = {{"owner", head.owner},
                                                          {"dictionary", head.extension}};
    for (const quint64 reactor : head.reactors)
        found.emplace_back("reactor", reactor);
    if (isEntity) {
        found.emplace_back("layer", entity.layer);
        found.emplace_back("linetype", entity.linetype);
    }
    const QByteArray type = typeOf(handle);
    if (type == "DICTIONARY") {
        for (const KeyedHandle& entry : FreeRecords::dictionary(record).entries)
            found.emplace_back("entry", entry.handle);
    } else if (type == "VIEWPORT") {
        for (const quint64 layer : SheetRecords::viewport(record).frozenLayers)
            found.emplace_back("frozen", layer);
    } else if (type == "LAYOUT") {
        const SheetRecords::Layout layout = SheetRecords::layout(record);
        found.emplace_back("viewport", layout.lastActiveViewport);
        for (const quint64 viewport : layout.viewports)
            found.emplace_back("viewport", viewport);
    } else if (type == "VX") {
        TableRecords::name(record);
        record.reference(); // block of the external reference
        found.emplace_back("viewport", record.reference());
    } else if (type == "SORTENTSTABLE") {
        for (const quint64 sorted : FreeRecords::drawOrder(record).entities)
            found.emplace_back("sorted", sorted);
    } else if (type == "GROUP") {
        for (const quint64 member : FreeRecords::group(record).members)
            found.emplace_back("member", member);
    } else if (type == "BLOCK_RECORD") {
        for (const quint64 use : TableRecords::block(record).uses)
            found.emplace_back("use", use);
    } else if (type == "TABLE") {
        for (const quint64 listed : TableRecords::listed(record, 0).handles)
            found.emplace_back("listed", listed);
    }
    const auto noNames = [](quint64) { return QString(); };
    for (const FreeRecords::XDataBlock& block : FreeRecords::xDataBlocks(record, head, noNames))
        found.emplace_back("application", block.application);
    return found;
}

QStringList DwgParts::dangling() const
{
    QStringList found;
    for (const auto& [handle, bytes] : m_records) {
        for (const auto& [what, to] : references(handle)) {
            if (to != 0 && !m_records.contains(to))
                found << QStringLiteral("%1 %2: %3 %4")
                             .arg(QString::fromLatin1(typeOf(handle)), hexadecimal(handle),
                                  QLatin1String(what), hexadecimal(to));
        }
    }
    return found;
}

QByteArray DwgParts::typeOf(quint64 handle) const
{
    const auto found = m_types.find(handle);
    return found == m_types.end() ? QByteArray() : found->second;
}

QStringList DwgParts::different(const DwgParts& before, const DwgParts& after)
{
    QStringList found;
    const auto name = [](const DwgParts& parts, quint64 handle) {
        return QString::fromLatin1(parts.typeOf(handle)) + QLatin1Char(' ') + hexadecimal(handle);
    };
    for (const auto& [handle, bytes] : before.m_records) {
        const auto there = after.m_records.find(handle);
        if (there == after.m_records.end() || there->second != bytes)
            found << name(before, handle);
    }
    for (const auto& [handle, bytes] : after.m_records) {
        if (!before.m_records.contains(handle))
            found << name(after, handle);
    }
    return found;
}
