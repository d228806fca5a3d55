#pragma once

#include <QByteArrayView>

/// Check sums of the DWG format.
namespace Checksums {

/// CRC-16 with the polynomial 0xA001, of records (seed 0xC0C1), the object map and sections.
quint16 crc16(QByteArrayView bytes, quint16 seed = 0xC0C1);
/// CRC-32 with the polynomial 0xEDB88320, not inverted at its ends unless the seed says so.
quint32 crc32(QByteArrayView bytes, quint32 seed = 0);
/// Two sums modulo 0xFFF1, of pages since version 2004.
quint32 page(QByteArrayView bytes, quint32 seed = 0);

} // namespace Checksums
