#include "layerman/arguments/ManPage.h"

#include "layerman/CompanionText.h"
#include "layerman/ExitStatus.h"
#include "layerman/arguments/CommandTable.h"
#include "layerman/arguments/HelpText.h"
#include "layerman/editing/PropertyTable.h"
#include "layerman/listing/ColumnTable.h"
#include "layerman/states/MaskNames.h"
#include "layerman/states/StateActions.h"
#include "usage/Roff.h"

#include <QStringList>

#include <utility>

namespace {
using roff::item;
using roff::line;
using roff::section;

QString synopsis()
{
    QString text = section(QStringLiteral("SYNOPSIS"));
    bool isFirst = true;
    const auto add = [&](const char* name, const char* rest) {
        text += roff::call(QStringLiteral("layerman ") + QLatin1String(name), QLatin1String(rest),
                           std::exchange(isFirst, false));
    };
    for (const CommandInfo& command : commands())
        add(command.name, command.synopsis);
    for (const OperandInfo& option : programOptions())
        add(option.name, "");
    return text;
}

QString formatWords(const CommandInfo& command)
{
    QStringList formats;
    for (const char* format : command.formats)
        formats << QLatin1String(format);
    return formats.join(QStringLiteral(", "));
}

QString commandTexts()
{
    QString text = section(QStringLiteral("COMMANDS"));
    for (const CommandInfo& command : commands()) {
        text += roff::subsection(QLatin1String(command.name))
            + roff::paragraphs(CompanionText::tr(command.description));
        for (const OperandInfo& operand : command.operands)
            text += item(QLatin1String(operand.name), CompanionText::tr(operand.text));
        for (const OptionId id : command.options) {
            const OptionInfo& option = optionInfo(id);
            QString words = CompanionText::tr(option.text);
            if (id == OptionId::Format)
                words +=
                    QLatin1Char(' ') + CompanionText::tr("One of %1.").arg(formatWords(command));
            text += item(optionText(option), words);
        }
    }
    return text;
}

QString tables()
{
    QString text = section(QStringLiteral("COLUMNS"));
    for (const ListColumn& column : listColumns())
        text += item(QLatin1String(column.name), columnHelp(column));
    text += section(QStringLiteral("PROPERTIES"));
    for (const PropertyInfo& property : properties())
        text +=
            item(QLatin1String(property.name) + QLatin1Char('=') + QLatin1String(property.value),
                 CompanionText::tr(property.text));
    text += section(QStringLiteral("ACTIONS OF STATES"));
    for (const StateActionInfo& action : stateActions())
        text += item(stateActionText(action), CompanionText::tr(action.text));
    text += section(QStringLiteral("PROPERTIES OF A MASK"));
    for (const MaskName& property : maskNames())
        text += item(QLatin1String(property.name), CompanionText::tr(property.text));
    text += section(QStringLiteral("EXIT STATUS"));
    for (const ExitStatusInfo& info : exitStatuses())
        text += item(QString::number(static_cast<int>(info.status)), CompanionText::tr(info.text));
    return text + roff::paragraph(CompanionText::tr(exitPrecedence()));
}

QString exampleTexts()
{
    QString text = section(QStringLiteral("EXAMPLES"));
    for (const ExampleInfo& example : examples())
        text += item(QLatin1String(example.line), CompanionText::tr(example.text));
    return text;
}
} // namespace

QString manPage()
{
    return roff::pageHead(
               QStringLiteral("layerman"), QStringLiteral(KEST_VERSION),
               CompanionText::tr("list and change the layers of drawings from the command line"))
        + synopsis() + section(QStringLiteral("DESCRIPTION"))
        + line(CompanionText::tr("layerman works on DXF and DWG drawings without a window, a "
                                 "display or settings. What it prints goes to standard output, "
                                 "complaints and a line with counts go to standard error."))
        + line(CompanionText::tr("Options and operands stand in any order behind the command; "
                                 "-- ends the options. A value follows its option as the next "
                                 "argument or behind an equals sign."))
        + commandTexts() + tables() + exampleTexts() + section(QStringLiteral("SEE ALSO"))
        + line(QStringLiteral("kest(1)"));
}
