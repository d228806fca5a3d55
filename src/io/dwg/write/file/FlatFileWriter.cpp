#include "io/dwg/write/file/FlatFileWriter.h"

#include "io/dwg/bits/BitReader.h"
#include "io/dwg/bits/BitWriter.h"
#include "io/dwg/bits/Checksums.h"
#include "io/dwg/sections/PreviewSection.h"

#include <QCoreApplication>
#include <QtEndian>

namespace {

// The second header: its length, its own address, then what the first header tells of the sections
// and the handles of the tables, with the next free handle first.
constexpr QByteArrayView
    kSecondStart("\xD4\x7B\x21\xCE\x28\x93\x9F\xBF\x53\x24\x40\x09\x12\x3C\xAA\x01", 16);
constexpr QByteArrayView
    kSecondEnd("\x2B\x84\xDE\x31\xD7\x6C\x60\x40\xAC\xDB\xBF\xF6\xED\xC3\x55\xFE", 16);
constexpr quint64 kVersionBits = (6 + 7) * 8;
constexpr quint64 kUnknownBits = 44;
constexpr qsizetype kBehindSum = 8; ///< bytes of unknown use

void appendAddress(BitWriter& out, quint64 value)
{
    out.bitLong(static_cast<qint32>(value));
}

} // namespace

void FlatFileWriter::replace(int number, const QByteArray& bytes)
{
    for (const FlatFile::Locator& locator : m_file.locators()) {
        if (locator.number == number && locator.size > 0)
            m_edits[locator.offset] = {quint64(locator.offset) + locator.size, bytes};
    }
}

void FlatFileWriter::replaceObjects(quint64 begin, quint64 end, const QByteArray& bytes)
{
    m_edits[begin] = {end, bytes};
}

quint64 FlatFileWriter::moved(quint64 offset) const
{
    quint64 place = offset;
    for (const auto& [begin, edit] : m_edits) {
        if (begin >= offset)
            break;
        place += static_cast<quint64>(edit.bytes.size()) - (edit.end - begin);
    }
    return place;
}

void FlatFileWriter::patchLocators()
{
    const auto count = static_cast<quint64>(m_file.locators().size());
    const quint64 end = FlatFile::kLocatorsAt + count * FlatFile::kLocatorSize;
    QByteArray head = m_file.image().view(0, end + 2).toByteArray();
    qToLittleEndian(static_cast<quint32>(moved(m_file.previewAt())),
                    head.data() + FlatFile::kPreviewAt);
    auto at = static_cast<qsizetype>(FlatFile::kLocatorsAt);
    for (const FlatFile::Locator& locator : m_file.locators()) {
        const auto edit = m_edits.find(locator.offset);
        const auto size = edit == m_edits.end() || locator.size == 0
            ? locator.size
            : static_cast<quint32>(edit->second.bytes.size());
        if (locator.offset != 0)
            qToLittleEndian(static_cast<quint32>(moved(locator.offset)), head.data() + at + 1);
        qToLittleEndian(size, head.data() + at + 5);
        at += FlatFile::kLocatorSize;
    }
    qToLittleEndian(Checksums::crc16(QByteArrayView(head).first(at)), head.data() + at);
    m_edits[0] = {end + 2, head};
}

QByteArray FlatFileWriter::secondHeader(QByteArrayView old, quint64 place) const
{
    // Behind the start mark; the sum covers all up to itself.
    BitReader in(old);
    BitWriter out;
    in.rawLong();
    in.bitLong();
    out.rawLong(0);
    appendAddress(out, place);
    quint64 from = in.position();
    in.skip(kVersionBits + kUnknownBits);
    out.append(old, from, in.position());
    for (std::size_t i = 0; i < m_file.locators().size(); ++i) {
        const quint8 number = in.rawChar();
        const auto offset = static_cast<quint32>(in.bitLong());
        const auto size = static_cast<quint32>(in.bitLong());
        const auto edit = m_edits.find(offset);
        out.rawChar(number);
        appendAddress(out, offset == 0 ? 0 : moved(offset));
        appendAddress(out,
                      edit == m_edits.end() || size == 0
                          ? size
                          : static_cast<quint64>(edit->second.bytes.size()));
    }
    const qint16 handles = in.bitShort();
    out.bitShort(handles);
    for (int i = 0; i < handles && !in.hasFailed(); ++i) {
        const quint8 length = in.rawChar();
        const quint8 number = in.rawChar();
        QByteArray handle = in.bytes(length);
        if (number == 0 && m_seed != 0) {
            handle.clear();
            for (quint64 rest = m_seed; rest != 0; rest >>= 8)
                handle.prepend(static_cast<char>(rest & 0xFF));
        }
        out.rawChar(static_cast<quint8>(handle.size()));
        out.rawChar(number);
        out.raw(handle);
    }
    if (in.hasFailed())
        return {};
    out.fillByte(false);
    QByteArray bytes = out.bytes();
    qToLittleEndian(static_cast<quint32>(bytes.size() + 2 + kBehindSum), bytes.data());
    const quint16 sum = Checksums::crc16(bytes);
    bytes.append(static_cast<char>(sum & 0xFF));
    bytes.append(static_cast<char>(sum >> 8));
    return bytes;
}

bool FlatFileWriter::rebuildSecondHeader()
{
    const QByteArrayView image = m_file.image().view();
    const qsizetype start = image.lastIndexOf(kSecondStart);
    const qsizetype end = start < 0 ? -1 : image.indexOf(kSecondEnd, start);
    if (start < 0)
        return true; // there is none
    if (end < 0 || end - start < kSecondStart.size() + kBehindSum)
        return false;
    const QByteArrayView old =
        image.sliced(start + kSecondStart.size(), end - kBehindSum - start - kSecondStart.size());
    const auto begin = static_cast<quint64>(start + kSecondStart.size());
    QByteArray rebuilt = secondHeader(old, moved(static_cast<quint64>(start)));
    // What stands behind it moves with its own length.
    for (qsizetype length = 0; !rebuilt.isEmpty() && length != rebuilt.size();) {
        length = rebuilt.size();
        m_edits[begin] = {static_cast<quint64>(end - kBehindSum), rebuilt};
        rebuilt = secondHeader(old, moved(static_cast<quint64>(start)));
    }
    if (!rebuilt.isEmpty())
        m_edits[begin].bytes = rebuilt;
    return !rebuilt.isEmpty();
}

void FlatFileWriter::movePreview()
{
    const quint64 at = m_file.previewAt();
    const auto by = static_cast<qint64>(moved(at) - at);
    const QByteArray list = by == 0 || at >= m_file.image().size()
        ? QByteArray()
        : PreviewSection::movedList(m_file.image().view(at, m_file.image().size()), by);
    if (!list.isEmpty())
        m_edits[at] = {at + static_cast<quint64>(list.size()), list};
}

DrawingPieces FlatFileWriter::result()
{
    DrawingPieces pieces;
    if (!rebuildSecondHeader())
        pieces.report.notKept << QCoreApplication::translate(
            "FlatFileWriter",
            "The second header at the end of the file is damaged and was left as it is; other CAD "
            "programs use it to repair a drawing.");
    movePreview();
    patchLocators();
    quint64 at = 0;
    for (const auto& [begin, edit] : m_edits) {
        if (begin > at)
            pieces.parts.push_back(m_file.image().view(at, begin));
        pieces.owned.push_back(edit.bytes);
        pieces.parts.push_back(pieces.owned.back());
        at = edit.end;
    }
    if (at < m_file.image().size())
        pieces.parts.push_back(m_file.image().view(at, m_file.image().size()));
    return pieces;
}
