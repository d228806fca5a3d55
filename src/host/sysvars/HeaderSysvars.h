#pragma once

#include "host/sysvars/SysvarDefinition.h"

/// Accessors of variables that are header variables of the drawing under the same name, of one
/// group. Setting is undoable; the drawing's listeners are told.
namespace header_variables {
SysvarValue get(const SysvarContext& context, const SysvarDefinition& row);
void set(const SysvarContext& context, const SysvarDefinition& row, const SysvarValue& value);
} // namespace header_variables
