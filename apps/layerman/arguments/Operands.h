#pragma once

#include "layerman/arguments/ParsedCommand.h"

/// The value of --format, or the command's own. Raises UsageError for one that it does not know.
QString formatOf(const ParsedCommand& command);

/// The operands that are files. Raises UsageError when there is none.
const QStringList& requiredFiles(const ParsedCommand& command, const QStringList& files);
