#include "io/dwg/container/DwgFile.h"

#include "database/values/OdError.h"
#include "io/dwg/container/FlatFile.h"
#include "io/dwg/container/PagedFile.h"
#include "io/dwg/container/PagedFile2007.h"

#include <QCoreApplication>
#include <QtEndian>

namespace {

constexpr quint64 kMaintenanceAt = 0x0B;
constexpr quint64 kCodePageAt = 0x13;

QString tr(const char* text)
{
    return QCoreApplication::translate("DwgFile", text);
}

} // namespace

std::unique_ptr<DwgFile> DwgFile::open(const std::shared_ptr<const FileImage>& image)
{
    image->waitFor(image->size());
    const auto version = dwgVersion(image->view());
    if (!version)
        throw OdError_InvalidDrawing(
            image->name(), 0,
            tr("this DWG drawing is of a version that cannot be read; expected R13 to 2018."));
    if (*version <= DrawingVersion::V2000)
        return std::make_unique<FlatFile>(image, *version);
    if (*version == DrawingVersion::V2007)
        return std::make_unique<PagedFile2007>(image);
    return std::make_unique<PagedFile>(image, *version);
}

DwgFile::DwgFile(const std::shared_ptr<const FileImage>& image, DrawingVersion version)
    : m_image(image)
    , m_version(version)
{
    bytes(0, kCodePageAt + 2);
    m_maintenance = static_cast<uchar>(image->begin()[kMaintenanceAt]);
    m_codePage = qFromLittleEndian<quint16>(image->begin() + kCodePageAt);
}

void DwgFile::fail(quint64 offset, const QString& sentence) const
{
    throw OdError_InvalidDrawing::atByte(m_image->name(), offset, sentence);
}

void DwgFile::addFault(const QString& sentence)
{
    constexpr int kMostFaults = 10;
    if (m_faults.size() < kMostFaults)
        m_faults << sentence;
}

bool DwgFile::canHold(quint64 size) const
{
    constexpr quint64 kBestPacking = 64;
    constexpr quint64 kSpare = 1 << 20;
    return size <= m_image->size() * kBestPacking + kSpare;
}

bool DwgFile::claim(quint64 size)
{
    if (!canHold(size))
        return false;
    m_claimed += size;
    return canHold(m_claimed);
}

QByteArrayView DwgFile::bytes(quint64 offset, quint64 size) const
{
    if (offset > m_image->size() || size > m_image->size() - offset)
        fail(offset, tr("the file ends too early; expected %1 more bytes here.").arg(size));
    return m_image->view(offset, offset + size);
}
