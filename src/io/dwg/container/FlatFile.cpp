#include "io/dwg/container/FlatFile.h"

#include "io/dwg/bits/Checksums.h"

#include <QCoreApplication>
#include <QtEndian>

namespace {

constexpr quint64 kCountAt = 0x15;
constexpr quint32 kMostLocators = 32; ///< known files have up to 6

QString tr(const char* text)
{
    return QCoreApplication::translate("FlatFile", text);
}

} // namespace

FlatFile::FlatFile(const std::shared_ptr<const FileImage>& image, DrawingVersion version)
    : DwgFile(image, version)
{
    const auto count = qFromLittleEndian<quint32>(bytes(kCountAt, 4).data());
    if (count < 3 || count > kMostLocators)
        fail(kCountAt, tr("%1 sections; expected 3 to %2.").arg(count).arg(kMostLocators));
    const QByteArrayView table = bytes(kLocatorsAt, count * kLocatorSize);
    for (quint32 i = 0; i < count; ++i) {
        const char* at = table.data() + i * kLocatorSize;
        const Locator locator{static_cast<uchar>(at[0]), qFromLittleEndian<quint32>(at + 1),
                              qFromLittleEndian<quint32>(at + 5)};
        bytes(locator.offset, locator.size);
        m_locators.push_back(locator);
    }
    const quint64 end = kLocatorsAt + count * kLocatorSize;
    if (Checksums::crc16(bytes(0, end)) != qFromLittleEndian<quint16>(bytes(end, 2).data()))
        addFault(tr("The check sum of the file's head is wrong."));
}

quint64 FlatFile::previewAt() const
{
    return qFromLittleEndian<quint32>(bytes(kPreviewAt, 4).data());
}

QByteArrayView FlatFile::section(DwgSection section) const
{
    if (section == DwgSection::Objects)
        return image().view();
    return locatedBytes(static_cast<int>(section));
}

QByteArrayView FlatFile::locatedBytes(int number) const
{
    for (const Locator& locator : m_locators) {
        if (locator.number == number)
            return image().view(locator.offset, quint64(locator.offset) + locator.size);
    }
    return {};
}
