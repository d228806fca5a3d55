#include "io/dwg/support/DwgMaker.h"

#include "io/dwg/bits/Checksums.h"
#include "io/dwg/container/PageForm.h"
#include "io/dwg/container/PagedFile.h"
#include "io/dwg/sections/ObjectMap.h"
#include "io/dwg/write/file/PagedFileWriter.h"

namespace {

using PageForm::put;

constexpr int kCodePage = 30; ///< windows-1252
constexpr qsizetype kMaintenanceAt = 0x0B;
constexpr qsizetype kPreviewAt = 0x0D;
constexpr qsizetype kCodePageAt = 0x13;
constexpr qsizetype kLocatorCountAt = 0x15;
constexpr qsizetype kSecurityAt = 0x18;
constexpr qsizetype kSummaryAt = 0x20;
constexpr quint32 kObjectsMark = 0x0DCA; ///< stands ahead of the records
constexpr QByteArrayView
    kHeadEnd("\x95\xA0\x4E\x28\x99\x82\x1A\xE5\x5E\x41\xE0\x5F\x9D\x3A\x4D\x00", 16);

/// No description, metric units.
constexpr QByteArrayView kMetricTemplate("\0\0\1\0", 4);
enum SectionNumber { kHeader, kClasses, kMap, kFreeSpace, kTemplate, kAux };

QByteArray fourBytes(quint32 value)
{
    QByteArray bytes(4, '\0');
    put(bytes, 0, value);
    return bytes;
}

} // namespace

DwgMaker::DwgMaker(const MadeDrawing& drawing)
    : m_drawing(drawing)
    , m_format(DwgFormat::of(drawing.version, kCodePage))
    , m_sections(m_format)
    , m_records(MadeRecords(drawing, m_format).all())
    , m_seed(m_records.rbegin()->first + 1)
    , m_header(m_sections.header(m_seed, drawing.references))
    , m_classes(m_sections.classes(drawing.hasVariables))
{ }

void DwgMaker::damage(std::size_t part, std::size_t place, quint8 bits)
{
    // Sections stand between marks, with their sum before the last one; records end with it.
    constexpr qsizetype kMark = 16;
    constexpr qsizetype kSum = 2;
    part %= m_records.size() + 2;
    QByteArray& bytes = part == 0 ? m_header
        : part == 1               ? m_classes
                    : std::next(m_records.begin(), static_cast<std::ptrdiff_t>(part - 2))->second;
    const qsizetype first = part < 2 ? kMark : 0;
    const qsizetype end = bytes.size() - first - kSum;
    const qsizetype at = first + static_cast<qsizetype>(place) % (end - first);
    bytes[at] = static_cast<char>(bytes[at] ^ bits);
    put(bytes, end, Checksums::crc16(QByteArrayView(bytes).sliced(first, end - first)));
}

std::size_t DwgMaker::partOf(quint64 handle) const
{
    return 2 + static_cast<std::size_t>(std::distance(m_records.begin(), m_records.find(handle)));
}

QByteArray DwgMaker::sample(DrawingVersion version)
{
    const MadeDrawing drawing = MadeDrawing::sample(version);
    return DwgMaker(drawing).bytes();
}

QByteArray DwgMaker::bytes() const
{
    return m_drawing.version < DrawingVersion::V2004 ? flat() : paged();
}

void DwgMaker::appendRecords(QByteArray& out, quint64 base,
                             std::vector<ObjectMap::Entry>& places) const
{
    for (const auto& [handle, record] : m_records) {
        places.push_back({handle, base + static_cast<quint64>(out.size())});
        out += record;
    }
}

QByteArray DwgMaker::head(qsizetype size) const
{
    QByteArray head = "AC" + QByteArray::number(static_cast<int>(m_drawing.version));
    head.resize(size, '\0');
    head[kMaintenanceAt] = static_cast<char>(MadeSections::maintenance(m_drawing.version));
    head[kMaintenanceAt + 1] = 1;
    put<quint16>(head, kCodePageAt, kCodePage);
    return head;
}

QByteArray DwgMaker::flat() const
{
    constexpr int kSections = 6;
    constexpr auto kTableEnd =
        static_cast<qsizetype>(FlatFile::kLocatorsAt + kSections * FlatFile::kLocatorSize);
    std::vector<FlatFile::Locator> locators(kSections);
    QByteArray file = head(kTableEnd + 2) + kHeadEnd.toByteArray();
    const auto append = [&](int number, const QByteArray& section) {
        locators[static_cast<std::size_t>(number)] = {number, static_cast<quint32>(file.size()),
                                                      static_cast<quint32>(section.size())};
        file += section;
    };
    append(kAux, m_sections.auxHeader(m_seed));
    put(file, kPreviewAt, static_cast<quint32>(file.size()));
    file += MadeSections::preview(static_cast<quint32>(file.size()));
    append(kHeader, m_header);
    append(kClasses, m_classes);
    const auto objects = static_cast<quint32>(file.size());
    file += fourBytes(kObjectsMark);
    std::vector<ObjectMap::Entry> places;
    appendRecords(file, 0, places);
    append(kMap, ObjectMap::spelled(places));
    append(kFreeSpace, m_sections.freeSpace(places.size(), objects));
    append(kTemplate, kMetricTemplate.toByteArray());

    put<quint32>(file, kLocatorCountAt, kSections);
    auto at = static_cast<qsizetype>(FlatFile::kLocatorsAt);
    for (const FlatFile::Locator& locator : locators) {
        file[at] = static_cast<char>(locator.number);
        put(file, at + 1, locator.offset);
        put(file, at + 5, locator.size);
        at += static_cast<qsizetype>(FlatFile::kLocatorSize);
    }
    put(file, at, Checksums::crc16(QByteArrayView(file).first(at)));
    return file + m_sections.secondHeader(static_cast<quint64>(file.size()), locators, m_seed);
}

QByteArray DwgMaker::emptyPaged(const std::map<QByteArray, QByteArray>& sections) const
{
    using namespace PageForm;
    constexpr quint32 kPageSize = 0x7400;
    QByteArray map(kSectionMapHead, '\0');
    put(map, 0, static_cast<quint32>(sections.size()));
    put<quint32>(map, 4, kPacked);
    put(map, 8, kPageSize);
    put(map, 16, static_cast<quint32>(sections.size()));
    int id = 0;
    // Backwards, as they stand in the file: the preview behind what grows.
    for (auto section = sections.rbegin(); section != sections.rend(); ++section) {
        const QByteArray& name = section->first;
        QByteArray entry(kSectionHead, '\0');
        const bool packed = name != "AcDb:Preview" && name != "AcDb:SummaryInfo";
        put(entry, 12, packed ? kPageSize : quint32(0x400));
        put<quint32>(entry, 16, 1);
        put<quint32>(entry, 20, packed ? kPacked : 1);
        put(entry, 24, ++id);
        put<quint32>(entry, 28, name == m_drawing.encryptedSection ? 1 : 0);
        entry.replace(kSectionHead - kNameSize, name.size(), name);
        map += entry;
    }
    const QByteArray sectionMap = systemPage(kSectionMapType, map);
    // Each page has its number and size; that of the page map itself is not looked at.
    const QByteArray pageMap =
        systemPage(kPageMapType,
                   fourBytes(1) + fourBytes(static_cast<quint32>(sectionMap.size())) + fourBytes(2)
                       + fourBytes(kAlignment));
    QByteArray second(kHeadSize, '\0');
    second.replace(0, kHeadMark.size(), kHeadMark.toByteArray());
    put<quint32>(second, 0x10, kHeadSize);
    put<quint32>(second, 0x14, 4);
    put<quint32>(second, 0x44, 0x20);
    put<quint32>(second, 0x48, 0x80);
    put<quint32>(second, 0x4C, 0x40);
    put<quint64>(second, kPageMapAddress, static_cast<quint64>(sectionMap.size()));
    put<quint32>(second, kSectionMapNumber, 1);
    put(second, kHeadSum, Checksums::crc32(second));
    QByteArray file = head(static_cast<qsizetype>(kFirstPage));
    file.replace(static_cast<qsizetype>(kHeadAt), kHeadSize, maskedHead(second));
    return file + sectionMap + pageMap;
}

QByteArray DwgMaker::paged() const
{
    QByteArray objects = fourBytes(kObjectsMark);
    std::vector<ObjectMap::Entry> places;
    appendRecords(objects, 0, places);
    std::map<QByteArray, QByteArray> sections = {
        {"AcDb:Header", m_header},
        {"AcDb:Classes", m_classes},
        {"AcDb:Handles", ObjectMap::spelled(places)},
        {"AcDb:AcDbObjects", objects},
        {"AcDb:ObjFreeSpace", m_sections.freeSpace(places.size(), 0)},
        {"AcDb:Template", kMetricTemplate.toByteArray()},
        {"AcDb:AuxHeader", m_sections.auxHeader(m_seed)},
        {"AcDb:Preview", MadeSections::preview(0)},
        {"AcDb:SummaryInfo", QByteArray(64, '\0')},
    };
    sections["AcDb:SummaryInfo"][0] = 1;
    if (!m_drawing.moreSection.isEmpty())
        sections[m_drawing.moreSection] = QByteArray(64, '\x5A');
    // Where the preview stands is known when the file is there.
    const auto preview = PageForm::word<quint32>(pagedWith(sections).constData() + kPreviewAt);
    sections["AcDb:Preview"] = MadeSections::preview(preview);
    QByteArray file = pagedWith(sections);
    if (m_drawing.isEncrypted)
        put<quint32>(file, kSecurityAt, 1);
    return file;
}

QByteArray DwgMaker::pagedWith(const std::map<QByteArray, QByteArray>& sections) const
{
    const auto open = [&](const QByteArray& bytes) {
        return PagedFile(FileImage::copyOf(bytes, QStringLiteral("made.dwg")), m_drawing.version);
    };
    PagedFile empty = open(emptyPaged(sections));
    PagedFileWriter writer(empty);
    for (const auto& [name, bytes] : sections)
        writer.replace(name, bytes);
    QByteArray file;
    const DrawingPieces pieces = writer.result();
    for (const QByteArrayView part : pieces.parts)
        file.append(part.data(), part.size());
    // The head has the addresses of what other programs show of a drawing without opening it.
    const PagedFile made = open(file);
    for (const auto& [name, field] :
         {std::pair("AcDb:Preview", kPreviewAt), std::pair("AcDb:SummaryInfo", kSummaryAt)})
    {
        const PagedFile::Page* page = made.page(made.find(name)->pages.front().number);
        put(file, field, static_cast<quint32>(page->offset + PageForm::kDataHead));
    }
    return file;
}
