#pragma once

#include <QByteArrayView>

#include <array>

/// Values of binary groups, as BinaryScanner::value() has them.
namespace BinaryValue {

/// Room for the longest value as text: a chunk of 255 bytes.
using Scratch = std::array<char, 512>;

/// The value as a text drawing would spell it, without padding: numbers in decimal, reals with the
/// fewest digits that read back the same, chunks in hexadecimal. Texts are handed through, the rest
/// lives in `scratch`.
QByteArrayView text(int code, QByteArrayView bytes, Scratch& scratch);
/// 0 where the value is no number; texts are read as one.
double real(int code, QByteArrayView bytes);
qint64 integer(int code, QByteArrayView bytes);

} // namespace BinaryValue
