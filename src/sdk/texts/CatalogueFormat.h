#pragma once

#include <QByteArray>

/// What is wrong with the bytes of a compiled Qt Linguist catalogue (".qm"), for the log; null
/// where nothing is. QTranslator trusts the offsets and lengths in such a file, so only catalogues
/// whose every message was found to lie within the file are handed to it. Those that name further
/// files, or that are squeezed, are refused: ours are neither.
const char* catalogueFault(const QByteArray& bytes);
