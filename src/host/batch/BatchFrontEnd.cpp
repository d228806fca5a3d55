#include "host/batch/BatchFrontEnd.h"

#include "base/StopSignal.h"
#include "io/DrawingFile.h"

namespace {
bool goesOn(quint64, quint64)
{
    return StopSignal::number() == 0;
}
} // namespace

void BatchFrontEnd::print(const QString& line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), m_output);
    std::fflush(m_output); // in order with what goes to the error stream
}

std::unique_ptr<OdDbDatabase> BatchFrontEnd::readDrawingFile(const QString& path)
{
    return readDrawing(path, goesOn);
}

SaveReport BatchFrontEnd::writeDrawingFile(const OdDbDatabase& drawing, const QString& path,
                                           const SaveOptions& options)
{
    // Taken back at a stop signal: the file is as it was, and nothing lies beside it.
    return writeDrawing(drawing, path, goesOn, options);
}
