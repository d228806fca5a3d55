#pragma once

#include <QByteArrayView>

/// The compression of pages in DWG files of version 2007. It is not the one of the other versions:
/// operations are coded otherwise, and runs of plain bytes stand in parts, the last one first.
namespace Lz77Of2007 {

/// Unpacks into `size` bytes. Returns how many there were, or -1 where the input is broken or has
/// more.
qsizetype unpack(QByteArrayView packed, char* out, qsizetype size);

} // namespace Lz77Of2007
