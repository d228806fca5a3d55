#include "layerman/arguments/ManPage.h"

#include "layerman/CompanionText.h"
#include "layerman/ExitStatus.h"
#include "layerman/arguments/CommandTable.h"
#include "layerman/arguments/HelpText.h"
#include "layerman/editing/PropertyTable.h"
#include "layerman/listing/ColumnTable.h"
#include "layerman/states/MaskNames.h"
#include "layerman/states/StateActions.h"

#include <QStringList>

#include <algorithm>

namespace {
/// Text as roff prints it unchanged.
QString plain(const QString& text)
{
    struct Special
    {
        char16_t character;
        const char* escape;
    };
    static constexpr Special kSpecials[] = {{u'\\', "\\e"},  {u'-', "\\-"},   {u'~', "\\(ti"},
                                            {u'^', "\\(ha"}, {u'`', "\\(ga"}, {u'\'', "\\(aq"},
                                            {u'"', "\\(dq"}};
    QString result;
    for (const QChar c : text) {
        const auto* found =
            std::find_if(std::begin(kSpecials), std::end(kSpecials),
                         [c](const Special& special) { return c == QChar(special.character); });
        result += found == std::end(kSpecials) ? QString(c) : QLatin1String(found->escape);
    }
    // At the start of a line a full stop begins a request.
    return result.startsWith(QLatin1Char('.')) ? QStringLiteral("\\&") + result : result;
}

QString line(const QString& text)
{
    return plain(text) + QLatin1Char('\n');
}

QString bold(const QString& text)
{
    return QStringLiteral("\\fB") + plain(text) + QStringLiteral("\\fR\n");
}

QString section(const QString& title)
{
    return QStringLiteral(".SH ") + title + QLatin1Char('\n');
}

QString item(const QString& name, const QString& text)
{
    return QStringLiteral(".TP\n") + bold(name) + line(text);
}

QString paragraphs(const QString& text)
{
    QString result;
    for (const QString& paragraph : text.split(QStringLiteral("\n\n")))
        result += (result.isEmpty() ? QString() : QStringLiteral(".PP\n")) + line(paragraph);
    return result;
}

QString synopsis()
{
    QString text = section(QStringLiteral("SYNOPSIS"));
    const auto add = [&](const QString& name, const QString& rest) {
        if (!text.endsWith(QStringLiteral("SYNOPSIS\n")))
            text += QStringLiteral(".br\n");
        text +=
            QStringLiteral("\\fBlayerman ") + plain(name) + QStringLiteral("\\fR ") + line(rest);
    };
    for (const CommandInfo& command : commands())
        add(QLatin1String(command.name), QLatin1String(command.synopsis));
    for (const OperandInfo& option : programOptions())
        add(QLatin1String(option.name), {});
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
        text += QStringLiteral(".SS ") + plain(QLatin1String(command.name)) + QLatin1Char('\n')
            + paragraphs(CompanionText::tr(command.description));
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
    return text + QStringLiteral(".PP\n") + line(CompanionText::tr(exitPrecedence()));
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
    // Neither hyphens nor wide blanks in what is to be typed.
    return QStringLiteral(".TH LAYERMAN 1 \"\" \"layerman " KEST_VERSION "\"\n.nh\n.ad l\n")
        + section(QStringLiteral("NAME")) + QStringLiteral("layerman \\- ")
        + line(CompanionText::tr("list and change the layers of drawings from the command line"))
        + synopsis() + section(QStringLiteral("DESCRIPTION"))
        + line(CompanionText::tr("layerman works on DXF drawings without a window, a display or "
                                 "settings. What it prints goes to standard output, complaints "
                                 "and a line with counts go to standard error."))
        + line(CompanionText::tr("Options and operands stand in any order behind the command; "
                                 "-- ends the options. A value follows its option as the next "
                                 "argument or behind an equals sign."))
        + commandTexts() + tables() + exampleTexts();
}
