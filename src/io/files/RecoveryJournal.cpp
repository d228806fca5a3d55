#include "io/files/RecoveryJournal.h"

#include "io/DrawingCodec.h"
#include "io/files/ContentHash.h"
#include "io/files/JournalReader.h"
#include "io/files/JournalWriter.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>

#include <algorithm>

namespace {

constexpr quint64 kMark = 0x314C4E524A54534Bu; // "KSTJRNL1"
constexpr qint64 kLargestJournal = qint64(1) << 30;
/// Bytes that the shortest piece takes in a journal.
constexpr quint64 kShortestPiece = 20;

QString tr(const char* text)
{
    return QCoreApplication::translate("RecoveryJournal", text);
}

[[noreturn]] void refuse(const QString& sentence)
{
    throw OdError_FileAccess(OdResult::CantOpenFile, sentence);
}

/// Collects pieces; bytes that follow each other become one piece.
class PieceList
{
public:
    explicit PieceList(std::vector<RecoveryJournal::Piece>& pieces)
        : m_pieces(pieces)
    { }

    void addBytes(QByteArrayView bytes)
    {
        if (bytes.isEmpty())
            return;
        if (m_pieces.empty() || m_pieces.back().bytes.isEmpty())
            m_pieces.emplace_back();
        m_pieces.back().bytes.append(bytes.data(), bytes.size());
    }
    void addRange(quint64 begin, quint64 end)
    {
        const bool follows =
            !m_pieces.empty() && m_pieces.back().bytes.isEmpty() && m_pieces.back().end == begin;
        if (follows)
            m_pieces.back().end = end;
        else
            m_pieces.push_back({begin, end, {}});
    }

private:
    std::vector<RecoveryJournal::Piece>& m_pieces;
};

/// A stretch of the image, as ranges of the file where the file has it, else as bytes.
void addStretch(PieceList& list, const FileImage& image, const std::vector<ImageRun>& runs,
                quint64 begin, quint64 end)
{
    auto run = std::upper_bound(runs.begin(), runs.end(), begin,
                                [](quint64 offset, const ImageRun& candidate) {
                                    return offset < candidate.imageBegin + candidate.size;
                                });
    while (begin < end) {
        const quint64 runBegin = run == runs.end() ? end : std::min(run->imageBegin, end);
        if (begin < runBegin) {
            list.addBytes(image.view(begin, runBegin));
            begin = runBegin;
            continue;
        }
        const quint64 stop = std::min(end, run->imageBegin + run->size);
        const quint64 shift = run->fileBegin - run->imageBegin;
        list.addRange(begin + shift, stop + shift);
        begin = stop;
        ++run;
    }
}

} // namespace

RecoveryJournal RecoveryJournal::of(const OdDbDatabase& database, const FileLayout& file)
{
    const DrawingSource& source = DrawingSource::of(database);
    const FileImage& image = source.image();
    const DrawingPieces written = source.write(database);
    RecoveryJournal journal;
    journal.written = QDateTime::currentMSecsSinceEpoch();
    journal.fileSize = file.identity.size;
    journal.fileModified = file.identity.modified;
    journal.fileHash = file.hash;
    PieceList list(journal.pieces);
    for (const QByteArrayView part : written.parts) {
        if (!image.holds(part)) {
            list.addBytes(part);
            continue;
        }
        const auto begin = static_cast<quint64>(part.data() - image.begin());
        addStretch(list, image, file.runs, begin, begin + static_cast<quint64>(part.size()));
    }
    return journal;
}

QByteArray RecoveryJournal::toBytes() const
{
    JournalWriter out;
    out.putNumber(kMark);
    out.putBytes(path.toUtf8());
    out.putBytes(title.toUtf8());
    out.putNumber(static_cast<quint64>(written));
    out.putNumber(fileSize);
    out.putNumber(static_cast<quint64>(fileModified));
    out.putNumber(fileHash);
    out.putNumber(pieces.size());
    for (const Piece& piece : pieces) {
        out.putNumber(piece.begin);
        out.putNumber(piece.end);
        out.putBytes(piece.bytes);
    }
    out.putNumber(ContentHash::of(out.bytes()));
    return out.bytes();
}

RecoveryJournal RecoveryJournal::fromBytes(QByteArrayView bytes)
{
    const QString damaged = tr("The recovery file is damaged.");
    constexpr qsizetype kSum = 8;
    if (bytes.size() < kSum
        || JournalReader(bytes.last(kSum)).number() != ContentHash::of(bytes.chopped(kSum)))
        refuse(damaged);
    JournalReader in(bytes.chopped(kSum));
    if (in.number() != kMark)
        refuse(tr("The recovery file is of a kind that this program does not know."));
    RecoveryJournal journal;
    journal.path = QString::fromUtf8(in.bytes());
    journal.title = QString::fromUtf8(in.bytes());
    journal.written = static_cast<qint64>(in.number());
    journal.fileSize = in.number();
    journal.fileModified = static_cast<qint64>(in.number());
    journal.fileHash = in.number();
    const quint64 count = in.number();
    if (in.failed() || count > in.left() / kShortestPiece)
        refuse(damaged);
    journal.pieces.reserve(count);
    // What the ranges add up to bounds the size of the drawing that they make.
    quint64 unused = journal.fileSize;
    for (quint64 i = 0; i < count; ++i) {
        Piece piece{in.number(), in.number(), in.bytes().toByteArray()};
        const bool isRange = piece.begin <= piece.end && piece.end <= journal.fileSize
            && piece.end - piece.begin <= unused;
        if (in.failed() || !isRange || (!piece.bytes.isEmpty() && piece.begin != piece.end))
            refuse(damaged);
        unused -= piece.end - piece.begin;
        journal.pieces.push_back(std::move(piece));
    }
    if (in.left() != 0)
        refuse(damaged);
    return journal;
}

RecoveryJournal RecoveryJournal::load(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        refuse(tr("The recovery file %1 cannot be opened: %2.").arg(path, file.errorString()));
    if (file.size() > kLargestJournal)
        refuse(
            tr("The recovery file %1 is larger than %2 GB.").arg(path).arg(kLargestJournal >> 30));
    return fromBytes(file.read(kLargestJournal));
}

bool RecoveryJournal::fits(QByteArrayView file) const
{
    return static_cast<quint64>(file.size()) == fileSize && ContentHash::of(file) == fileHash;
}

QByteArray RecoveryJournal::applyTo(QByteArrayView file) const
{
    qsizetype size = 0;
    for (const Piece& piece : pieces)
        size += static_cast<qsizetype>(piece.end - piece.begin) + piece.bytes.size();
    QByteArray drawing;
    drawing.reserve(size);
    for (const Piece& piece : pieces) {
        drawing.append(file.sliced(static_cast<qsizetype>(piece.begin),
                                   static_cast<qsizetype>(piece.end - piece.begin)));
        drawing.append(piece.bytes);
    }
    return drawing;
}

std::vector<ImageRun> RecoveryJournal::runs() const
{
    std::vector<ImageRun> runs;
    quint64 imageBegin = 0;
    for (const Piece& piece : pieces) {
        const quint64 size = piece.end - piece.begin;
        if (size > 0)
            runs.push_back({imageBegin, piece.begin, size});
        imageBegin += size + static_cast<quint64>(piece.bytes.size());
    }
    return runs;
}
