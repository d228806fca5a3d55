#pragma once

#include "usage/CompletedProgram.h"

/// The script that completes the program's command line in that shell, "bash" or "fish"; an empty
/// text for other shells.
QString shellCompletion(const QString& shell, const CompletedProgram& program);
