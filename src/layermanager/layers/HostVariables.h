#pragma once

#include "database/values/OdDbObjectId.h"

#include <QString>

#include <optional>

/// Reads of host variables; nothing where the host refuses or there is none.
std::optional<int> readHostInt(const QString& name);
std::optional<QString> readHostString(const QString& name);
std::optional<OdDbObjectId> readHostId(const QString& name);
/// Whether the host took the value.
bool writeHostInt(const QString& name, int value);
