#pragma once

#include "host/application/HostOptions.h"

#include <span>

// What can be typed behind the program's name. Parser, help and manual are made from these tables.

struct HostOptionInfo
{
    const char* name;
    HostOptions::Mode mode;
    bool choosesMode;
    QString HostOptions::*value; ///< null when the option takes none
    const char* argument; ///< name of its value
    const char* text; ///< null for what the build alone uses
};

struct HostExitInfo
{
    const char* code;
    const char* text;
};

std::span<const HostOptionInfo> hostOptionTable();
/// What may follow the program's name, one way in each line.
std::span<const char* const> hostCalls();
std::span<const HostExitInfo> hostExits();
/// What the program does, in a sentence.
const char* hostSummary();
/// "-h, --help": the option with its other name and its value.
QString hostOptionText(const HostOptionInfo& option);
