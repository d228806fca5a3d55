#pragma once

#include "host/sysvars/SysvarDefinition.h"

/// System variables that tell what the program is doing.
namespace session_variables {
SysvarValue cmdactive(const SysvarContext& context);
SysvarValue cmdnames(const SysvarContext& context);
SysvarValue undoctl(const SysvarContext& context);
SysvarValue dbmod(const SysvarContext& context);
SysvarValue dwgname(const SysvarContext& context);
SysvarValue dwgprefix(const SysvarContext& context);
} // namespace session_variables
