#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// A file name or another argument as text. Nothing for bytes that are no text: decoded all the
/// same, they would name another file.
std::optional<QString> decodedName(const QByteArray& bytes);
