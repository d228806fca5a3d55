#pragma once

#include "usage/CompletedProgram.h"

/// The command line as shells may complete it.
CompletedProgram completedCompanion();
