#include "support/drawings/DwgCopy.h"

#include "support/TestFailure.h"
#include "support/drawings/SharedDrawings.h"

#include <QFile>

namespace {
QByteArray bytesOf(const char* drawing)
{
    QFile file(SharedDrawings::file(QString::fromLatin1(drawing)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString put(const QByteArray& bytes, const QString& path)
{
    QFile file(path);
    if (bytes.isEmpty() || !file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        reportTestFailure(path + QStringLiteral(" was not made."));
    return path;
}
} // namespace

QString DwgCopy::make(const char* drawing, const QString& path)
{
    return put(bytesOf(drawing), path);
}

QString DwgCopy::makeDamaged(const QString& path)
{
    QByteArray bytes = bytesOf(kVersion2000);
    // In the middle of the file there are records of objects.
    if (const qsizetype middle = bytes.size() / 2; middle > 0)
        bytes[middle] = static_cast<char>(~bytes[middle]);
    return put(bytes, path);
}
