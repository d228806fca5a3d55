#include "kest/ManPage.h"

#include "host/application/HostOptionTable.h"
#include "host/text/HostText.h"
#include "usage/Roff.h"

namespace {
QString synopsis()
{
    QString text = roff::section(QStringLiteral("SYNOPSIS"));
    const auto calls = hostCalls();
    for (std::size_t i = 0; i < calls.size(); ++i)
        text += roff::call(QStringLiteral("kest"), QLatin1String(calls[i]), i == 0);
    return text;
}

QString options()
{
    QString text = roff::section(QStringLiteral("OPTIONS"));
    for (const HostOptionInfo& option : hostOptionTable()) {
        if (option.text)
            text += roff::item(hostOptionText(option), HostText::tr(option.text));
    }
    return text;
}

QString files()
{
    return roff::section(QStringLiteral("FILES"))
        + roff::item(QStringLiteral("~/.config/kest/kest.ini"),
                     HostText::tr("The settings, unless --config says where they are."))
        + roff::item(QStringLiteral("~/.local/share/kest/recovery"),
                     HostText::tr("What is needed to bring back unsaved changes after a crash."))
        + roff::item(QStringLiteral("FILE~"),
                     HostText::tr("What stood in a file before the first save of a session."));
}

QString exits()
{
    QString text = roff::section(QStringLiteral("EXIT STATUS"));
    for (const HostExitInfo& exit : hostExits())
        text += roff::item(QLatin1String(exit.code), HostText::tr(exit.text));
    return text;
}
} // namespace

QString hostManPage()
{
    return roff::pageHead(QStringLiteral("kest"), QStringLiteral(KEST_VERSION),
                          HostText::tr("view CAD drawings and manage their layers"))
        + synopsis() + roff::section(QStringLiteral("DESCRIPTION"))
        + roff::line(HostText::tr(hostSummary()))
        + roff::paragraph(HostText::tr(
            "A script holds what can be typed into the window's command line. Both are described "
            "in share/doc/kest/commands.md, and in the help that F1 opens."))
        + options() + files() + exits() + roff::section(QStringLiteral("SEE ALSO"))
        + roff::line(QStringLiteral("layerman(1)"));
}
