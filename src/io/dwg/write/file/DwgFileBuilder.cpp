#include "io/dwg/write/file/DwgFileBuilder.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"
#include "io/dwg/container/FlatFile.h"
#include "io/dwg/container/PageForm.h"
#include "io/dwg/container/PagedFile.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/sections/TemplateSection.h"
#include "io/dwg/write/file/ClassesPatch.h"
#include "io/dwg/write/file/FlatFileWriter.h"
#include "io/dwg/write/file/HeaderPatch.h"
#include "io/dwg/write/file/PagedFileWriter.h"
#include "io/dwg/write/file/Splice.h"

#include <QCoreApplication>

#include <algorithm>
#include <set>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("DwgFileBuilder", text);
}

constexpr const char* kLinetypeVariable = "$CELTYPE";
constexpr const char* kWeightVariable = "$CELWEIGHT";
constexpr const char* kMeasurement = "$MEASUREMENT";

} // namespace

DwgFileBuilder::DwgFileBuilder(const DwgObjectSource& source, const OdDbDatabase& database,
                               const DwgMeant& meant)
    : m_source(source)
    , m_database(database)
    , m_meant(meant)
{ }

DwgFileBuilder::Records DwgFileBuilder::recordsInOrder() const
{
    const quint32 count = m_database.store().fileRecords();
    Records records;
    records.reserve(count);
    for (quint32 slot = 0; slot < count; ++slot)
        records.emplace_back(m_source.offsetOf(slot), slot);
    // Runs that ascend, which a merge leaves as they are.
    std::stable_sort(records.begin(), records.end());
    return records;
}

void DwgFileBuilder::appendRecords(const Records& records, QByteArray& out, quint64 base,
                                   quint64 end)
{
    const ObjectStore& store = m_database.store();
    const QByteArrayView objects = m_source.file().section(DwgSection::Objects);
    out.reserve(out.size() + objects.size());
    m_places.reserve(records.size() + m_meant.records.size());
    DwgRecord reader = m_source.reader();
    std::set<quint64> inFile;
    Splice splice(objects, records.empty() ? 0 : records.front().first, out);
    for (const auto& [offset, slot] : records) {
        const quint64 handle = store.handle(slot);
        if (!reader.open(offset))
            continue;
        const quint64 behind = offset + static_cast<quint64>(reader.bytes().size());
        if (m_meant.removed.contains(handle)) {
            splice.replace(offset, behind, {});
            continue;
        }
        const auto changed = m_meant.records.find(handle);
        if (changed == m_meant.records.end()) {
            m_places.push_back({handle, base + splice.keep(offset, behind)});
        } else {
            m_places.push_back({handle, base + splice.replace(offset, behind, changed->second)});
            inFile.insert(handle);
        }
    }
    splice.finish(end);
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
    const auto count = [this](bool done, const QString& name) {
        m_settingsChanged += done ? 1 : 0;
        if (!done)
            m_notKept << tr("The setting %1 cannot be changed in DWG drawings.").arg(name.mid(1));
    };
    for (const HeaderVariables::Variable& variable : header.all()) {
        if (variable.value == variable.loadedValue || header.find(variable.name) != &variable)
            continue;
        const std::optional<QString> written = setVariable(patch, variable);
        count(written.has_value(), variable.name);
        if (written)
            m_settings[variable.name] = *written;
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
    const quint64 root = m_database.getNamedObjectsDictionaryId().getHandle().value();
    if (root != 0 && m_database.store().isNewHandle(root) && m_meant.records.contains(root))
        patch.setReference(QStringLiteral("*NAMED"), root, DwgReference::HardOwner);
    if (seed != m_oldSeed)
        patch.setReference(QStringLiteral("$HANDSEED"), seed);
    return patch.isEmpty() ? QByteArray() : patch.result();
}

std::optional<QString> DwgFileBuilder::setVariable(HeaderPatch& patch,
                                                   const HeaderVariables::Variable& variable)
{
    if (variable.name == QLatin1String(kMeasurement)) {
        QByteArray section = m_source.file().section(DwgSection::Template).toByteArray();
        if (!TemplateSection::setMeasurement(section, variable.value.toInt()))
            return std::nullopt;
        m_template = section;
        return variable.value;
    }
    if (variable.name == QLatin1String(kLinetypeVariable)) {
        const quint64 linetype =
            m_database.table(OdDbTableKind::Linetype).getAt(variable.value).getHandle().value();
        if (linetype == 0 || !patch.setReference(variable.name, linetype))
            return std::nullopt;
        return QString::number(linetype, 16).toUpper();
    }
    if (!patch.setValue(variable.name, variable.value))
        return std::nullopt;
    // There are numbers for known lineweights only.
    return variable.name == QLatin1String(kWeightVariable) ? QString::number(
               dwgLineWeight(dwgLineWeightNumber(static_cast<qint16>(variable.value.toInt()))))
                                                           : variable.value;
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

QByteArray DwgFileBuilder::freeSpace(const FlatFile& file, quint64 objects, quint64 moved)
{
    constexpr qsizetype kObjectsAt = 16; // behind a zero, a count and a date
    QByteArray section = file.locatedBytes(FlatFile::kFreeSpace).toByteArray();
    if (section.size() >= kObjectsAt + 4
        && PageForm::word<quint32>(section.constData() + kObjectsAt) == objects)
        PageForm::put(section, kObjectsAt, static_cast<quint32>(moved));
    return section;
}

DrawingPieces DwgFileBuilder::build(quint64 highestNew)
{
    m_oldSeed =
        HeaderSection(m_source.file(), m_source.format()).reference(QStringLiteral("$HANDSEED"));
    const quint64 seed = std::max(m_oldSeed, highestNew == 0 ? 0 : highestNew + 1);
    if (const auto* paged = dynamic_cast<const PagedFile*>(&m_source.file()))
        return buildPaged(*paged, seed);
    return buildFlat(static_cast<const FlatFile&>(m_source.file()), seed);
}

DrawingPieces DwgFileBuilder::buildPaged(const PagedFile& file, quint64 seed)
{
    const QByteArray header = headerSection(seed);
    PagedFileWriter writer(file);
    if (!header.isEmpty())
        writer.replace("AcDb:Header", header);
    if (!m_template.isEmpty())
        writer.replace("AcDb:Template", m_template);
    if (m_meant.addsVariableClass)
        writer.replace("AcDb:Classes", ClassesPatch::withVariableClass(m_source));
    if (seed != m_oldSeed) {
        if (const PagedFile::Section* aux = file.find(PageForm::kAuxHeader))
            writer.replace(PageForm::kAuxHeader, auxHeader(file.unpacked(*aux), seed));
    }
    if (!m_meant.records.empty() || !m_meant.removed.empty()) {
        const QByteArrayView old = file.section(DwgSection::Objects);
        const auto records = recordsInOrder();
        const qsizetype first =
            records.empty() ? old.size() : static_cast<qsizetype>(records.front().first);
        QByteArray objects = old.first(first).toByteArray();
        appendRecords(records, objects, 0, static_cast<quint64>(old.size()));
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
    if (!m_template.isEmpty())
        writer.replace(static_cast<int>(DwgSection::Template), m_template);
    if (m_meant.addsVariableClass)
        writer.replace(static_cast<int>(DwgSection::Classes),
                       ClassesPatch::withVariableClass(m_source));
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
    const quint64 moved = writer.movedObjects(begin);
    writer.replace(FlatFile::kFreeSpace, freeSpace(file, begin, moved));
    QByteArray objects;
    appendRecords(records, objects, moved, end);
    writer.replaceObjects(begin, end, objects);
    writer.replace(static_cast<int>(DwgSection::ObjectMap), ObjectMap::spelled(m_places));
    return writer.result();
}
