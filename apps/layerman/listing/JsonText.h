#pragma once

#include <QString>

/// Pieces of JSON.
namespace json_text {

/// In quotes; control characters, and what is no valid text, escaped or replaced.
QString string(const QString& text);
inline QString boolean(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}
/// `"key": `, to be followed by the value.
inline QString key(const QString& name)
{
    return string(name) + QStringLiteral(": ");
}

} // namespace json_text
