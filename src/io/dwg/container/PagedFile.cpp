#include "io/dwg/container/PagedFile.h"

#include "io/dwg/bits/BitReader.h"
#include "io/dwg/bits/Checksums.h"
#include "io/dwg/container/Lz77.h"

#include <QCoreApplication>
#include <QtEndian>

#include <algorithm>
#include <numeric>

namespace {

// The second head of the file, which is written over with pseudo-random bytes.
constexpr quint64 kHeadAt = 0x80;
constexpr int kHeadSize = 0x6C;
constexpr QByteArrayView kHeadMark("AcFssFcAJMB", 12);
constexpr int kPageMapAddressAt = 0x54;
constexpr int kSectionMapPageAt = 0x5C;
constexpr int kHeadSumAt = 0x68;

constexpr quint64 kFirstPage = 0x100;
constexpr quint32 kPageMapType = 0x41630E3B;
constexpr quint32 kSectionMapType = 0x4163003B;
constexpr quint32 kDataPageType = 0x4163043B;
constexpr int kSystemHead = 20;
constexpr int kDataHead = 32;
constexpr quint32 kDataMask = 0x4164536B;

constexpr int kNameSize = 64;
constexpr int kSectionHead = 32 + kNameSize;
constexpr int kSectionPageSize = 16;
constexpr quint32 kSecurityAt = 0x18;

/// No drawing packs better; a file that says it does would only cost memory.
constexpr quint64 kBestPacking = 64;
constexpr quint64 kSpare = 1 << 20;

QString tr(const char* text)
{
    return QCoreApplication::translate("PagedFile", text);
}

template <class Word>
Word word(const char* at)
{
    return qFromLittleEndian<Word>(at);
}

QByteArray unmasked(QByteArrayView masked)
{
    QByteArray plain = masked.toByteArray();
    quint32 seed = 1;
    for (char& byte : plain) {
        seed = seed * 0x343FD + 0x269EC3;
        byte = static_cast<char>(byte ^ static_cast<char>(seed >> 16));
    }
    return plain;
}

QByteArray unmasked(QByteArrayView masked, quint64 offset)
{
    QByteArray plain = masked.toByteArray();
    const quint32 mask = kDataMask ^ static_cast<quint32>(offset);
    for (qsizetype at = 0; at + 4 <= plain.size(); at += 4)
        qToLittleEndian(word<quint32>(plain.data() + at) ^ mask, plain.data() + at);
    return plain;
}

/// The sum of a head with its own field as zero.
quint32 headSum(QByteArray head, int field, quint32 seed)
{
    qToLittleEndian<quint32>(0, head.data() + field);
    return Checksums::page(head, seed);
}

struct KnownSection
{
    DwgSection section;
    QByteArrayView name;
};
constexpr KnownSection kKnown[] = {
    {DwgSection::Header, "AcDb:Header"},
    {DwgSection::Classes, "AcDb:Classes"},
    {DwgSection::ObjectMap, "AcDb:Handles"},
    {DwgSection::Objects, "AcDb:AcDbObjects"},
};

} // namespace

PagedFile::PagedFile(const std::shared_ptr<const FileImage>& image, DwgVersion version)
    : DwgFile(image, version)
{
    readHead();
    readPageMap(m_pageMapAt);
    const Page* map = page(m_sectionMapPage);
    if (!map)
        fail(kHeadAt,
             tr("page %1, the section map, is not in the page map.").arg(m_sectionMapPage));
    readSectionMap(map->offset);
    if (word<quint32>(bytes(kSecurityAt, 4).data()) != 0)
        addFault(tr("Parts of it are encrypted or signed."));
    for (const KnownSection& known : kKnown) {
        const Section* found = find(known.name);
        m_unpacked[static_cast<std::size_t>(known.section)] = found ? unpack(*found) : QByteArray();
    }
}

void PagedFile::readHead()
{
    QByteArray head = unmasked(bytes(kHeadAt, kHeadSize));
    if (!head.startsWith(kHeadMark))
        fail(kHeadAt, tr("the second head of the file is damaged."));
    const auto sum = word<quint32>(head.data() + kHeadSumAt);
    qToLittleEndian<quint32>(0, head.data() + kHeadSumAt);
    if (Checksums::crc32(head) != sum)
        addFault(tr("The check sum of the file's second head is wrong."));
    m_pageMapAt = word<quint64>(head.constData() + kPageMapAddressAt) + kFirstPage;
    m_sectionMapPage = word<qint32>(head.constData() + kSectionMapPageAt);
}

QByteArray PagedFile::systemPage(quint64 offset, quint32 type)
{
    const QByteArray head = bytes(offset, kSystemHead).toByteArray();
    if (word<quint32>(head.data()) != type)
        fail(offset, tr("no map of the file's pages or sections; expected one here."));
    const auto size = word<quint32>(head.data() + 4);
    const auto packedSize = word<quint32>(head.data() + 8);
    const QByteArrayView packed = bytes(offset + kSystemHead, packedSize);
    if (headSum(head, 16, 0) == 0
        || Checksums::page(packed, headSum(head, 16, 0)) != word<quint32>(head.data() + 16))
        addFault(tr("The check sum of the map at byte %1 is wrong.").arg(offset));
    if (size > quint64(packedSize) * kBestPacking + kSpare)
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
    constexpr qsizetype kMapHead = 20;
    if (map.size() < kMapHead)
        fail(offset, tr("the section map is empty."));
    const char* at = map.constData() + kMapHead;
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
    section.compressed = word<quint32>(at + 20) == 2;
    section.id = word<qint32>(at + 24);
    section.encrypted = word<qint32>(at + 28);
    section.name = QByteArray(at + 32, static_cast<qsizetype>(qstrnlen(at + 32, kNameSize)));
    at += kSectionHead;
    if (count > static_cast<quint64>(end - at) / kSectionPageSize)
        return nullptr;
    for (quint32 i = 0; i < count; ++i, at += kSectionPageSize)
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

QByteArray PagedFile::unpack(const Section& section) const
{
    const QString name = QString::fromLatin1(section.name);
    if (section.encrypted == 1)
        fail(0, tr("the section %1 is encrypted.").arg(name));
    if (section.size > image().size() * kBestPacking + kSpare || section.pageSize == 0)
        fail(
            0,
            tr("the section %1 says it has %2 bytes; that cannot be.").arg(name).arg(section.size));
    QByteArray whole(static_cast<qsizetype>(section.size) + BitReader::kPadding, '\0');
    for (const SectionPage& part : section.pages) {
        if (part.start >= section.size)
            fail(0, tr("a page of the section %1 stands behind its end.").arg(name));
        unpackPage(section, part, whole.data());
    }
    return whole;
}

void PagedFile::unpackPage(const Section& section, const SectionPage& part, char* out) const
{
    const Page* place = page(part.number);
    if (!place)
        fail(0, tr("page %1 is not in the page map.").arg(part.number));
    const QByteArray head = unmasked(bytes(place->offset, kDataHead), place->offset);
    if (word<quint32>(head.data()) != kDataPageType)
        fail(place->offset, tr("no page of data; expected one here."));
    const auto packedSize = word<quint32>(head.data() + 8);
    const QByteArrayView packed = bytes(place->offset + kDataHead, packedSize);
    const qsizetype size =
        static_cast<qsizetype>(std::min<quint64>(section.pageSize, section.size - part.start));
    if (!section.compressed) {
        std::copy_n(packed.data(), std::min(packed.size(), size), out + part.start);
    } else {
        QByteArray page(static_cast<qsizetype>(section.pageSize), Qt::Uninitialized);
        const qsizetype got = Lz77::unpack(packed, page.data(), page.size());
        if (got < 0)
            fail(place->offset, tr("the page cannot be unpacked."));
        std::copy_n(page.constData(), std::min(got, size), out + part.start);
    }
}

QByteArrayView PagedFile::section(DwgSection section) const
{
    const QByteArray& whole = m_unpacked[static_cast<std::size_t>(section)];
    return QByteArrayView(whole).chopped(std::min(BitReader::kPadding, whole.size()));
}
