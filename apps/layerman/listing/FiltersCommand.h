#pragma once

#include "layerman/Report.h"

class Output;
class ParsedCommand;

/// layerman filters. Raises UsageError, and OdError for a list of files that cannot be read.
void runFiltersCommand(const ParsedCommand& command, Output& output, Report& report);
