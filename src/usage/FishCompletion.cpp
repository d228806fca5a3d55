#include "usage/FishCompletion.h"

namespace {
using Kind = CompletedValue::Kind;

QString quoted(QString text)
{
    text.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
    return QLatin1Char('\'') + text.replace(QLatin1Char('\''), QStringLiteral("\\'"))
        + QLatin1Char('\'');
}

/// A list of offers has one line for each: the beginning of a text suffices.
QString beginning(const QString& text)
{
    qsizetype end = 0;
    while (end < text.size() && !QStringLiteral(".;:").contains(text[end]))
        ++end;
    return text.left(end);
}

QString files(const QStringList& suffixes)
{
    QStringList calls;
    for (const QString& suffix : suffixes)
        calls << QStringLiteral("(__fish_complete_suffix .%1)").arg(suffix);
    return calls.join(QLatin1Char(' '));
}

QString offers(const CompletedValue& value)
{
    switch (value.kind) {
    case Kind::None:
        return {};
    case Kind::Text:
        return QStringLiteral(" -x");
    case Kind::Words:
        return QStringLiteral(" -x -a ") + quoted(value.words.join(QLatin1Char(' ')));
    case Kind::WordList:
        return QStringLiteral(" -x -a ")
            + quoted(
                   QStringLiteral("(__fish_append , %1)").arg(value.words.join(QLatin1Char(' '))));
    case Kind::File:
        return value.words.isEmpty() ? QStringLiteral(" -r -F")
                                     : QStringLiteral(" -x -a ") + quoted(files(value.words));
    case Kind::Folder:
        return QStringLiteral(" -x -a '(__fish_complete_directories)'");
    }
    return {};
}

QString namesText(const QStringList& names)
{
    QString text;
    for (const QString& name : names)
        text += name.startsWith(QStringLiteral("--")) ? QStringLiteral(" -l ") + name.mid(2)
                                                      : QStringLiteral(" -s ") + name.mid(1);
    return text;
}

/// `start` is the call of "complete" with the condition under which the command is meant.
QString commandText(const CompletedCommand& command, const QString& start)
{
    QString text;
    for (const CompletedOption& option : command.options)
        text += start + namesText(option.names) + offers(option.value) + QStringLiteral(" -d ")
            + quoted(beginning(option.text)) + QLatin1Char('\n');
    QStringList words = command.words;
    for (const CompletedAssignment& assignment : command.assignments) {
        if (assignment.values.isEmpty())
            words << assignment.name + QLatin1Char('=');
        for (const QString& value : assignment.values)
            words << assignment.name + QLatin1Char('=') + value;
    }
    if (!words.isEmpty())
        text += start + QStringLiteral(" -a ") + quoted(words.join(QLatin1Char(' ')))
            + QLatin1Char('\n');
    if (!command.suffixes.isEmpty())
        text +=
            start + QStringLiteral(" -a ") + quoted(files(command.suffixes)) + QLatin1Char('\n');
    return text;
}
} // namespace

QString fishCompletion(const CompletedProgram& program)
{
    const QString complete = QStringLiteral("complete -c ") + program.name;
    QString text = QStringLiteral("# Completion of %1 for fish, written by the program itself.\n\n")
                       .arg(program.name)
        + complete + QStringLiteral(" -f\n");
    if (program.commands.empty())
        return text + commandText(program.plain, complete);

    const QString first = complete + QStringLiteral(" -n __fish_use_subcommand");
    text += commandText(program.plain, first);
    for (const CompletedCommand& command : program.commands)
        text += first + QStringLiteral(" -a ") + command.name + QStringLiteral(" -d ")
            + quoted(beginning(command.text)) + QLatin1Char('\n');
    for (const CompletedCommand& command : program.commands)
        text += QLatin1Char('\n')
            + commandText(
                    command,
                    complete
                        + QStringLiteral(" -n '__fish_seen_subcommand_from %1'").arg(command.name));
    return text;
}
