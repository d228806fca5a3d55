#include "layerman/states/StateActions.h"

#include "layerman/CompanionText.h"
#include "layerman/arguments/Operands.h"
#include "layerman/arguments/UsageError.h"

#include <algorithm>

using enum OptionId;

namespace {
constexpr OptionId kListOptions[] = {Format};
constexpr OptionId kSaveOptions[] = {
    Mask, OptionId::Description, Replace, OptionId::Output, InPlace, DryRun, Backup};
constexpr OptionId kRestoreOptions[] = {Mask,    TurnOffMissing, OptionId::Output,
                                        InPlace, DryRun,         Backup};
constexpr OptionId kEditOptions[] = {OptionId::Output, InPlace, DryRun, Backup};
constexpr OptionId kImportOptions[] = {Replace, OptionId::Output, InPlace, DryRun, Backup};

constexpr StateActionInfo kActions[] = {
    {StateAction::List, "list", "", 0, kListOptions,
     QT_TRANSLATE_NOOP("layerman", "Prints the states, as the layer-state manager lists them."),
     QT_TRANSLATE_NOOP("layerman", "%1 listed"), nullptr},
    {StateAction::Save, "save", "NAME", 1, kSaveOptions,
     QT_TRANSLATE_NOOP("layerman",
                       "Saves the settings of all layers as a state. One that is there already "
                       "is saved anew with --replace."),
     QT_TRANSLATE_NOOP("layerman", "%1 saved"), QT_TRANSLATE_NOOP("layerman", "%1 would be saved")},
    {StateAction::Restore, "restore", "NAME", 1, kRestoreOptions,
     QT_TRANSLATE_NOOP("layerman",
                       "Gives the layers the settings of a state. The state stays as it is."),
     QT_TRANSLATE_NOOP("layerman", "%1 restored"),
     QT_TRANSLATE_NOOP("layerman", "%1 would be restored")},
    {StateAction::Rename, "rename", "NAME NEWNAME", 2, kEditOptions,
     QT_TRANSLATE_NOOP("layerman", "Renames a state."), QT_TRANSLATE_NOOP("layerman", "%1 renamed"),
     QT_TRANSLATE_NOOP("layerman", "%1 would be renamed")},
    {StateAction::Delete, "delete", "NAME", 1, kEditOptions,
     QT_TRANSLATE_NOOP("layerman", "Deletes a state."), QT_TRANSLATE_NOOP("layerman", "%1 deleted"),
     QT_TRANSLATE_NOOP("layerman", "%1 would be deleted")},
    {StateAction::Export,
     "export",
     "NAME OUT.las",
     2,
     {},
     QT_TRANSLATE_NOOP("layerman", "Writes a state of one drawing to a layer-state file."),
     QT_TRANSLATE_NOOP("layerman", "%1 exported"),
     nullptr},
    {StateAction::Import, "import", "IN.las", 1, kImportOptions,
     QT_TRANSLATE_NOOP("layerman",
                       "Takes in all states of a layer-state file. Those that are there already "
                       "are replaced with --replace."),
     QT_TRANSLATE_NOOP("layerman", "%1 imported"),
     QT_TRANSLATE_NOOP("layerman", "%1 would be imported")},
};

const StateActionInfo* actionOf(const QString& word)
{
    const auto* found = std::ranges::find_if(kActions, [&](const StateActionInfo& action) {
        return word == QLatin1String(action.name);
    });
    return found == std::end(kActions) ? nullptr : found;
}

void refuseOtherOptions(const ParsedCommand& command, const StateActionInfo& action)
{
    for (const OptionId id : command.command().options) {
        if (command.has(id) && id != Help && std::ranges::count(action.options, id) == 0) {
            throw UsageError(
                CompanionText::tr("--%1 is not for %2.")
                    .arg(QLatin1String(optionInfo(id).name), QLatin1String(action.name)));
        }
    }
}
} // namespace

std::span<const StateActionInfo> stateActions()
{
    return kActions;
}

QString stateActionText(const StateActionInfo& action)
{
    return QStringLiteral("%1 %2")
        .arg(QLatin1String(action.name), QLatin1String(action.arguments))
        .trimmed();
}

StateOperands::StateOperands(const ParsedCommand& command)
{
    for (const QString& operand : command.operands()) {
        if (action)
            arguments << operand;
        else if (const StateActionInfo* named = actionOf(operand))
            action = named;
        else
            files << operand;
    }
    if (!action) {
        QStringList names;
        for (const StateActionInfo& known : kActions)
            names << QLatin1String(known.name);
        throw UsageError(CompanionText::tr("states needs what to do behind the drawings: %1.")
                             .arg(names.join(QStringLiteral(", "))));
    }
    requiredFiles(command, files);
    if (arguments.size() != action->argumentCount) {
        const QLatin1String name(action->name);
        throw UsageError(action->argumentCount == 0
                             ? CompanionText::tr("%1 takes nothing behind it.").arg(name)
                             : CompanionText::tr("%1 needs %2 behind it and nothing else.")
                                   .arg(name, QLatin1String(action->arguments)));
    }
    refuseOtherOptions(command, *action);
}
