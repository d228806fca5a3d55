#include "layerman/arguments/CommandTable.h"

#include <QtGlobal>

using enum OptionId;

namespace {
constexpr OptionInfo kOptions[] = {
    {Filter, 0, "filter", "NAME",
     QT_TRANSLATE_NOOP("layerman",
                       "The layers that this filter of the drawing shows, in whatever case its "
                       "name is given. All and All used layers are filters too.")},
    {Expr, 0, "expr", "TEXT",
     QT_TRANSLATE_NOOP("layerman",
                       "The layers that meet this filter expression: KEY==\"value\" joined with "
                       "AND, OR and parentheses. Keys are NAME, OFF, FROZEN, LOCKED, COLOR, "
                       "LINETYPE, LINEWEIGHT, PLOTTABLE, NEWVPFROZEN, VPFROZEN, VPCOLOR, "
                       "VPLINETYPE, VPLINEWEIGHT, DESC, USED and VPOVERRIDES.")},
    {Search, 0, "search", "PATTERN",
     QT_TRANSLATE_NOOP("layerman",
                       "Of these, the layers whose names match the pattern, whatever their case: * "
                       "any characters, ? one, # a digit, @ a letter, . anything else, [abc] one "
                       "of them, [~abc] none of them, ~ in front for what does not match, commas "
                       "between patterns, a back-quote before a character meant as it is.")},
    {Invert, 0, "invert", nullptr,
     QT_TRANSLATE_NOOP("layerman",
                       "The layers that filter or expression do not show; with a pattern alone, "
                       "those whose names do not match.")},
    {Columns, 0, "columns", "LIST",
     QT_TRANSLATE_NOOP("layerman", "The columns to print, with commas between.")},
    {Format, 0, "format", "FORMAT", QT_TRANSLATE_NOOP("layerman", "How the list is printed.")},
    {Inches, 0, "inches", nullptr,
     QT_TRANSLATE_NOOP("layerman", "Print lineweights in inches instead of millimetres.")},
    {OptionId::Output, 'o', "output", "OUT",
     QT_TRANSLATE_NOOP("layerman",
                       "Write to this file; or into this folder, under the drawings' own names, "
                       "when it is one or ends in a slash. A drawing that does not change is "
                       "written as it is.")},
    {InPlace, 0, "in-place", nullptr,
     QT_TRANSLATE_NOOP("layerman",
                       "Write over the drawings themselves. Those that do not change are not "
                       "touched.")},
    {DryRun, 0, "dry-run", nullptr,
     QT_TRANSLATE_NOOP("layerman", "Tell what would change, layer by layer, and write nothing.")},
    {KeepCurrentOn, 0, "keep-current-on", nullptr,
     QT_TRANSLATE_NOOP("layerman",
                       "Do not turn the current layer off; without this it is, with a note.")},
    {Backup, 0, "backup", nullptr,
     QT_TRANSLATE_NOOP("layerman", "Keep each file that is replaced under its name with ~ added.")},
    {Mask, 0, "mask", "LIST",
     QT_TRANSLATE_NOOP("layerman",
                       "The properties that a restore brings back, with commas between, or all, "
                       "or none. To restore, the state's own without this; to save a new state, "
                       "all.")},
    {TurnOffMissing, 0, "turn-off-missing", nullptr,
     QT_TRANSLATE_NOOP("layerman", "Turn off the layers that the state does not have.")},
    {Description, 0, "description", "TEXT",
     QT_TRANSLATE_NOOP("layerman", "The description of the state that is saved.")},
    {Replace, 0, "replace", nullptr,
     QT_TRANSLATE_NOOP("layerman", "Save over states that are there already.")},
    {Help, 'h', "help", nullptr, QT_TRANSLATE_NOOP("layerman", "Print help and do nothing else.")},
};

constexpr OperandInfo kFile = {
    "FILE",
    QT_TRANSLATE_NOOP("layerman",
                      "A drawing. - stands for a list of file names on standard input, one a "
                      "line.")};
constexpr OperandInfo kFileOnly[] = {kFile};
constexpr OperandInfo kSetOperands[] = {
    kFile,
    {"PROPERTY=VALUE",
     QT_TRANSLATE_NOOP("layerman",
                       "What is given to the layers, in the order of the line. A file whose name "
                       "looks like this is written with its folder: ./a=b.dxf.")},
};

constexpr OperandInfo kStatesOperands[] = {
    kFile,
    {"ACTION",
     QT_TRANSLATE_NOOP("layerman",
                       "What to do, and what belongs to it. A file that is named like an action is "
                       "written with its folder: ./list.")},
};

constexpr OptionId kListOptions[] = {Filter, Expr, Search, Invert, Columns, Format, Inches, Help};
constexpr OptionId kFiltersOptions[] = {Format, Help};
constexpr OptionId kSetOptions[] = {Filter,  Expr,   Search,        Invert, OptionId::Output,
                                    InPlace, DryRun, KeepCurrentOn, Backup, Help};

constexpr OptionId kStatesOptions[] = {
    Format,           Mask,    TurnOffMissing, Description, Replace,
    OptionId::Output, InPlace, DryRun,         Backup,      Help};

constexpr const char* kListFormats[] = {"table", "csv", "json"};
constexpr const char* kFiltersFormats[] = {"table", "json"};

constexpr CommandInfo kCommands[] = {
    {CommandId::List, "list",
     "FILE... [--filter NAME | --expr TEXT] [--search PATTERN] [--invert] [--columns LIST] "
     "[--format table|csv|json] [--inches]",
     QT_TRANSLATE_NOOP("layerman", "Prints the layers of drawings."),
     QT_TRANSLATE_NOOP("layerman",
                       "Prints the layers of each drawing by name, as the layer palette shows "
                       "them. Without filter and expression, layers whose names hold an asterisk "
                       "are left out, since those belong to programs.\n\n"
                       "csv has one line of column names, then one line for each layer; lines end "
                       "with a line feed. With several drawings and no columns chosen, the file "
                       "comes first. json is an array of one object for each drawing: file and "
                       "layers, or file and error. Yes and no are true and false there, index "
                       "colors and widths of lines are numbers, and viewport columns are null in "
                       "model space."),
     kListOptions, kFileOnly, kListFormats},
    {CommandId::Filters, "filters", "FILE... [--format table|json]",
     QT_TRANSLATE_NOOP("layerman", "Prints the layer filters of drawings."),
     QT_TRANSLATE_NOOP("layerman",
                       "Prints the filter tree of each drawing, nested filters indented, the "
                       "current one marked with *, with the expression or the number of layers "
                       "held, and the number of layers shown."),
     kFiltersOptions, kFileOnly, kFiltersFormats},
    {CommandId::Set,
     "set",
     "FILE... (--filter NAME | --expr TEXT | --search PATTERN) [--invert] PROPERTY=VALUE... "
     "(-o OUT | --in-place | --dry-run) [--keep-current-on] [--backup]",
     QT_TRANSLATE_NOOP("layerman", "Changes layers of drawings."),
     QT_TRANSLATE_NOOP("layerman",
                       "Gives properties to the chosen layers of each drawing, under the rules of "
                       "the layer palette. A layer that a rule keeps as it is is told as FILE: "
                       "LAYER: reason, and the others are changed all the same. At least one of "
                       "--filter, --expr and --search is needed; --search \"*\" takes all "
                       "layers.\n\n"
                       "A drawing is written into a temporary file, read back and compared, and "
                       "only then gets its name. While it is being worked on, the file .NAME.lock "
                       "beside it keeps other programs from editing it. A drawing that fails "
                       "leaves its file as it was."),
     kSetOptions,
     kSetOperands,
     {}},
    {CommandId::States, "states",
     "FILE... (list [--format table|json] | save NAME [--description TEXT] [--mask LIST] "
     "[--replace] | restore NAME [--mask LIST] [--turn-off-missing] | rename NAME NEWNAME | delete "
     "NAME | export NAME OUT.las | import IN.las [--replace]) [-o OUT | --in-place | --dry-run] "
     "[--backup]",
     QT_TRANSLATE_NOOP("layerman", "Lists, makes and restores layer states of drawings."),
     QT_TRANSLATE_NOOP("layerman",
                       "A layer state is a named snapshot of the settings of all layers. Names are "
                       "compared without regard to case. All actions but list and export change "
                       "the drawings and need to know where they go, as set does.\n\n"
                       "A drawing that does not have the state fails, and the others go on. A "
                       "name that is taken is refused, and told as FILE: reason."),
     kStatesOptions, kStatesOperands, kFiltersFormats},
};

constexpr OperandInfo kProgramOptions[] = {
    {"--help", QT_TRANSLATE_NOOP("layerman", "Print help; behind a command, that command's.")},
    {"--version", QT_TRANSLATE_NOOP("layerman", "Print the version.")},
};

constexpr ExampleInfo kExamples[] = {
    {"layerman list --search \"A-*\" --columns name,on,color plan.dxf",
     QT_TRANSLATE_NOOP("layerman", "The layers of a discipline, with three columns.")},
    {"layerman list --expr 'FROZEN==\"True\" AND USED==\"True\"' --format csv plans/*.dxf",
     QT_TRANSLATE_NOOP("layerman", "Frozen layers with objects on them, for a spreadsheet.")},
    {"layerman set --filter \"To review\" locked=yes color=8 --in-place plan.dxf",
     QT_TRANSLATE_NOOP("layerman", "Locks the layers of a filter and makes them grey.")},
    {"find plans -name '*.dxf' | layerman set - --search DEFPOINTS plot=no -o done/",
     QT_TRANSLATE_NOOP("layerman", "Copies of many drawings, one layer of each not plotted.")},
    {"layerman states plans/*.dxf import standard.las --replace --in-place",
     QT_TRANSLATE_NOOP("layerman", "Gives many drawings the layer states of a file.")},
};
} // namespace

std::span<const CommandInfo> commands()
{
    return kCommands;
}

const OptionInfo& optionInfo(OptionId id)
{
    return kOptions[static_cast<std::size_t>(id)];
}

std::span<const OperandInfo> programOptions()
{
    return kProgramOptions;
}

std::span<const ExampleInfo> examples()
{
    return kExamples;
}
