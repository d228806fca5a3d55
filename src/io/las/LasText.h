#pragma once

#include <QByteArray>
#include <QString>

/// Text of layer-state files. Programs write such files in the code page of their system, in UTF-8,
/// or with \U+XXXX for what is not ASCII.
namespace LasText {

/// The whole file: with a byte-order mark as that says, else as UTF-8 where all of it is valid,
/// else in the system's code page.
QString decodeFile(const QByteArray& bytes);
/// Resolves \U+XXXX: exactly four digits, one UTF-16 unit.
QString unescaped(QStringView value);

/// ASCII only: everything else, and line ends, as \U+XXXX.
QByteArray escaped(QStringView value);
/// For the name of a state, which programs read without looking for escapes: plain in the system's
/// code page where that can hold it, else as escaped().
QByteArray plainName(const QString& name);

} // namespace LasText
