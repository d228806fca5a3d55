#pragma once

#include "io/dwg/groups/GroupContext.h"

/// A text of several lines, which may be a record of its own or stand within an attribute.
namespace MTextParts {

void decode(const GroupContext& context);

} // namespace MTextParts
