#pragma once

#include <QString>

/// Raises OdError with InvalidInput, and the reason, for a name that no layer may have: an empty
/// one, one of 255 characters or more, one with control characters or any of < > / " : ; ? * | , =
/// ` and backslash.
void requireLayerName(const QString& name);
