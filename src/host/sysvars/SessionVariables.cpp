#include "host/sysvars/SessionVariables.h"

#include "host/commands/CommandState.h"
#include "host/documents/HostDocument.h"

#include <QDir>
#include <QFileInfo>

namespace {
/// Bits of CMDACTIVE.
enum Active { Command = 1, Transparent = 2, Script = 4 };
/// Bits of UNDOCTL.
enum UndoControl { UndoOn = 1, Grouped = 4, GroupOpen = 8 };
} // namespace

namespace session_variables {

SysvarValue cmdactive(const SysvarContext& context)
{
    if (!context.commands || !context.commands->isActive())
        return 0;
    return Command | (context.commands->names().size() > 1 ? Transparent : 0)
        | (context.commands->isScript() ? Script : 0);
}

SysvarValue cmdnames(const SysvarContext& context)
{
    return context.commands ? context.commands->names().join(QLatin1Char('\'')) : QString();
}

SysvarValue undoctl(const SysvarContext& context)
{
    const bool group = context.document && context.document->isUndoGroupOpen();
    return UndoOn | Grouped | (group ? GroupOpen : 0);
}

SysvarValue dbmod(const SysvarContext& context)
{
    return context.document && context.document->isModified() ? 1 : 0;
}

SysvarValue dwgname(const SysvarContext& context)
{
    return context.document ? QFileInfo(context.document->fileName()).fileName() : QString();
}

SysvarValue dwgprefix(const SysvarContext& context)
{
    if (!context.document || !context.document->hasFile())
        return QString();
    return QString(QFileInfo(context.document->fileName()).absolutePath() + QLatin1Char('/'));
}

} // namespace session_variables
