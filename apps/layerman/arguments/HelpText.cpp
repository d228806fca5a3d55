#include "layerman/arguments/HelpText.h"

#include "layerman/CompanionText.h"
#include "layerman/ExitStatus.h"
#include "layerman/editing/PropertyTable.h"
#include "layerman/listing/ColumnTable.h"
#include "layerman/states/MaskNames.h"
#include "layerman/states/StateActions.h"

#include <QStringList>

namespace {
constexpr qsizetype kWidth = 79;
constexpr qsizetype kIndent = 2;
constexpr qsizetype kTextColumn = 22;

QString blanks(qsizetype count)
{
    return QString(count, QLatin1Char(' '));
}

/// Words in lines that begin at `column`; the first line starts behind `head`.
QString wrapped(const QString& head, const QString& text, qsizetype column)
{
    QString result;
    QString line = head;
    if (line.size() >= column && !head.isEmpty()) {
        result = line + QLatin1Char('\n');
        line.clear();
    }
    line = line.leftJustified(column);
    bool isFresh = true;
    for (const QString& word : text.split(QLatin1Char(' '))) {
        if (!isFresh && line.size() + 1 + word.size() > kWidth) {
            result += line + QLatin1Char('\n');
            line = blanks(column);
            isFresh = true;
        }
        line += (isFresh ? QString() : QStringLiteral(" ")) + word;
        isFresh = false;
    }
    return result + line + QLatin1Char('\n');
}

QString row(const QString& name, const QString& text)
{
    return wrapped(blanks(kIndent) + name, text, kTextColumn);
}

QString heading(const char* text)
{
    return QLatin1Char('\n') + CompanionText::tr(text) + QLatin1Char('\n');
}

QString usageOf(const CommandInfo& command, const QString& head)
{
    const QString start = head + QStringLiteral("layerman ") + QLatin1String(command.name);
    return wrapped(start, QLatin1String(command.synopsis), start.size() + 1);
}

QString exitTexts()
{
    QString text = heading(QT_TRANSLATE_NOOP("layerman", "Exit codes:"));
    for (const ExitStatusInfo& info : exitStatuses())
        text += row(QString::number(static_cast<int>(info.status)), CompanionText::tr(info.text));
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
        text += row(optionText(option), words);
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
            text +=
                usageOf(info, text.isEmpty() ? CompanionText::tr("Usage: ") : blanks(kIndent + 5));
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
        text += usageOf(info, text.isEmpty() ? CompanionText::tr("Usage: ") : blanks(kIndent + 5));
    text += heading(QT_TRANSLATE_NOOP("layerman", "Commands:"));
    for (const CommandInfo& info : commands())
        text += row(QLatin1String(info.name), CompanionText::tr(info.summary));
    text += heading(QT_TRANSLATE_NOOP("layerman", "Options:"));
    for (const OperandInfo& option : programOptions())
        text += row(QLatin1String(option.name), CompanionText::tr(option.text));
    return text + exitTexts();
}

QString commandHelp(const CommandInfo& command)
{
    QString text = usageOf(command, CompanionText::tr("Usage: "));
    for (const QString& paragraph :
         CompanionText::tr(command.description).split(QStringLiteral("\n\n")))
        text += QLatin1Char('\n') + wrapped({}, paragraph, 0);
    text += heading(QT_TRANSLATE_NOOP("layerman", "Arguments:"));
    for (const OperandInfo& operand : command.operands)
        text += row(QLatin1String(operand.name), CompanionText::tr(operand.text));
    text += optionTexts(command);
    if (command.id == CommandId::List) {
        text += heading(QT_TRANSLATE_NOOP("layerman", "Columns:"));
        for (const ListColumn& column : listColumns())
            text += row(QLatin1String(column.name), columnHelp(column));
    }
    if (command.id == CommandId::Set) {
        text += heading(QT_TRANSLATE_NOOP("layerman", "Properties:"));
        for (const PropertyInfo& property : properties())
            text +=
                row(QLatin1String(property.name) + QLatin1Char('=') + QLatin1String(property.value),
                    CompanionText::tr(property.text));
    }
    if (command.id == CommandId::States) {
        text += heading(QT_TRANSLATE_NOOP("layerman", "Actions:"));
        for (const StateActionInfo& action : stateActions())
            text += row(stateActionText(action), CompanionText::tr(action.text));
        text += heading(QT_TRANSLATE_NOOP("layerman", "Properties of a mask:"));
        for (const MaskName& property : maskNames())
            text += row(QLatin1String(property.name), CompanionText::tr(property.text));
    }
    return text + exitTexts() + QLatin1Char('\n')
        + wrapped({}, CompanionText::tr(exitPrecedence()), 0);
}
