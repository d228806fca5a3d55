#pragma once

#include <span>

/// What the program answers to its caller.
enum class ExitStatus {
    Done = 0,
    Usage = 1,
    BadInput = 3,
    CannotWrite = 4,
    Refused = 5,
    SomeFailed = 6
};

struct ExitStatusInfo
{
    ExitStatus status;
    const char* text;
};

/// As help and manual list them.
std::span<const ExitStatusInfo> exitStatuses();
/// Which one counts where several apply.
const char* exitPrecedence();
