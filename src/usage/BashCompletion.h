#pragma once

#include "usage/CompletedProgram.h"

/// A script for bash; it needs nothing but bash itself.
QString bashCompletion(const CompletedProgram& program);
