#pragma once

#include "layerman/arguments/ParsedCommand.h"

enum class StateAction { List, Save, Restore, Rename, Delete, Export, Import };

/// What "layerman states" can do.
struct StateActionInfo
{
    StateAction action;
    const char* name;
    const char* arguments; ///< placeholders for the help
    int argumentCount;
    std::span<const OptionId> options; ///< that make sense for it; --help is not listed
    const char* text; ///< for the help
    const char* done; ///< what the last line tells, "%1" being how many states
    const char* wouldBeDone; ///< the same of a dry run

    /// Whether it changes the drawing.
    bool isEdit() const { return wouldBeDone != nullptr; }
};

std::span<const StateActionInfo> stateActions();
/// "rename NAME NEWNAME".
QString stateActionText(const StateActionInfo& action);

/// The operands of "layerman states": drawings, the word of an action, and what belongs to it.
struct StateOperands
{
    /// Raises UsageError where there is no action, no drawing, another number of arguments than the
    /// action has, or an option that is not for it.
    explicit StateOperands(const ParsedCommand& command);

    const StateActionInfo* action = nullptr;
    QStringList files;
    QStringList arguments;
};
