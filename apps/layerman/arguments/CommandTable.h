#pragma once

#include <QStringView>

#include <span>

// What can be typed behind the program's name. Parser, help and manual are made from these tables.

enum class OptionId {
    Filter,
    Expr,
    Search,
    Invert,
    Columns,
    Format,
    Inches,
    Output,
    InPlace,
    DryRun,
    KeepCurrentOn,
    Backup,
    Mask,
    TurnOffMissing,
    Description,
    Replace,
    Help,
};

struct OptionInfo
{
    OptionId id;
    char letter; ///< short form, or 0
    const char* name; ///< without dashes
    const char* argument; ///< name of its value; null for one that takes none
    const char* text;
};

struct OperandInfo
{
    const char* name;
    const char* text;
};

enum class CommandId { List, Filters, Set, States };

struct CommandInfo
{
    CommandId id;
    const char* name;
    const char* synopsis; ///< what stands behind the command's name
    const char* summary; ///< one line
    const char* description; ///< paragraphs, an empty line between
    std::span<const OptionId> options;
    std::span<const OperandInfo> operands;
    std::span<const char* const> formats; ///< the first is the default; empty: none
};

struct ExampleInfo
{
    const char* line;
    const char* text;
};

std::span<const CommandInfo> commands();
const OptionInfo& optionInfo(OptionId id);
/// Options that stand alone, without a command: name and text. Hidden ones are not among them.
std::span<const OperandInfo> programOptions();
std::span<const ExampleInfo> examples();
