#pragma once

#include "usage/CompletedProgram.h"

QString fishCompletion(const CompletedProgram& program);
