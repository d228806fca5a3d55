#include "usage/ShellCompletion.h"

#include "usage/BashCompletion.h"
#include "usage/FishCompletion.h"

QString shellCompletion(const QString& shell, const CompletedProgram& program)
{
    if (shell == QLatin1String("bash"))
        return bashCompletion(program);
    if (shell == QLatin1String("fish"))
        return fishCompletion(program);
    return {};
}
