#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// The compression of pages in DWG files of the versions 2004 and 2010 to 2018: runs of plain bytes
/// and copies of what came before, each with an operation code.
namespace Lz77 {

/// Unpacks into `size` bytes. Returns how many there were, or -1 where the input is broken or has
/// more.
qsizetype unpack(QByteArrayView packed, char* out, qsizetype size);

/// Packs any number of bytes, at least four.
QByteArray pack(QByteArrayView plain);

} // namespace Lz77
