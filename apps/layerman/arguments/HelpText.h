#pragma once

#include "layerman/arguments/CommandTable.h"

#include <QString>

/// What --help prints: the program's commands, or all about one of them.
QString programHelp();
QString commandHelp(const CommandInfo& command);
/// "Usage: ..." lines and where to find more; what stands under a complaint about usage. `command`
/// may be null.
QString usageHint(const CommandInfo* command);
/// "-o, --output OUT".
QString optionText(const OptionInfo& option);
