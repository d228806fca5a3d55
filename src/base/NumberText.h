#pragma once

#include <QByteArrayView>

#include <optional>

/// Numbers as drawing files spell them: blanks around, an optional sign. Nothing where the text is
/// no number.
namespace NumberText {
std::optional<qint64> integer(QByteArrayView text);
std::optional<double> real(QByteArrayView text);
/// Hexadecimal, 1 to 16 digits.
std::optional<quint64> handle(QByteArrayView text);
} // namespace NumberText
