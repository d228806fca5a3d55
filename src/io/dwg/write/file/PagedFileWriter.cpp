#include "io/dwg/write/file/PagedFileWriter.h"

#include "io/dwg/bits/Checksums.h"
#include "io/dwg/container/Lz77.h"
#include "io/dwg/container/PageForm.h"
#include "io/dwg/sections/PreviewSection.h"

#include <algorithm>
#include <limits>

using namespace PageForm;

namespace {

/// Fields of the first head that hold the address of the data of a page.
constexpr qsizetype kDataAddresses[] = {0x0D, 0x20, 0x24, 0x2C, 0x30};

constexpr const char* kPreview = "AcDb:Preview";

bool isZero(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte == 0; });
}

void append(QByteArray& out, quint32 value)
{
    out.resize(out.size() + 4);
    put(out, out.size() - 4, value);
}

} // namespace

void PagedFileWriter::fill()
{
    const qsizetype rest = -m_out.size() & (kAlignment - 1);
    m_out.append(noise().first(rest));
}

PagedFile::SectionPage PagedFileWriter::addPage(const PagedFile::Section& section, quint64 start,
                                                const PagedFile::PackedPage& page)
{
    const QByteArrayView packed = page.bytes;
    const auto number = static_cast<int>(m_pages.size()) + 1;
    const auto offset = static_cast<quint64>(m_out.size());
    const qsizetype size = (kDataHead + packed.size() + kAlignment - 1) & ~(kAlignment - 1);
    QByteArray head(kDataHead, '\0');
    put<quint32>(head, 0, kDataPageType);
    put(head, 4, static_cast<quint32>(section.id));
    put(head, 8, static_cast<quint32>(packed.size()));
    put(head, 12, static_cast<quint32>(size));
    put<quint64>(head, 16, start);
    put(head, kDataSum, page.sum);
    put(head, kDataHeadSum, headSum(head, kDataHeadSum, page.sum));
    m_out += maskedPageHead(head, offset);
    if (m_file.image().holds(packed))
        m_copies.push_back({static_cast<quint64>(packed.data() - m_file.image().begin()),
                            m_out.size(), packed.size()});
    m_out.append(packed.data(), packed.size());
    fill();
    m_pages.push_back({number, offset, static_cast<quint32>(size)});
    return {number, static_cast<quint32>(packed.size()), start};
}

void PagedFileWriter::noteMove(const PagedFile::SectionPage& part)
{
    if (const PagedFile::Page* place = m_file.page(part.number))
        m_moved[place->offset] = static_cast<quint64>(m_out.size());
}

void PagedFileWriter::movePreview(const PagedFile::Section& old)
{
    const PagedFile::Page* place =
        old.pages.empty() ? nullptr : m_file.page(old.pages.front().number);
    if (old.name != kPreview || old.compressed || !place)
        return;
    const auto by = m_out.size() - static_cast<qint64>(place->offset);
    std::optional<QByteArray> preview = by == 0 ? std::nullopt : m_file.sound(old);
    const QByteArray list = preview ? PreviewSection::movedList(*preview, by) : QByteArray();
    if (!list.isEmpty())
        replace(kPreview, preview->replace(0, list.size(), list));
}

void PagedFileWriter::addSection(const PagedFile::Section& old)
{
    movePreview(old);
    PagedFile::Section section = old;
    section.pages.clear();
    const auto replaced = m_replaced.find(old.name);
    if (replaced == m_replaced.end()) {
        for (const PagedFile::SectionPage& part : old.pages) {
            noteMove(part);
            section.pages.push_back(addPage(section, part.start, m_file.packedPage(part)));
        }
    } else {
        const QByteArrayView kept = m_file.kept(old);
        const QByteArray own = kept.isEmpty() ? m_file.unpacked(old) : QByteArray();
        const QByteArrayView before = kept.isEmpty() ? QByteArrayView(own) : kept;
        const QByteArrayView after = replaced->second;
        section.size = static_cast<quint64>(after.size());
        std::map<quint64, const PagedFile::SectionPage*> present;
        for (const PagedFile::SectionPage& part : old.pages)
            present[part.start] = &part;
        for (quint64 start = 0; start < section.size; start += section.pageSize) {
            const auto from = static_cast<qsizetype>(start);
            const QByteArrayView part =
                after.sliced(from, std::min<qsizetype>(section.pageSize, after.size() - from));
            const auto there = present.find(start);
            if (there != present.end())
                noteMove(*there->second);
            const bool stays = there != present.end() && old.size - start >= section.pageSize
                && part.size() == static_cast<qsizetype>(section.pageSize)
                && part == before.sliced(from, part.size());
            if (stays) {
                section.pages.push_back(addPage(section, start, m_file.packedPage(*there->second)));
            } else if (!isZero(part)) { // such a page has no place in the file
                QByteArray plain = part.toByteArray();
                constexpr qsizetype kLeast = 4; // that can be packed
                plain.resize(std::max<qsizetype>(section.pageSize, kLeast), '\0');
                const QByteArray packed = section.compressed ? Lz77::pack(plain) : plain;
                section.pages.push_back(addPage(section, start, {packed, Checksums::page(packed)}));
            }
        }
    }
    m_sections[static_cast<int>(&old - m_file.sections().data())] = std::move(section);
}

QByteArray PagedFileWriter::sectionMap() const
{
    QByteArray map = m_file.sectionMapHead();
    for (const auto& [place, section] : m_sections) {
        QByteArray head = section.head;
        put<quint64>(head, 0, section.size);
        put(head, 8, static_cast<quint32>(section.pages.size()));
        map += head;
        for (const PagedFile::SectionPage& part : section.pages) {
            append(map, static_cast<quint32>(part.number));
            append(map, part.packedSize);
            append(map, static_cast<quint32>(part.start));
            append(map, static_cast<quint32>(part.start >> 32));
        }
    }
    return map;
}

QByteArray PagedFileWriter::pageMap() const
{
    QByteArray map;
    for (const PagedFile::Page& page : m_pages) {
        append(map, static_cast<quint32>(page.number));
        append(map, page.size);
    }
    return map;
}

void PagedFileWriter::moveAddress(qsizetype field)
{
    const auto address = word<quint32>(m_out.constData() + field);
    const auto moved = m_moved.find(quint64(address) - kDataHead);
    if (moved != m_moved.end())
        put(m_out, field, static_cast<quint32>(moved->second + kDataHead));
}

void PagedFileWriter::finishHeads(quint64 mapEnd)
{
    for (const qsizetype field : kDataAddresses)
        moveAddress(field);
    QByteArray head = maskedHead(m_file.image().view(kHeadAt, kHeadAt + kHeadSize));
    const PagedFile::Page& map = m_pages.back();
    const auto last = static_cast<quint32>(map.number);
    put(head, kLastPage, last);
    put<quint64>(head, kLastPageEnd, mapEnd - kFirstPage);
    put<quint64>(head, kHeadCopyAddress, mapEnd);
    for (const int field : {kGapRoot, kLowestLeftGap, kLowestRightGap, kGaps, kHighestGap})
        put<quint32>(head, field, 0);
    put(head, kPages, static_cast<quint32>(m_pages.size()));
    put(head, kPageMapNumber, last);
    put<quint64>(head, kPageMapAddress, map.offset - kFirstPage);
    put(head, kSectionMapNumber, last - 1);
    put(head, kHighestPage, last);
    put<quint32>(head, kHeadSum, 0);
    put(head, kHeadSum, Checksums::crc32(head));
    const QByteArray masked = maskedHead(head);
    m_out.replace(static_cast<qsizetype>(kHeadAt), kHeadSize, masked);
    m_out += masked;
}

DrawingPieces PagedFileWriter::result()
{
    m_out = m_file.image().view(0, kFirstPage).toByteArray();
    // Sections keep their order in the file, which differs from that of their map.
    // One that has had no pages comes behind that which follows it in the map.
    std::vector<std::pair<quint64, const PagedFile::Section*>> order;
    quint64 place = std::numeric_limits<quint64>::max();
    const auto& sections = m_file.sections();
    for (auto section = sections.rbegin(); section != sections.rend(); ++section) {
        const PagedFile::Page* first =
            section->pages.empty() ? nullptr : m_file.page(section->pages.front().number);
        if (first)
            place = first->offset;
        order.emplace_back(place, &*section);
    }
    std::stable_sort(order.begin(), order.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    for (const auto& [offset, section] : order)
        addSection(*section);

    const auto addMap = [&](quint32 type, const QByteArray& map) {
        const auto offset = static_cast<quint64>(m_out.size());
        m_out += systemPage(type, map);
        PagedFile::Page& page = m_pages.back();
        page.offset = offset;
        page.size = static_cast<quint32>(static_cast<quint64>(m_out.size()) - offset);
    };
    m_pages.push_back({static_cast<int>(m_pages.size()) + 1, 0, 0});
    addMap(kSectionMapType, sectionMap());
    // The page map tells its own size, which it has when it is packed.
    m_pages.push_back({static_cast<int>(m_pages.size()) + 1, 0, 0});
    const qsizetype mapAt = m_out.size();
    addMap(kPageMapType, pageMap());
    for (quint32 told = 0; told != m_pages.back().size;) {
        told = m_pages.back().size;
        m_out.truncate(mapAt);
        addMap(kPageMapType, pageMap());
        m_pages.back().size = std::max(told, m_pages.back().size);
    }
    const quint64 end = m_pages.back().offset + m_pages.back().size;
    m_out.resize(static_cast<qsizetype>(end), '\0');
    finishHeads(end);
    return pieces();
}

DrawingPieces PagedFileWriter::pieces()
{
    DrawingPieces pieces;
    pieces.owned.push_back(m_out);
    const QByteArrayView whole(pieces.owned.back());
    qsizetype at = 0;
    for (const Copy& copy : m_copies) {
        if (copy.file > at)
            pieces.parts.push_back(whole.sliced(at, copy.file - at));
        pieces.parts.push_back(
            m_file.image().view(copy.image, copy.image + static_cast<quint64>(copy.size)));
        at = copy.file + copy.size;
    }
    pieces.parts.push_back(whole.sliced(at));
    return pieces;
}
