#include "host/application/HostCore.h"
#include "host/commands/HostCommand.h"
#include "host/sysvars/SysvarTable.h"
#include "host/text/HostText.h"

namespace {
QString valueText(const HostSysvarManager& sysvars, const SysvarDefinition& variable)
{
    const QString text = sysvars.text(QLatin1String(variable.name));
    return variable.isText ? QLatin1Char('"') + text + QLatin1Char('"') : text;
}

QString line(const HostSysvarManager& sysvars, const SysvarDefinition& variable)
{
    QString text =
        QStringLiteral("%1 = %2").arg(QLatin1String(variable.name), valueText(sysvars, variable));
    if (variable.isReadOnly())
        text += HostText::tr(" (cannot be set)");
    return text;
}

void listAll(const HostCommandRun& run)
{
    for (const SysvarDefinition& variable : sysvarTable()) {
        if (variable.place != SysvarPlace::Drawing || run.core().documents().curDocument())
            run.print(line(run.core().sysvars(), variable));
    }
}

void setvar(const HostCommandRun& run)
{
    HostSysvarManager& sysvars = run.core().sysvars();
    const QString name = run.answer(HostText::tr("Variable name, or ? for all:"));
    if (name == QLatin1String("?")) {
        listAll(run);
        return;
    }
    const SysvarDefinition* variable = findSysvar(name);
    const bool wantsValue = run.hasAnswer();
    if (variable && !wantsValue && (variable->isReadOnly() || !run.isInteractive())) {
        run.print(line(sysvars, *variable));
        return;
    }
    const QString current = variable ? valueText(sysvars, *variable) : QString();
    const QString answer =
        run.answer(HostText::tr("New value for %1 <%2>:").arg(name.toUpper(), current));
    if (!answer.isEmpty())
        sysvars.setText(name, answer);
}

constexpr HostCommandDefinition kCommands[] = {
    {"SETVAR", OdEd::kTransparent, setvar},
};
} // namespace

std::span<const HostCommandDefinition> variableCommands()
{
    return kCommands;
}
