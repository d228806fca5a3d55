#pragma once

#include "layerman/Report.h"

class Output;
class ParsedCommand;

/// layerman set. Raises UsageError, and OdError for a list of files that cannot be read.
void runSetCommand(const ParsedCommand& command, Output& output, Report& report);
