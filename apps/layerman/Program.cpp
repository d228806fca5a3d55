#include "layerman/Program.h"

#include "base/StopSignal.h"
#include "database/values/OdError.h"
#include "layerman/AbridgedText.h"
#include "layerman/CompanionText.h"
#include "layerman/Output.h"
#include "layerman/Report.h"
#include "layerman/arguments/Completion.h"
#include "layerman/arguments/DecodedName.h"
#include "layerman/arguments/HelpText.h"
#include "layerman/arguments/ManPage.h"
#include "layerman/arguments/NearestName.h"
#include "layerman/arguments/ParsedCommand.h"
#include "layerman/arguments/UsageError.h"
#include "layerman/editing/SetCommand.h"
#include "layerman/listing/FiltersCommand.h"
#include "layerman/listing/ListCommand.h"
#include "layerman/states/StatesCommand.h"
#include "usage/ShellCompletion.h"

namespace {
/// As shells tell it of a program that a signal ended.
constexpr int kSignalled = 128;
constexpr QLatin1String kCompletion("--completion=");

const QString& programName()
{
    static const QString name = QStringLiteral("layerman");
    return name;
}

const CommandInfo& commandOf(const QString& name)
{
    QStringList names;
    for (const CommandInfo& command : commands()) {
        if (name == QLatin1String(command.name))
            return command;
        names << QLatin1String(command.name);
    }
    throw UsageError(CompanionText::tr("There is no command \"%1\"; the nearest is %2.")
                         .arg(abridged(name), nearest_name::of(name, names).value(0)));
}

void run(const ParsedCommand& command, Output& output, Report& report)
{
    switch (command.command().id) {
    case CommandId::List:
        return runListCommand(command, output, report);
    case CommandId::Filters:
        return runFiltersCommand(command, output, report);
    case CommandId::Set:
        return runSetCommand(command, output, report);
    case CommandId::States:
        return runStatesCommand(command, output, report);
    }
}

ExitStatus runCommand(const CommandInfo& command, const QStringList& arguments, Output& output)
{
    Report report;
    try {
        const ParsedCommand parsed(command, arguments);
        if (parsed.has(OptionId::Help))
            output.print(commandHelp(command));
        else
            run(parsed, output, report);
        return report.status();
    } catch (const OdError& error) {
        output.complain(programName(), error.description());
        return ExitStatus::BadInput;
    }
}

/// What stands alone, without a command; an empty text for anything else.
QString programText(const QString& argument)
{
    if (argument == QLatin1String("--help") || argument == QLatin1String("-h"))
        return programHelp();
    if (argument == QLatin1String("--version"))
        return QStringLiteral("layerman " KEST_VERSION "\n");
    // For the build, which makes manual and completions with them.
    if (argument == QLatin1String("--man-page"))
        return manPage();
    if (argument.startsWith(kCompletion))
        return shellCompletion(argument.mid(kCompletion.size()), completedCompanion());
    return {};
}

QStringList decoded(const QByteArrayList& arguments)
{
    QStringList texts;
    for (const QByteArray& argument : arguments) {
        const auto text = decodedName(argument);
        if (!text)
            throw UsageError(CompanionText::tr("\"%1\" holds bytes that are no text.")
                                 .arg(abridged(QString::fromUtf8(argument))));
        texts << *text;
    }
    return texts;
}

ExitStatus runArguments(const QByteArrayList& bytes, Output& output, std::FILE* errors)
{
    const CommandInfo* command = nullptr;
    try {
        const QStringList arguments = decoded(bytes);
        if (arguments.value(0).isEmpty())
            throw UsageError(CompanionText::tr("A command is needed."));
        if (const QString text = programText(arguments.first()); !text.isEmpty()) {
            output.print(text);
            return ExitStatus::Done;
        }
        if (arguments.first().startsWith(QLatin1Char('-')))
            throw UsageError(
                CompanionText::tr("A command is needed before %1.").arg(arguments.first()));
        command = &commandOf(arguments.first());
        return runCommand(*command, arguments.mid(1), output);
    } catch (const UsageError& error) {
        output.complain(programName(), error.sentence());
        Output(errors, errors).print(usageHint(command));
        return ExitStatus::Usage;
    }
}
} // namespace

int runCompanion(const QByteArrayList& arguments, std::FILE* outputStream, std::FILE* errors)
{
    const StopSignal stop;
    Output output(outputStream, errors);
    ExitStatus status = runArguments(arguments, output, errors);
    if (!output.isWhole()) {
        output.complain(programName(),
                        CompanionText::tr("What was listed could not be printed to its end."));
        status = ExitStatus::CannotWrite;
    }
    if (const int signal = StopSignal::number(); signal != 0)
        return kSignalled + signal;
    return static_cast<int>(status);
}
