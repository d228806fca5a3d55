#include "host/application/HostOptions.h"

#include "host/application/HostOptionTable.h"
#include "host/text/HostText.h"
#include "usage/WrappedText.h"

namespace {
using Mode = HostOptions::Mode;

HostOptions failed(const QString& sentence)
{
    HostOptions options;
    options.mode = Mode::Error;
    options.error = sentence;
    return options;
}

const HostOptionInfo* findOption(const QString& argument)
{
    const QString name = argument == QLatin1String("-h") ? QStringLiteral("--help") : argument;
    for (const HostOptionInfo& option : hostOptionTable()) {
        if (name == QLatin1String(option.name))
            return &option;
    }
    return nullptr;
}

bool needsOneFile(Mode mode)
{
    return mode == Mode::Batch || mode == Mode::Screenshot;
}
} // namespace

HostOptions HostOptions::parse(const QStringList& arguments)
{
    HostOptions result;
    bool optionsEnded = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (optionsEnded || argument == QLatin1String("-")
            || !argument.startsWith(QLatin1Char('-'))) {
            result.files << argument;
            continue;
        }
        if (argument == QLatin1String("--")) {
            optionsEnded = true;
            continue;
        }
        const qsizetype equals = argument.indexOf(QLatin1Char('='));
        const QString name = argument.left(equals);
        const HostOptionInfo* option = findOption(name);
        if (!option)
            return failed(HostText::tr("There is no option %1.").arg(name));
        if (option->value) {
            if (equals < 0 && ++i == arguments.size())
                return failed(HostText::tr("%1 needs a value.").arg(name));
            result.*option->value = equals < 0 ? arguments[i] : argument.mid(equals + 1);
        } else if (equals >= 0) {
            return failed(HostText::tr("%1 takes no value.").arg(name));
        }
        if (option->choosesMode) {
            if (result.mode != Mode::Window && result.mode != option->mode)
                return failed(HostText::tr("%1 does not go with another mode.").arg(name));
            result.mode = option->mode;
        }
    }
    if (needsOneFile(result.mode) && result.files.size() > 1)
        return failed(
            HostText::tr("One drawing can be given; there are %1.").arg(result.files.size()));
    if (result.mode == Mode::Batch && result.script == QLatin1String("-")
        && result.files.contains(QStringLiteral("-")))
        return failed(HostText::tr("Standard input is the script or the drawing, not both."));
    return result;
}

QString HostOptions::usage()
{
    QString text;
    for (const char* call : hostCalls())
        text += (text.isEmpty() ? HostText::tr("Usage: ") : QStringLiteral("       "))
            + QStringLiteral("kest ") + QLatin1String(call) + QLatin1Char('\n');
    text += QLatin1Char('\n') + HostText::tr(hostSummary()) + QLatin1Char('\n');
    text += QLatin1Char('\n') + HostText::tr("Options:") + QLatin1Char('\n');
    for (const HostOptionInfo& option : hostOptionTable()) {
        if (option.text)
            text += usageRow(hostOptionText(option), HostText::tr(option.text));
    }
    text += QLatin1Char('\n') + HostText::tr("Exit codes:") + QLatin1Char('\n');
    for (const HostExitInfo& exit : hostExits())
        text += usageRow(QLatin1String(exit.code), HostText::tr(exit.text));
    return text;
}
