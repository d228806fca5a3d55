#include "base/WildcardPattern.h"
#include "host/application/HostCore.h"
#include "host/commands/HostCommand.h"
#include "host/sysvars/SysvarTable.h"
#include "host/text/HostText.h"

namespace {
QString valueText(const HostSysvarManager& sysvars, const SysvarDefinition& variable)
{
    const QString text = sysvars.text(QLatin1String(variable.name));
    return variable.type == SysvarType::Text ? QLatin1Char('"') + text + QLatin1Char('"') : text;
}

QString line(const HostSysvarManager& sysvars, const SysvarDefinition& variable)
{
    QString text =
        QStringLiteral("%1 = %2").arg(QLatin1String(variable.name), valueText(sysvars, variable));
    if (variable.isReadOnly())
        text += HostText::tr(" (cannot be set)");
    return text;
}

// Variables that cannot be read now, for want of a drawing or a window, are left out.
void list(const HostCommandRun& run, const QString& text)
{
    const WildcardPattern pattern(text);
    int listed = 0;
    for (const SysvarDefinition& variable : sysvarTable()) {
        if (!pattern.matches(QString::fromLatin1(variable.name)))
            continue;
        try {
            run.print(line(run.core().sysvars(), variable));
            ++listed;
        } catch (const OdError&) {
            continue;
        }
    }
    if (listed == 0)
        run.print(HostText::tr("No system variable matches \"%1\".").arg(text));
}

void setvar(const HostCommandRun& run)
{
    HostSysvarManager& sysvars = run.core().sysvars();
    const QString name = run.answer(HostText::tr("Variable name, or ? for all:"));
    if (name == QLatin1String("?")) {
        list(run, run.answerOr(HostText::tr("Variables to list <*>:"), QStringLiteral("*")));
        return;
    }
    const SysvarDefinition* variable = findSysvar(name);
    const bool wantsValue = run.hasAnswer();
    if (variable && !wantsValue && (variable->isReadOnly() || !run.isInteractive())) {
        run.print(line(sysvars, *variable));
        return;
    }
    const QString current = variable ? valueText(sysvars, *variable) : QString();
    const QString prompt = HostText::tr("New value for %1 <%2>:").arg(name.toUpper(), current);
    run.asked(prompt, [&](const QString& answer) {
        if (!answer.isEmpty())
            sysvars.setText(name, answer);
        return true;
    });
}

constexpr HostCommandDefinition kCommands[] = {
    {"SETVAR", OdEd::kTransparent, setvar},
};
} // namespace

std::span<const HostCommandDefinition> variableCommands()
{
    return kCommands;
}
