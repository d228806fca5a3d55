#include "host/application/HostOptionTable.h"

#include <QtGlobal>

namespace {
using Mode = HostOptions::Mode;

constexpr HostOptionInfo kOptions[] = {
    {"--batch", Mode::Batch, true, &HostOptions::script, "SCRIPT",
     QT_TRANSLATE_NOOP("Host",
                       "Run the commands of SCRIPT, one per line, without a window; - is standard "
                       "input, for SCRIPT or for FILE.")},
    {"--screenshot", Mode::Screenshot, true, &HostOptions::picture, "PNG",
     QT_TRANSLATE_NOOP("Host", "Draw the window into a picture, print the layers and end.")},
    {"--config", Mode::Window, false, &HostOptions::configFolder, "DIR",
     QT_TRANSLATE_NOOP("Host", "Keep the settings in DIR.")},
    {"--help", Mode::Help, true, nullptr, nullptr, QT_TRANSLATE_NOOP("Host", "Show this text.")},
    {"--version", Mode::Version, true, nullptr, nullptr,
     QT_TRANSLATE_NOOP("Host", "Show the version.")},
    {"--man-page", Mode::ManPage, true, nullptr, nullptr, nullptr},
    {"--completion", Mode::Completion, true, &HostOptions::shell, "SHELL", nullptr},
};

constexpr const char* kCalls[] = {
    "[--config DIR] [FILE...]",
    "[--config DIR] --batch SCRIPT [FILE]",
    "[--config DIR] --screenshot PNG [FILE]",
};

constexpr HostExitInfo kExits[] = {
    {"0", QT_TRANSLATE_NOOP("Host", "Everything was done.")},
    {"1", QT_TRANSLATE_NOOP("Host", "The program was called in a wrong way.")},
    {"3", QT_TRANSLATE_NOOP("Host", "A drawing or a script could not be read.")},
    {"4", QT_TRANSLATE_NOOP("Host", "A file could not be written.")},
    {"6", QT_TRANSLATE_NOOP("Host", "A command failed.")},
    {"128+N", QT_TRANSLATE_NOOP("Host", "The signal of number N stopped the script.")},
};
} // namespace

std::span<const HostOptionInfo> hostOptionTable()
{
    return kOptions;
}

std::span<const char* const> hostCalls()
{
    return kCalls;
}

std::span<const HostExitInfo> hostExits()
{
    return kExits;
}

const char* hostSummary()
{
    return QT_TRANSLATE_NOOP(
        "Host", "Opens drawings in a window, or runs a script over one without a window.");
}

QString hostOptionText(const HostOptionInfo& option)
{
    QString text = QLatin1String(option.name);
    if (option.mode == Mode::Help)
        text.prepend(QStringLiteral("-h, "));
    return option.argument ? text + QLatin1Char(' ') + QLatin1String(option.argument) : text;
}
