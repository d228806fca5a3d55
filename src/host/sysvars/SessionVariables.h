#pragma once

#include "host/sysvars/SysvarDefinition.h"

/// System variables that tell what the program is doing.
namespace session_variables {
SysvarValue cmdactive(const SysvarContext& context, const SysvarDefinition&);
SysvarValue cmdnames(const SysvarContext& context, const SysvarDefinition&);
SysvarValue undoctl(const SysvarContext& context, const SysvarDefinition&);
SysvarValue dbmod(const SysvarContext& context, const SysvarDefinition&);
SysvarValue dwgname(const SysvarContext& context, const SysvarDefinition&);
SysvarValue dwgprefix(const SysvarContext& context, const SysvarDefinition&);
SysvarValue dwgtitled(const SysvarContext& context, const SysvarDefinition&);
SysvarValue writestat(const SysvarContext& context, const SysvarDefinition&);
SysvarValue undomarks(const SysvarContext& context, const SysvarDefinition&);
/// What the view shows; they raise OdError where nothing is shown.
SysvarValue viewctr(const SysvarContext& context, const SysvarDefinition&);
SysvarValue viewsize(const SysvarContext& context, const SysvarDefinition&);
} // namespace session_variables
