#include "io/dwg/container/PagedFile.h"

#include "io/dwg/bits/BitReader.h"
#include "io/dwg/bits/Checksums.h"
#include "io/dwg/container/Lz77.h"
#include "io/dwg/container/PageForm.h"

#include <QCoreApplication>

#include <algorithm>
#include <numeric>

namespace {

using namespace PageForm;

constexpr quint32 kSecurityAt = 0x18;

constexpr quint32 kLargestPage = 1 << 20; ///< other programs take 0x7400 bytes

QString tr(const char* text)
{
    return QCoreApplication::translate("PagedFile", text);
}

} // namespace

PagedFile::PagedFile(const std::shared_ptr<const FileImage>& image, DrawingVersion version)
    : DwgFile(image, version)
{
    readHead();
    readPageMap(m_pageMapAt);
    const Page* map = page(m_sectionMapPage);
    if (!map)
        fail(kHeadAt,
             tr("page %1, the section map, is not in the page map.").arg(m_sectionMapPage));
    readSectionMap(map->offset);
    if (word<quint32>(bytes(kSecurityAt, 4).data()) != 0 || find("AcDb:Security")
        || find("AcDb:Signature"))
        addFault(tr("Parts of it are encrypted or signed."));
    readSections();
    requireAuxHeader();
}

void PagedFile::readSections()
{
    for (const Section& section : m_sections) {
        const QString name = QString::fromLatin1(section.name);
        if (section.encrypted == 1)
            addFault(tr("The section %1 is marked as encrypted.").arg(name));
        for (const SectionPage& part : section.pages) {
            if (!page(part.number))
                addFault(tr("Page %1 of the section %2 is missing.").arg(part.number).arg(name));
        }
    }
    for (std::size_t i = 0; i < kSectionNames.size(); ++i) {
        const Section* found = find(kSectionNames[i]);
        if (!found)
            continue;
        if (i == static_cast<std::size_t>(DwgSection::Template)) { // one setting stands there
            m_unpacked[i] = sound(*found).value_or(QByteArray()) + QByteArray(kPadding, '\0');
            continue;
        }
        if (!claim(found->size))
            failForSize(*found);
        QStringList faults;
        m_unpacked[i] = unpack(*found, faults);
        for (const QString& sentence : std::as_const(faults))
            addFault(sentence);
    }
}

void PagedFile::requireAuxHeader()
{
    const Section* section = find(kAuxHeader);
    if (section && !sound(*section))
        addFault(tr("The section %1 is damaged.").arg(QLatin1String(kAuxHeader)));
}

void PagedFile::readHead()
{
    QByteArray head = maskedHead(bytes(kHeadAt, kHeadSize));
    if (!head.startsWith(kHeadMark))
        fail(kHeadAt, tr("the second head of the file is damaged."));
    const auto sum = word<quint32>(head.data() + kHeadSum);
    put<quint32>(head, kHeadSum, 0);
    if (Checksums::crc32(head) != sum)
        addFault(tr("The check sum of the file's second head is wrong."));
    m_pageMapAt = word<quint64>(head.constData() + kPageMapAddress) + kFirstPage;
    m_sectionMapPage = word<qint32>(head.constData() + kSectionMapNumber);
}

QByteArray PagedFile::systemPage(quint64 offset, quint32 type)
{
    const QByteArray head = bytes(offset, kSystemHead).toByteArray();
    if (word<quint32>(head.data()) != type)
        fail(offset, tr("no map of the file's pages or sections; expected one here."));
    const auto size = word<quint32>(head.data() + 4);
    const auto packedSize = word<quint32>(head.data() + 8);
    const QByteArrayView packed = bytes(offset + kSystemHead, packedSize);
    if (Checksums::page(packed, headSum(head, kSystemSum, 0))
        != word<quint32>(head.data() + kSystemSum))
        addFault(tr("The check sum of the map at byte %1 is wrong.").arg(offset));
    if (!canHold(size))
        fail(offset, tr("a map of %1 bytes; expected less.").arg(size));
    QByteArray map(static_cast<qsizetype>(size), '\0');
    if (Lz77::unpack(packed, map.data(), map.size()) < 0)
        fail(offset, tr("the map of the file's pages or sections cannot be unpacked."));
    return map;
}

void PagedFile::readPageMap(quint64 offset)
{
    const QByteArray map = systemPage(offset, kPageMapType);
    quint64 at = kFirstPage;
    for (qsizetype i = 0; i + 8 <= map.size();) {
        const auto number = word<qint32>(map.data() + i);
        const auto size = word<quint32>(map.data() + i + 4);
        i += number < 0 ? 24 : 8; // a gap has four more numbers
        if (number > 0 && m_pageIndex.contains(number))
            fail(offset, tr("page %1 stands twice in the page map.").arg(number));
        if (number > 0)
            m_pageIndex.insert(number, m_pages.size());
        m_pages.push_back({number, at, size});
        at += size;
    }
}

const PagedFile::Page* PagedFile::page(int number) const
{
    const auto found = m_pageIndex.constFind(number);
    return found == m_pageIndex.cend() ? nullptr : &m_pages[*found];
}

void PagedFile::readSectionMap(quint64 offset)
{
    const QByteArray map = systemPage(offset, kSectionMapType);
    if (map.size() < kSectionMapHead)
        fail(offset, tr("the section map is empty."));
    m_sectionMapHead = map.first(kSectionMapHead);
    const char* at = map.constData() + kSectionMapHead;
    const char* const end = map.constData() + map.size();
    for (auto left = word<quint32>(map.constData()); left > 0; --left) {
        at = readSection(at, end);
        if (!at)
            fail(offset, tr("the section map ends too early."));
    }
}

const char* PagedFile::readSection(const char* at, const char* end)
{
    if (end - at < kSectionHead)
        return nullptr;
    Section section;
    section.size = word<quint64>(at);
    const auto count = word<quint32>(at + 8);
    section.pageSize = word<quint32>(at + 12);
    section.compressed = word<quint32>(at + 20) == kPacked;
    section.id = word<qint32>(at + 24);
    section.encrypted = word<qint32>(at + 28);
    section.name = QByteArray(at + 32, static_cast<qsizetype>(qstrnlen(at + 32, kNameSize)));
    section.head = QByteArray(at, kSectionHead);
    at += kSectionHead;
    if (count > static_cast<quint64>(end - at) / kSectionPage)
        return nullptr;
    for (quint32 i = 0; i < count; ++i, at += kSectionPage)
        section.pages.push_back({word<qint32>(at), word<quint32>(at + 4), word<quint64>(at + 8)});
    m_sections.push_back(std::move(section));
    return at;
}

const PagedFile::Section* PagedFile::find(QByteArrayView name) const
{
    const auto found = std::find_if(m_sections.begin(), m_sections.end(),
                                    [&](const Section& section) { return section.name == name; });
    return found == m_sections.end() ? nullptr : &*found;
}

void PagedFile::failForSize(const Section& section) const
{
    fail(0,
         tr("the section %1 says it has %2 bytes; that cannot be.")
             .arg(QString::fromLatin1(section.name))
             .arg(section.size));
}

QByteArray PagedFile::unpack(const Section& section, QStringList& faults) const
{
    const QString name = QString::fromLatin1(section.name);
    if (!canHold(section.size))
        failForSize(section);
    if (section.pageSize == 0 || section.pageSize > kLargestPage)
        fail(0,
             tr("the section %1 says its pages have %2 bytes; that cannot be.")
                 .arg(name)
                 .arg(section.pageSize));
    QByteArray whole(static_cast<qsizetype>(section.size) + kPadding, '\0');
    static_assert(kPadding >= BitReader::kPadding);
    quint64 end = 0;
    for (const SectionPage& part : section.pages) {
        // In order and apart, so that no page is unpacked more often than there is room for it.
        if (part.start < end || part.start >= section.size)
            fail(0, tr("the pages of the section %1 do not fit it.").arg(name));
        unpackPage(section, part, whole.data(), faults);
        end = part.start + section.pageSize;
    }
    return whole;
}

void PagedFile::unpackPage(const Section& section, const SectionPage& part, char* out,
                           QStringList& faults) const
{
    const Page* place = page(part.number);
    if (!place)
        fail(0, tr("page %1 is not in the page map.").arg(part.number));
    const QByteArray head = maskedPageHead(bytes(place->offset, kDataHead), place->offset);
    if (word<quint32>(head.data()) != kDataPageType)
        fail(place->offset, tr("no page of data; expected one here."));
    const auto packedSize = word<quint32>(head.data() + 8);
    const QByteArrayView packed = bytes(place->offset + kDataHead, packedSize);
    const quint32 sum = Checksums::page(packed);
    if (sum != word<quint32>(head.data() + kDataSum)
        || headSum(head, kDataHeadSum, sum) != word<quint32>(head.data() + kDataHeadSum))
        faults << tr("The check sum of the page at byte %1 is wrong.").arg(place->offset);
    const auto size =
        static_cast<qsizetype>(std::min<quint64>(section.pageSize, section.size - part.start));
    if (!section.compressed) {
        if (packed.size() < size)
            faults << tr("The page at byte %1 ends too early.").arg(place->offset);
        std::copy_n(packed.data(), std::min(packed.size(), size), out + part.start);
        return;
    }
    QByteArray unpacked(static_cast<qsizetype>(section.pageSize), Qt::Uninitialized);
    const qsizetype got = Lz77::unpack(packed, unpacked.data(), unpacked.size());
    if (got < 0)
        fail(place->offset,
             section.encrypted == 1 ? tr("the page is encrypted.")
                                    : tr("the page cannot be unpacked."));
    if (got < size)
        faults << tr("The page at byte %1 ends too early.").arg(place->offset);
    std::copy_n(unpacked.constData(), std::min(got, size), out + part.start);
}

QByteArrayView PagedFile::kept(const Section& section) const
{
    for (std::size_t i = 0; i < kSectionNames.size(); ++i) {
        if (find(kSectionNames[i]) == &section)
            return this->section(static_cast<DwgSection>(i));
    }
    return {};
}

QByteArray PagedFile::unpacked(const Section& section) const
{
    if (const QByteArrayView bytes = kept(section); !bytes.isEmpty())
        return bytes.toByteArray();
    QStringList faults; // nobody reads it
    return unpack(section, faults).chopped(kPadding);
}

std::optional<QByteArray> PagedFile::sound(const Section& section) const
{
    QStringList faults;
    try {
        QByteArray bytes = unpack(section, faults).chopped(kPadding);
        if (faults.isEmpty())
            return bytes;
    } catch (const OdError&) {
    }
    return std::nullopt;
}

QByteArrayView PagedFile::section(DwgSection section) const
{
    const QByteArray& whole = m_unpacked[static_cast<std::size_t>(section)];
    return QByteArrayView(whole).chopped(std::min(kPadding, whole.size()));
}

PagedFile::PackedPage PagedFile::packedPage(const SectionPage& part) const
{
    const Page* place = page(part.number);
    if (!place)
        fail(0, tr("page %1 is not in the page map.").arg(part.number));
    const QByteArray head = maskedPageHead(bytes(place->offset, kDataHead), place->offset);
    return {bytes(place->offset + kDataHead, word<quint32>(head.data() + 8)),
            word<quint32>(head.data() + kDataSum)};
}
