#include "io/DrawingFile.h"

#include "io/DrawingCodec.h"
#include "io/DrawingEndings.h"
#include "io/dwg/DwgCodec.h"
#include "io/dxf/DxfCodec.h"
#include "io/files/AtomicFile.h"
#include "io/files/WrittenBytes.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <new>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("DrawingFile", text);
}

const DrawingCodec& codecFor(const FileImage& image)
{
    static const DxfCodec dxf;
    static const DwgCodec dwg;
    static const std::array<const DrawingCodec*, 2> codecs = {&dxf, &dwg};
    constexpr quint64 kHead = 4096;
    image.waitFor(kHead);
    const auto head = image.view(0, std::min(image.size(), kHead));
    const auto found = std::find_if(codecs.begin(), codecs.end(), [&](const DrawingCodec* codec) {
        return codec->recognises(head);
    });
    if (found == codecs.end())
        throw OdError_InvalidDrawing(
            image.name(), 1,
            tr("this is no DXF drawing and no DWG drawing; expected group 0 with SECTION, a "
               "comment (group 999), or the name of a DWG version."));
    return **found;
}

std::unique_ptr<OdDbDatabase> readImage(std::shared_ptr<const FileImage> image,
                                        const IoProgress& progress)
{
    const DrawingCodec& codec = codecFor(*image);
    return codec.read(std::move(image), progress);
}

void requireFormat(const DrawingSource& source, const QString& path)
{
    const QString format = formatOfEnding(QFileInfo(path).suffix());
    if (format.isEmpty() || format == source.suffix())
        return;
    throw OdError_FileAccess(
        OdResult::CantWriteFile,
        tr("%1 was not written: the drawing was read from a %2 file and is saved as one; "
           "expected a name that ends in .%3.")
            .arg(path, source.suffix().toUpper(), source.suffix()));
}

} // namespace

QString drawingSuffix(const OdDbDatabase& database)
{
    const auto* source = dynamic_cast<const DrawingSource*>(database.source());
    return source ? source->suffix() : QStringLiteral("dxf");
}

QString writingRefusal(const OdDbDatabase& database)
{
    const auto* source = dynamic_cast<const DrawingSource*>(database.source());
    return source ? source->refusal() : QString();
}

void requireWritable(const OdDbDatabase& database, const QString& path)
{
    const DrawingSource& source = DrawingSource::of(database);
    requireFormat(source, path);
    if (const QString refusal = source.refusal(); !refusal.isEmpty())
        throw OdError_FileAccess(OdResult::CantWriteFile, source.readOnlySentence());
}

QString DrawingSource::readOnlySentence() const
{
    return tr("The drawing is open for reading only. %1 Its layer states can be exported and used "
              "in other drawings.")
        .arg(refusal());
}

const DrawingSource& DrawingSource::of(const OdDbDatabase& database)
{
    const auto* source = dynamic_cast<const DrawingSource*>(database.source());
    if (!source)
        throw OdError_FileAccess(OdResult::CantWriteFile,
                                 tr("The drawing was made without a file format to write."));
    return *source;
}

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
                        const IoProgress& progress, const SaveOptions& options)
{
    const DrawingSource& source = DrawingSource::of(database);
    requireFormat(source, path);
    AtomicFile file(path);
    DrawingPieces pieces = source.write(database);
    file.write(pieces.parts, progress);
    source.verify(database, pieces, WrittenBytes(file.temporaryPath()));
    SaveReport report = std::move(pieces.report);
    if (const QString problem = options.keepBackup ? file.keepBackup() : QString();
        !problem.isEmpty())
        report.warnings << problem;
    file.commit();
    report.bytes = pieces.size();
    report.file = {file.identity(), file.contentHash(), FileLayout::runsOf(pieces, source.image())};
    return report;
}

QByteArray drawingBytes(const OdDbDatabase& database)
{
    const DrawingPieces pieces = DrawingSource::of(database).write(database);
    QByteArray bytes;
    bytes.reserve(static_cast<qsizetype>(pieces.size()));
    for (const QByteArrayView part : pieces.parts)
        bytes.append(part.data(), part.size());
    return bytes;
}
