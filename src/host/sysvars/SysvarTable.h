#pragma once

#include "host/sysvars/SysvarDefinition.h"

#include <span>

/// All system variables, by name.
std::span<const SysvarDefinition> sysvarTable();

/// The variable of that name, whatever its case; null when there is none. Hashed.
const SysvarDefinition* findSysvar(const QString& name);
