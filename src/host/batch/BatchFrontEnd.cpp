#include "host/batch/BatchFrontEnd.h"

#include "io/DrawingFile.h"

void BatchFrontEnd::print(const QString& line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), m_output);
    std::fflush(m_output); // in order with what goes to the error stream
}

std::unique_ptr<OdDbDatabase> BatchFrontEnd::readDrawingFile(const QString& path)
{
    return readDrawing(path);
}

SaveReport BatchFrontEnd::writeDrawingFile(const OdDbDatabase& drawing, const QString& path,
                                           const SaveOptions& options)
{
    return writeDrawing(drawing, path, {}, options);
}
