#include "host/application/HostOptions.h"

#include "host/text/HostText.h"

namespace {
struct Option
{
    const char* name;
    QString HostOptions::*value; ///< null when the option takes none
    HostOptions::Mode mode;
    bool choosesMode;
};

using Mode = HostOptions::Mode;

const Option kOptions[] = {
    {"--batch", &HostOptions::script, Mode::Batch, true},
    {"--screenshot", &HostOptions::picture, Mode::Screenshot, true},
    {"--config", &HostOptions::configFolder, Mode::Window, false},
    {"--help", nullptr, Mode::Help, true},
    {"-h", nullptr, Mode::Help, true},
    {"--version", nullptr, Mode::Version, true},
};

HostOptions failed(const QString& sentence)
{
    HostOptions options;
    options.mode = Mode::Error;
    options.error = sentence;
    return options;
}

const Option* findOption(const QString& argument)
{
    for (const Option& option : kOptions) {
        if (argument == QLatin1String(option.name))
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
        const Option* option = findOption(argument);
        if (!option)
            return failed(HostText::tr("There is no option %1.").arg(argument));
        if (option->value) {
            if (++i == arguments.size())
                return failed(HostText::tr("%1 needs a value.").arg(argument));
            result.*option->value = arguments[i];
        }
        if (option->choosesMode) {
            if (result.mode != Mode::Window && result.mode != option->mode)
                return failed(HostText::tr("%1 does not go with another mode.").arg(argument));
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
    return HostText::tr(
        "Usage: kest [--config DIR] [FILE...]\n"
        "       kest [--config DIR] --batch SCRIPT [FILE]\n"
        "       kest [--config DIR] --screenshot PNG [FILE]\n"
        "\n"
        "Opens drawings in a window, or runs a script over one without a window.\n"
        "\n"
        "  --batch SCRIPT     run the commands of SCRIPT, one per line; - is standard input,\n"
        "                     for SCRIPT or for FILE\n"
        "  --screenshot PNG   draw the window into a picture, print the layers and end\n"
        "  --config DIR       keep the settings in DIR\n"
        "  --help             show this text\n"
        "  --version          show the version\n"
        "\n"
        "Exit codes: 0 done, 1 wrong usage, 3 input that cannot be read, 4 output that\n"
        "cannot be written, 6 a command failed, 128 and the signal's number when a signal\n"
        "stopped the script.\n");
}
