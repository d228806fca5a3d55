#pragma once

#include <QByteArray>
#include <QList>

#include <random>

/// What becomes of DWG files with broken bytes.
namespace BrokenDwg {

/// What may come of broken bytes.
enum class Outcome { Refused, ReadOnly, Sound };

/// Reads bytes that may be broken, and everything that they hold. A refusal needs a sentence, and
/// a drawing with faults must not be saved.
Outcome outcome(const QByteArray& bytes);

/// Small ones of several versions: paged and flat, made and, where there are any, real ones.
QList<QByteArray> smallFiles();

/// Any place of the bytes.
qsizetype place(const QByteArray& bytes, std::mt19937& random);

} // namespace BrokenDwg
