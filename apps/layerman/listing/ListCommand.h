#pragma once

#include "layerman/Report.h"

class Output;
class ParsedCommand;

/// layerman list. Raises UsageError, and OdError for a list of files that cannot be read.
void runListCommand(const ParsedCommand& command, Output& output, Report& report);
