#include "io/dwg/container/PagedFile2007.h"

#include "io/dwg/bits/BitReader.h"
#include "io/dwg/bits/Checksums.h"
#include "io/dwg/container/Lz77Of2007.h"
#include "io/dwg/container/PageForm.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

using PageForm::kSectionNames;
using PageForm::word;

constexpr quint64 kHeadAt = 0x80;
constexpr quint64 kFirstPage = 0x480;
constexpr qsizetype kPadding = BitReader::kPadding;

// The head in its blocks: three check values (8 bytes), packed size or its negative, and the bytes.
constexpr quint64 kCodedHeadSize = 3 * CodedBlocks2007::kBlockSize;
constexpr qsizetype kPackedHeadAt = 32;
constexpr qsizetype kPackedSizeAt = 24;

/// What the head says, in numbers of 8 bytes.
enum HeadField : int {
    FileSize = 1,
    PageMapCopies = 3,
    PageMapOffset = 7, ///< counts from the first page
    PageMapPackedSize = 10,
    PageMapSize = 11,
    SectionMapPackedSize = 22,
    SectionMapNumber = 24,
    SectionMapSize = 25,
    SectionMapCopies = 27,
    HeadFields = 34,
};

// An entry of the page map: size and number. An entry of the section map: size, size of a page,
// encryption, hash of the name, size of the name, a number, coding, count of pages, name; then its
// pages with start, size in the file, number, size, packed size, sum and check value.
constexpr qsizetype kPlaceSize = 16;
constexpr qsizetype kSectionHead = 64;
constexpr qsizetype kSectionPage = 56;

constexpr quint64 kPlain = 1; ///< coding of pages that stand as they are
constexpr quint64 kCoded = 4;

QString tr(const char* text)
{
    return QCoreApplication::translate("PagedFile2007", text);
}

quint64 number(const QByteArray& bytes, qsizetype index, qsizetype from = 0)
{
    return word<quint64>(bytes.constData() + from + index * 8);
}

/// Data stand in the blocks as whole words of 8 bytes.
constexpr quint64 wholeWords(quint64 size)
{
    return (size + 7) & ~quint64(7);
}

/// The sum of an unpacked page: each 8 bytes count in an order of their own.
quint32 pageSum(QByteArrayView page)
{
    constexpr std::array<qsizetype, 8> kOrder = {6, 7, 4, 5, 2, 3, 0, 1};
    QByteArray ordered = page.toByteArray();
    char* out = ordered.data();
    qsizetype at = 0;
    for (; page.size() - at >= 8; at += 8) {
        for (const qsizetype from : kOrder)
            *out++ = page[at + from];
    }
    if (page.size() - at >= 4) {
        for (const qsizetype from : {2, 3, 0, 1})
            *out++ = page[at + from];
    }
    const quint32 seed = static_cast<quint32>(page.size()) * 0x343FD + 0x269EC3;
    return Checksums::page(ordered, seed);
}

} // namespace

PagedFile2007::PagedFile2007(const std::shared_ptr<const FileImage>& image)
    : DwgFile(image, DrawingVersion::V2007)
{
    addFault(tr("Drawings of version 2007 can be read but not written."));
    readHead();
}

void PagedFile2007::readHead()
{
    const QByteArray blocks = coded(CodedBlocks2007::System, kHeadAt, kCodedHeadSize);
    const auto packedSize = word<qint32>(blocks.constData() + kPackedSizeAt);
    const QByteArrayView packed = QByteArrayView(blocks).sliced(kPackedHeadAt);
    QByteArray head(HeadFields * 8, '\0');
    const bool fits = packedSize > 0 ? packedSize <= packed.size() : packedSize == -head.size();
    if (!fits)
        fail(kHeadAt, tr("the second head of the file is damaged."));
    if (packedSize < 0)
        head = packed.first(head.size()).toByteArray();
    else if (Lz77Of2007::unpack(packed.first(packedSize), head.data(), head.size()) != head.size())
        fail(kHeadAt, tr("the second head of the file is damaged."));
    if (number(head, FileSize) != image().size())
        addFault(tr("The file has %1 bytes; its head says %2.")
                     .arg(image().size())
                     .arg(number(head, FileSize)));

    const quint64 offset = number(head, PageMapOffset);
    if (offset > image().size())
        fail(kHeadAt, tr("the page map stands behind the end of the file."));
    readPageMap(
        kFirstPage + offset,
        {number(head, PageMapPackedSize), number(head, PageMapSize), number(head, PageMapCopies)});
    readSectionMap(page(number(head, SectionMapNumber)),
                   {number(head, SectionMapPackedSize), number(head, SectionMapSize),
                    number(head, SectionMapCopies)});
}

QByteArray PagedFile2007::coded(CodedBlocks2007::Kind kind, quint64 offset, quint64 size)
{
    const CodedBlocks2007 blocks(kind);
    const QByteArrayView found = bytes(offset, size);
    if (!blocks.areSound(found))
        addFault(tr("The check bytes of the page at byte %1 are wrong.").arg(offset));
    return blocks.data(found);
}

QByteArray PagedFile2007::map(quint64 offset, const Map& form)
{
    const quint64 most = image().size();
    if (form.packedSize == 0 || form.packedSize > most || form.copies == 0
        || form.copies > most / wholeWords(form.packedSize) || !canHold(form.size))
        fail(offset,
             tr("a map of %1 bytes, %2 unpacked; that cannot be.")
                 .arg(form.packedSize)
                 .arg(form.size));
    const quint64 size = CodedBlocks2007(CodedBlocks2007::System)
                             .codedSize(wholeWords(form.packedSize) * form.copies);
    const QByteArray blocks = coded(CodedBlocks2007::System, offset, size);
    QByteArray whole(static_cast<qsizetype>(form.size), '\0');
    const QByteArrayView packed =
        QByteArrayView(blocks).first(static_cast<qsizetype>(form.packedSize));
    if (form.packedSize == form.size)
        std::copy(packed.begin(), packed.end(), whole.begin());
    else if (Lz77Of2007::unpack(packed, whole.data(), whole.size()) != whole.size())
        fail(offset, tr("the map of the file's pages or sections cannot be unpacked."));
    return whole;
}

void PagedFile2007::readPageMap(quint64 offset, const Map& form)
{
    const QByteArray entries = map(offset, form);
    quint64 at = kFirstPage;
    for (qsizetype i = 0; i + kPlaceSize <= entries.size(); i += kPlaceSize) {
        const quint64 size = number(entries, 0, i);
        const auto page = static_cast<qint64>(number(entries, 1, i));
        if (size > image().size() || at > image().size())
            fail(offset, tr("page %1 stands behind the end of the file.").arg(page));
        if (page > 0 && m_pages.contains(static_cast<quint64>(page)))
            fail(offset, tr("page %1 stands twice in the page map.").arg(page));
        if (page > 0) // others are gaps
            m_pages.insert(static_cast<quint64>(page), {at, size});
        at += size;
    }
}

const PagedFile2007::Place& PagedFile2007::page(quint64 number) const
{
    const auto found = m_pages.constFind(number);
    if (found == m_pages.cend())
        fail(kHeadAt, tr("page %1 is not in the page map.").arg(number));
    return *found;
}

void PagedFile2007::readSectionMap(const Place& place, const Map& form)
{
    const QByteArray entries = map(place.offset, form);
    for (qsizetype at = 0; at < entries.size();) {
        Section section;
        at = readSection(entries, at, section);
        if (at < 0)
            fail(place.offset, tr("the section map ends too early."));
        const auto known = std::find(kSectionNames.begin(), kSectionNames.end(), section.name);
        if (known == kSectionNames.end())
            continue;
        QByteArray& unpacked = m_unpacked[static_cast<std::size_t>(known - kSectionNames.begin())];
        if (!unpacked.isEmpty())
            fail(place.offset,
                 tr("the section %1 is there twice.").arg(QString::fromLatin1(section.name)));
        const bool isRequired = *known != kSectionNames[std::size_t(DwgSection::Template)];
        try {
            unpacked = unpack(section);
        } catch (const OdError&) {
            if (isRequired)
                throw;
        }
    }
}

qsizetype PagedFile2007::readSection(const QByteArray& map, qsizetype at, Section& section) const
{
    if (map.size() - at < kSectionHead)
        return -1;
    section.size = number(map, 0, at);
    section.encrypted = number(map, 2, at);
    const quint64 nameSize = number(map, 4, at);
    section.coding = number(map, 6, at);
    const quint64 count = number(map, 7, at);
    at += kSectionHead;
    if (nameSize > static_cast<quint64>(map.size() - at))
        return -1;
    for (qsizetype i = 0; i + 2 <= static_cast<qsizetype>(nameSize); i += 2) {
        if (const auto unit = word<quint16>(map.constData() + at + i); unit != 0)
            section.name += unit < 0x80 ? static_cast<char>(unit) : '?';
    }
    at += static_cast<qsizetype>(nameSize);
    if (count > static_cast<quint64>((map.size() - at) / kSectionPage))
        return -1;
    for (quint64 i = 0; i < count; ++i, at += kSectionPage)
        section.pages.push_back({number(map, 0, at), number(map, 2, at), number(map, 3, at),
                                 number(map, 4, at), number(map, 5, at)});
    return at;
}

QByteArray PagedFile2007::unpack(const Section& section)
{
    if (section.encrypted != 0)
        addFault(
            tr("The section %1 is marked as encrypted.").arg(QString::fromLatin1(section.name)));
    if (section.coding != kPlain && section.coding != kCoded)
        fail(kHeadAt,
             tr("the section %1 is coded in an unknown way.")
                 .arg(QString::fromLatin1(section.name)));
    if (!claim(section.size))
        fail(kHeadAt,
             tr("the section %1 says it has %2 bytes; that cannot be.")
                 .arg(QString::fromLatin1(section.name))
                 .arg(section.size));
    QByteArray whole(static_cast<qsizetype>(section.size) + kPadding, '\0');
    quint64 end = 0;
    for (const SectionPage& part : section.pages) {
        // In order and apart, so that no file is unpacked more often than it is large.
        if (part.start < end || part.start > section.size || part.size == 0
            || part.size > section.size - part.start)
            fail(kHeadAt,
                 tr("the pages of the section %1 do not fit it.")
                     .arg(QString::fromLatin1(section.name)));
        unpackPage(section, part, whole.data() + part.start);
        end = part.start + part.size;
    }
    return whole;
}

void PagedFile2007::unpackPage(const Section& section, const SectionPage& part, char* out)
{
    const Place& place = page(part.number);
    const bool isCoded = section.coding == kCoded;
    // A page that does not shrink is left unpacked.
    if (part.packedSize == 0 || part.packedSize > place.size || part.packedSize > 2 * part.size + 8)
        fail(place.offset,
             tr("a page of %1 bytes, %2 unpacked; that cannot be.")
                 .arg(part.packedSize)
                 .arg(part.size));
    const quint64 size = isCoded
        ? CodedBlocks2007(CodedBlocks2007::Data).codedSize(wholeWords(part.packedSize))
        : part.packedSize;
    const QByteArray found = isCoded ? coded(CodedBlocks2007::Data, place.offset, size)
                                     : bytes(place.offset, size).toByteArray();
    const QByteArrayView packed =
        QByteArrayView(found).first(static_cast<qsizetype>(part.packedSize));
    const auto unpackedSize = static_cast<qsizetype>(part.size);
    if (part.packedSize == part.size)
        std::copy(packed.begin(), packed.end(), out);
    else if (Lz77Of2007::unpack(packed, out, unpackedSize) != unpackedSize)
        fail(place.offset, tr("the page cannot be unpacked."));
    if (pageSum({out, unpackedSize}) != part.sum)
        addFault(tr("The check sum of the page at byte %1 is wrong.").arg(place.offset));
}

QByteArrayView PagedFile2007::section(DwgSection section) const
{
    const QByteArray& whole = m_unpacked[static_cast<std::size_t>(section)];
    return QByteArrayView(whole).chopped(std::min(kPadding, whole.size()));
}
