#pragma once

#include "host/commands/CommandOutcome.h"

/// Exit codes of the programs. Of several that happened in a run the worst counts: a file that was
/// not written, then input that could not be read, then a command that failed.
enum class ExitCode { Ok = 0, Usage = 1, BadInput = 3, CannotWrite = 4, CommandFailed = 6 };

ExitCode exitCodeOf(const CommandOutcome& outcome);
ExitCode worse(ExitCode a, ExitCode b);
