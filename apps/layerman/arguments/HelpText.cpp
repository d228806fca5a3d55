#include "layerman/arguments/HelpText.h"

#include "layerman/CompanionText.h"
#include "layerman/ExitStatus.h"
#include "layerman/editing/PropertyTable.h"
#include "layerman/listing/ColumnTable.h"
#include "layerman/states/MaskNames.h"
#include "layerman/states/StateActions.h"
#include "usage/WrappedText.h"

#include <QStringList>

namespace {
/// Where the names of further commands stand below the first one's.
constexpr QLatin1String kBelowUsage("       ");

QString heading(const char* text)
{
    return QLatin1Char('\n') + CompanionText::tr(text) + QLatin1Char('\n');
}

QString usageOf(const CommandInfo& command, const QString& head)
{
    const QString start = head + QStringLiteral("layerman ") + QLatin1String(command.name);
    return wrappedText(start, QLatin1String(command.synopsis), start.size() + 1);
}

QString exitTexts()
{
    QString text = heading(QT_TRANSLATE_NOOP("layerman", "Exit codes:"));
    for (const ExitStatusInfo& info : exitStatuses())
        text +=
            usageRow(QString::number(static_cast<int>(info.status)), CompanionText::tr(info.text));
    return text;
}

QString optionTexts(const CommandInfo& command)
{
    QString text = heading(QT_TRANSLATE_NOOP("layerman", "Options:"));
    for (const OptionId id : command.options) {
        const OptionInfo& option = optionInfo(id);
        QString words = CompanionText::tr(option.text);
        if (id == OptionId::Format) {
            QStringList formats;
            for (const char* format : command.formats)
                formats << QLatin1String(format);
            words += QLatin1Char(' ')
                + CompanionText::tr("One of %1; %2 without this option.")
                      .arg(formats.join(QStringLiteral(", ")), formats.first());
        }
        text += usageRow(optionText(option), words);
    }
    return text;
}
} // namespace

QString optionText(const OptionInfo& option)
{
    QString text;
    if (option.letter != 0)
        text = QStringLiteral("-%1, ").arg(QLatin1Char(option.letter));
    text += QStringLiteral("--") + QLatin1String(option.name);
    if (option.argument)
        text += QLatin1Char(' ') + QLatin1String(option.argument);
    return text;
}

QString usageHint(const CommandInfo* command)
{
    QString text;
    for (const CommandInfo& info : commands()) {
        if (!command || command == &info)
            text += usageOf(info, text.isEmpty() ? CompanionText::tr("Usage: ") : kBelowUsage);
    }
    const QString help = command
        ? QStringLiteral("layerman %1 --help").arg(QLatin1String(command->name))
        : QStringLiteral("layerman --help");
    return text + CompanionText::tr("More: %1").arg(help) + QLatin1Char('\n');
}

QString programHelp()
{
    QString text;
    for (const CommandInfo& info : commands())
        text += usageOf(info, text.isEmpty() ? CompanionText::tr("Usage: ") : kBelowUsage);
    text += heading(QT_TRANSLATE_NOOP("layerman", "Commands:"));
    for (const CommandInfo& info : commands())
        text += usageRow(QLatin1String(info.name), CompanionText::tr(info.summary));
    text += heading(QT_TRANSLATE_NOOP("layerman", "Options:"));
    for (const OperandInfo& option : programOptions())
        text += usageRow(QLatin1String(option.name), CompanionText::tr(option.text));
    return text + exitTexts();
}

QString commandHelp(const CommandInfo& command)
{
    QString text = usageOf(command, CompanionText::tr("Usage: "));
    for (const QString& paragraph :
         CompanionText::tr(command.description).split(QStringLiteral("\n\n")))
        text += QLatin1Char('\n') + wrappedText({}, paragraph, 0);
    text += heading(QT_TRANSLATE_NOOP("layerman", "Arguments:"));
    for (const OperandInfo& operand : command.operands)
        text += usageRow(QLatin1String(operand.name), CompanionText::tr(operand.text));
    text += optionTexts(command);
    if (command.id == CommandId::List) {
        text += heading(QT_TRANSLATE_NOOP("layerman", "Columns:"));
        for (const ListColumn& column : listColumns())
            text += usageRow(QLatin1String(column.name), columnHelp(column));
    }
    if (command.id == CommandId::Set) {
        text += heading(QT_TRANSLATE_NOOP("layerman", "Properties:"));
        for (const PropertyInfo& property : properties())
            text += usageRow(QLatin1String(property.name) + QLatin1Char('=')
                                 + QLatin1String(property.value),
                             CompanionText::tr(property.text));
    }
    if (command.id == CommandId::States) {
        text += heading(QT_TRANSLATE_NOOP("layerman", "Actions:"));
        for (const StateActionInfo& action : stateActions())
            text += usageRow(stateActionText(action), CompanionText::tr(action.text));
        text += heading(QT_TRANSLATE_NOOP("layerman", "Properties of a mask:"));
        for (const MaskName& property : maskNames())
            text += usageRow(QLatin1String(property.name), CompanionText::tr(property.text));
    }
    return text + exitTexts() + QLatin1Char('\n')
        + wrappedText({}, CompanionText::tr(exitPrecedence()), 0);
}
