#pragma once

#include "layerman/Report.h"

class Output;
class ParsedCommand;

/// layerman states. Raises UsageError, and OdError for a list of files or a layer-state file that
/// cannot be read.
void runStatesCommand(const ParsedCommand& command, Output& output, Report& report);
