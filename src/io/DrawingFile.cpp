#include "io/DrawingFile.h"

#include "io/DrawingCodec.h"
#include "io/dxf/DxfCodec.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <array>
#include <new>

namespace {

constexpr qsizetype kWriteStep = qsizetype(4) << 20;
constexpr quint64 kReportStep = quint64(16) << 20;

QString tr(const char* text)
{
    return QCoreApplication::translate("DrawingFile", text);
}

const DrawingCodec& codecFor(const FileImage& image)
{
    static const DxfCodec dxf;
    static const std::array<const DrawingCodec*, 1> codecs = {&dxf};
    constexpr quint64 kHead = 4096;
    image.waitFor(kHead);
    const auto head = image.view(0, std::min(image.size(), kHead));
    const auto found = std::find_if(codecs.begin(), codecs.end(), [&](const DrawingCodec* codec) {
        return codec->recognises(head);
    });
    if (found == codecs.end()) {
        // DWG files start with the name of their version.
        const bool isDwg =
            head.startsWith("AC10") || head.startsWith("AC1.") || head.startsWith("AC2.");
        throw OdError_InvalidDrawing(
            image.name(), isDwg ? 0 : 1,
            isDwg ? tr("this is a DWG drawing; only DXF can be opened yet.")
                  : tr("this is no DXF drawing; expected group 0 with SECTION, or a comment (group "
                       "999)."));
    }
    return **found;
}

std::unique_ptr<OdDbDatabase> readImage(std::shared_ptr<const FileImage> image,
                                        const IoProgress& progress)
{
    const DrawingCodec& codec = codecFor(*image);
    return codec.read(std::move(image), progress);
}

DrawingPieces piecesOf(const OdDbDatabase& database)
{
    const auto* source = dynamic_cast<const DrawingSource*>(database.source());
    if (!source)
        throw OdError_FileAccess(OdResult::CantWriteFile,
                                 tr("The drawing was made without a file format to write."));
    return source->write(database);
}

/// Collects small pieces into large writes; hands large ones through.
class PieceWriter
{
public:
    PieceWriter(QSaveFile& file, const QString& path, quint64 total, const IoProgress& progress)
        : m_file(file)
        , m_path(path)
        , m_total(total)
        , m_progress(progress)
    {
        m_buffer.reserve(kWriteStep);
    }

    void add(QByteArrayView piece)
    {
        while (!piece.isEmpty()) {
            const qsizetype step = std::min(piece.size(), kWriteStep);
            if (m_buffer.size() + step > kWriteStep)
                flush();
            if (m_buffer.isEmpty() && step >= kWriteStep / 4)
                put(piece.first(step));
            else
                m_buffer.append(piece.data(), step);
            piece = piece.sliced(step);
        }
    }
    void flush()
    {
        if (!m_buffer.isEmpty())
            put(m_buffer);
        m_buffer.resize(0);
    }

private:
    void put(QByteArrayView bytes)
    {
        if (m_file.write(bytes.data(), bytes.size()) != bytes.size())
            throw OdError_FileAccess(OdResult::CantWriteFile,
                                     tr("%1 cannot be written: %2. The file is as it was.")
                                         .arg(m_path, m_file.errorString()));
        m_done += static_cast<quint64>(bytes.size());
        if (m_done < m_nextReport)
            return;
        m_nextReport = m_done + kReportStep;
        if (m_progress && !m_progress(m_done, m_total))
            throw OdError(OdResult::Cancelled,
                          tr("Saving %1 was cancelled. The file is as it was.").arg(m_path));
    }

    QSaveFile& m_file;
    const QString& m_path;
    quint64 m_total;
    const IoProgress& m_progress;
    QByteArray m_buffer;
    quint64 m_done = 0;
    quint64 m_nextReport = 0;
};

} // namespace

quint64 DrawingPieces::size() const
{
    quint64 bytes = 0;
    for (const QByteArrayView part : parts)
        bytes += static_cast<quint64>(part.size());
    return bytes;
}

std::unique_ptr<OdDbDatabase> readDrawing(const QString& path, const IoProgress& progress)
{
    try {
        return readImage(FileImage::load(path), progress);
    } catch (const std::bad_alloc&) {
        throw OdError_FileAccess(OdResult::CantOpenFile,
                                 tr("%1 needs more memory than there is.").arg(path));
    }
}

std::unique_ptr<OdDbDatabase> readDrawing(const QByteArray& bytes, const QString& name)
{
    return readImage(FileImage::copyOf(bytes, name), {});
}

SaveReport writeDrawing(const OdDbDatabase& database, const QString& path,
                        const IoProgress& progress)
{
    if (QFileInfo(path).isDir())
        throw OdError_FileAccess(OdResult::CantWriteFile,
                                 tr("%1 is a folder; expected a file name.").arg(path));
    DrawingPieces pieces = piecesOf(database);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw OdError_FileAccess(
            OdResult::CantWriteFile,
            tr("%1 cannot be written: %2. The file is as it was.").arg(path, file.errorString()));
    PieceWriter writer(file, path, pieces.size(), progress);
    for (const QByteArrayView part : pieces.parts)
        writer.add(part);
    writer.flush();
    if (!file.commit())
        throw OdError_FileAccess(
            OdResult::CantWriteFile,
            tr("%1 cannot be written: %2. The file is as it was.").arg(path, file.errorString()));
    pieces.report.bytes = pieces.size();
    return pieces.report;
}

QByteArray drawingBytes(const OdDbDatabase& database)
{
    const DrawingPieces pieces = piecesOf(database);
    QByteArray bytes;
    bytes.reserve(static_cast<qsizetype>(pieces.size()));
    for (const QByteArrayView part : pieces.parts)
        bytes.append(part.data(), part.size());
    return bytes;
}
