#pragma once

#include "database/values/OdError.h"

/// How a command ended.
struct CommandOutcome
{
    enum class Kind { Done, Cancelled, Failed, BadInput, CannotWrite };

    Kind kind = Kind::Done;
    QString sentence; ///< why, when it is not Done

    bool isDone() const { return kind == Kind::Done; }
    static CommandOutcome of(const OdError& error);
};
