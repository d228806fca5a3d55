#include "layerman/arguments/ParsedCommand.h"

#include "layerman/CompanionText.h"
#include "layerman/arguments/NearestName.h"
#include "layerman/arguments/UsageError.h"

namespace {
constexpr QLatin1String kDashes("--");

QString spelledOption(OptionId id)
{
    return kDashes + QLatin1String(optionInfo(id).name);
}

[[noreturn]] void refuseUnknown(const CommandInfo& command, const QString& spelled)
{
    QStringList known;
    for (const OptionId id : command.options)
        known << spelledOption(id);
    throw UsageError(
        CompanionText::tr("%1 has no option %2; the nearest is %3.")
            .arg(QLatin1String(command.name), spelled, nearest_name::of(spelled, known).value(0)));
}
} // namespace

ParsedCommand::ParsedCommand(const CommandInfo& command, const QStringList& arguments)
    : m_command(command)
{
    bool optionsEnded = false;
    for (qsizetype at = 0; at < arguments.size(); ++at) {
        const QString& argument = arguments[at];
        // A dash alone is an operand: standard input.
        if (optionsEnded || !argument.startsWith(QLatin1Char('-')) || argument.size() == 1)
            m_operands << argument;
        else if (argument == kDashes)
            optionsEnded = true;
        else if (argument.startsWith(kDashes))
            take(longOption(argument), arguments, at);
        else
            take(shortOption(argument), arguments, at);
    }
}

std::optional<QString> ParsedCommand::value(OptionId option) const
{
    const auto found = m_options.find(option);
    return found == m_options.end() ? std::nullopt : std::optional(found->second);
}

ParsedCommand::Given ParsedCommand::longOption(const QString& argument) const
{
    const qsizetype equals = argument.indexOf(QLatin1Char('='));
    const QString spelled = argument.left(equals < 0 ? argument.size() : equals);
    for (const OptionId id : m_command.options) {
        if (spelled == spelledOption(id))
            return {&optionInfo(id), spelled,
                    equals < 0 ? std::nullopt : std::optional(argument.mid(equals + 1))};
    }
    refuseUnknown(m_command, spelled);
}

ParsedCommand::Given ParsedCommand::shortOption(const QString& argument) const
{
    for (const OptionId id : m_command.options) {
        const OptionInfo& option = optionInfo(id);
        const bool isShort = option.letter != 0 && argument[1] == QLatin1Char(option.letter);
        // The value may follow at once: -oOUT.
        if (isShort && (argument.size() == 2 || option.argument))
            return {&option, argument.left(2),
                    argument.size() == 2 ? std::nullopt : std::optional(argument.mid(2))};
    }
    refuseUnknown(m_command, argument);
}

void ParsedCommand::take(Given given, const QStringList& arguments, qsizetype& at)
{
    const OptionInfo& option = *given.option;
    if (!option.argument) {
        if (given.value)
            throw UsageError(CompanionText::tr("%1 takes no value.").arg(given.spelled));
        m_options.insert_or_assign(option.id, QString());
        return;
    }
    if (!given.value) {
        if (++at == arguments.size())
            throw UsageError(CompanionText::tr("%1 needs a value: %2.")
                                 .arg(given.spelled, QLatin1String(option.argument)));
        given.value = arguments[at];
    }
    if (!m_options.emplace(option.id, *given.value).second)
        throw UsageError(CompanionText::tr("%1 is given twice.").arg(given.spelled));
}
