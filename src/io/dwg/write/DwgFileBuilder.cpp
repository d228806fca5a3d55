#include "io/dwg/write/DwgFileBuilder.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"
#include "io/dwg/container/FlatFile.h"
#include "io/dwg/container/PageForm.h"
#include "io/dwg/container/PagedFile.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/write/FlatFileWriter.h"
#include "io/dwg/write/HeaderPatch.h"
#include "io/dwg/write/PagedFileWriter.h"

#include <QCoreApplication>

#include <algorithm>
#include <set>

namespace {

constexpr const char* kAuxHeader = "AcDb:AuxHeader";

QString tr(const char* text)
{
    return QCoreApplication::translate("DwgFileBuilder", text);
}

} // namespace

DwgFileBuilder::DwgFileBuilder(const DwgObjectSource& source, const OdDbDatabase& database,
                               const DwgMeant& meant)
    : m_source(source)
    , m_database(database)
    , m_meant(meant)
{ }

std::vector<std::pair<quint64, quint32>> DwgFileBuilder::recordsInOrder() const
{
    const quint32 count = m_database.store().fileRecords();
    std::vector<std::pair<quint64, quint32>> records;
    records.reserve(count);
    for (quint32 slot = 0; slot < count; ++slot)
        records.emplace_back(m_source.offsetOf(slot), slot);
    std::sort(records.begin(), records.end());
    return records;
}

void DwgFileBuilder::appendRecords(QByteArray& out, quint64 base, quint64 end)
{
    const ObjectStore& store = m_database.store();
    const QByteArrayView objects = m_source.file().section(DwgSection::Objects);
    const auto records = recordsInOrder();
    DwgRecord reader = m_source.reader();
    std::set<quint64> inFile;
    quint64 at = records.empty() ? 0 : records.front().first;
    for (const auto& [offset, slot] : records) {
        const quint64 handle = store.handle(slot);
        // What stands between two records is kept, whatever it is.
        if (offset > at)
            out += objects.sliced(static_cast<qsizetype>(at), static_cast<qsizetype>(offset - at));
        if (!reader.open(offset))
            continue;
        at = std::max(at, offset + static_cast<quint64>(reader.bytes().size()));
        if (m_meant.removed.contains(handle))
            continue;
        m_places.push_back({handle, base + static_cast<quint64>(out.size())});
        const auto changed = m_meant.records.find(handle);
        if (changed == m_meant.records.end()) {
            out += reader.bytes();
        } else {
            out += changed->second;
            inFile.insert(handle);
        }
    }
    if (end > at)
        out += objects.sliced(static_cast<qsizetype>(at), static_cast<qsizetype>(end - at));
    for (const auto& [handle, record] : m_meant.records) {
        if (inFile.contains(handle) || m_meant.removed.contains(handle))
            continue;
        m_places.push_back({handle, base + static_cast<quint64>(out.size())});
        out += record;
    }
    std::sort(m_places.begin(), m_places.end(),
              [](const auto& a, const auto& b) { return a.handle < b.handle; });
}

QByteArray DwgFileBuilder::headerSection(quint64 seed)
{
    HeaderPatch patch(m_source);
    const HeaderVariables& header = m_database.header();
    const auto count = [&](bool done, const QString& name) {
        if (done)
            ++m_settingsChanged;
        else
            m_notKept << tr("The setting %1 cannot be changed in DWG drawings.").arg(name.mid(1));
    };
    for (const HeaderVariables::Variable& variable : header.all()) {
        if (variable.value != variable.loadedValue && header.find(variable.name) == &variable)
            count(patch.setValue(variable.name, variable.value), variable.name);
    }
    const CurrentSettings& loaded = m_database.loadedCurrent();
    const CurrentSettings& current = m_database.current();
    if (current.layer != loaded.layer)
        count(patch.setReference(QStringLiteral("$CLAYER"), current.layer.getHandle().value()),
              QStringLiteral("$CLAYER"));
    if (current.modelSpace != loaded.modelSpace)
        count(patch.setValue(QStringLiteral("$TILEMODE"),
                             current.modelSpace ? QStringLiteral("1") : QStringLiteral("0")),
              QStringLiteral("$TILEMODE"));
    if (seed != m_oldSeed)
        patch.setReference(QStringLiteral("$HANDSEED"), seed);
    return patch.isEmpty() ? QByteArray() : patch.result();
}

QByteArray DwgFileBuilder::auxHeader(QByteArray section, quint64 seed) const
{
    // Behind three marks, versions, counts and two dates; three numbers take two bytes more in
    // 2018.
    constexpr qsizetype kSeedAt = 79;
    constexpr qsizetype kSeedAt2018 = 85;
    const qsizetype at = m_source.format().version >= DrawingVersion::V2018 ? kSeedAt2018 : kSeedAt;
    if (section.size() >= at + 4
        && PageForm::word<quint32>(section.constData() + at) == static_cast<quint32>(m_oldSeed))
        PageForm::put(section, at, static_cast<quint32>(seed));
    return section;
}

DrawingPieces DwgFileBuilder::build(quint64 highestNew)
{
    m_oldSeed =
        HeaderSection(m_source.file(), m_source.format()).reference(QStringLiteral("$HANDSEED"));
    const quint64 seed = std::max(m_oldSeed, highestNew == 0 ? 0 : highestNew + 1);
    // The containers are read anew: what they hold is not kept while the drawing is open.
    const std::unique_ptr<DwgFile> file = DwgFile::open(m_source.sharedImage());
    if (auto* paged = dynamic_cast<PagedFile*>(file.get()))
        return buildPaged(*paged, seed);
    return buildFlat(static_cast<const FlatFile&>(*file), seed);
}

DrawingPieces DwgFileBuilder::buildPaged(PagedFile& file, quint64 seed)
{
    const QByteArray header = headerSection(seed);
    PagedFileWriter writer(file);
    if (!header.isEmpty())
        writer.replace("AcDb:Header", header);
    if (seed != m_oldSeed) {
        if (const PagedFile::Section* aux = file.find(kAuxHeader))
            writer.replace(kAuxHeader, auxHeader(file.unpacked(*aux), seed));
    }
    if (!m_meant.records.empty() || !m_meant.removed.empty()) {
        const QByteArrayView old = file.section(DwgSection::Objects);
        const auto records = recordsInOrder();
        const qsizetype first =
            records.empty() ? old.size() : static_cast<qsizetype>(records.front().first);
        QByteArray objects = old.first(first).toByteArray();
        appendRecords(objects, 0, static_cast<quint64>(old.size()));
        writer.replace("AcDb:AcDbObjects", objects);
        writer.replace("AcDb:Handles", ObjectMap::spelled(m_places));
    }
    if (writer.isEmpty()) {
        DrawingPieces pieces;
        pieces.parts.push_back(m_source.image().view());
        return pieces;
    }
    return writer.result();
}

DrawingPieces DwgFileBuilder::buildFlat(const FlatFile& file, quint64 seed)
{
    const QByteArray header = headerSection(seed);
    FlatFileWriter writer(file);
    if (!header.isEmpty())
        writer.replace(static_cast<int>(DwgSection::Header), header);
    if (seed != m_oldSeed) {
        writer.setSeed(seed);
        writer.replace(FlatFile::kAuxHeader,
                       auxHeader(file.locatedBytes(FlatFile::kAuxHeader).toByteArray(), seed));
    }
    if (writer.isEmpty() && m_meant.records.empty() && m_meant.removed.empty()) {
        DrawingPieces pieces;
        pieces.parts.push_back(m_source.image().view());
        return pieces;
    }
    const auto records = recordsInOrder();
    quint64 begin = records.empty() ? 0 : records.front().first;
    quint64 end = begin;
    if (!records.empty()) {
        DwgRecord last = m_source.reader();
        if (last.open(records.back().first))
            end = records.back().first + static_cast<quint64>(last.bytes().size());
    }
    QByteArray objects;
    appendRecords(objects, writer.movedObjects(begin), end);
    writer.replaceObjects(begin, end, objects);
    writer.replace(static_cast<int>(DwgSection::ObjectMap), ObjectMap::spelled(m_places));
    return writer.result();
}
