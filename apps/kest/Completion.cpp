#include "kest/Completion.h"

#include "host/application/HostOptionTable.h"
#include "host/text/HostText.h"
#include "usage/DrawingSuffixes.h"

namespace {
using Kind = CompletedValue::Kind;

CompletedValue valueOf(const HostOptionInfo& option)
{
    if (!option.value)
        return {};
    if (option.value == &HostOptions::configFolder)
        return {Kind::Folder, {}};
    if (option.value == &HostOptions::picture)
        return {Kind::File, {QStringLiteral("png")}};
    return {Kind::File, {}};
}
} // namespace

CompletedProgram completedHost()
{
    CompletedProgram program;
    program.name = QStringLiteral("kest");
    program.plain.suffixes = drawingSuffixes();
    for (const HostOptionInfo& option : hostOptionTable()) {
        if (option.text)
            program.plain.options.push_back(
                {{QLatin1String(option.name)}, HostText::tr(option.text), valueOf(option)});
    }
    return program;
}
