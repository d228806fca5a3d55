#include "host/sysvars/SessionVariables.h"

#include "database/values/OdError.h"
#include "host/application/HostFrontEnd.h"
#include "host/application/HostView.h"
#include "host/commands/CommandState.h"
#include "host/documents/HostDocument.h"
#include "host/text/HostText.h"

#include <QDir>
#include <QFileInfo>

namespace {
/// Bits of CMDACTIVE.
enum Active { Command = 1, Transparent = 2, Script = 4 };
/// Bits of UNDOCTL.
enum UndoControl { UndoOn = 1, Grouped = 4, GroupOpen = 8 };

const HostView& view(const SysvarContext& context, const SysvarDefinition& row)
{
    const HostView* shown = context.frontEnd ? context.frontEnd->view() : nullptr;
    if (!shown)
        throw OdError(OdResult::NotApplicable,
                      HostText::tr("%1 is known only while a drawing is shown in a window.")
                          .arg(QLatin1String(row.name)));
    return *shown;
}
} // namespace

namespace session_variables {

SysvarValue cmdactive(const SysvarContext& context, const SysvarDefinition&)
{
    if (!context.commands || !context.commands->isActive())
        return 0;
    return Command | (context.commands->names().size() > 1 ? Transparent : 0)
        | (context.commands->isScript() ? Script : 0);
}

SysvarValue cmdnames(const SysvarContext& context, const SysvarDefinition&)
{
    return context.commands ? context.commands->names().join(QLatin1Char('\'')) : QString();
}

SysvarValue undoctl(const SysvarContext& context, const SysvarDefinition&)
{
    const bool group = context.document && context.document->isUndoGroupOpen();
    return UndoOn | Grouped | (group ? GroupOpen : 0);
}

SysvarValue dbmod(const SysvarContext& context, const SysvarDefinition&)
{
    return context.document && context.document->isModified() ? 1 : 0;
}

SysvarValue dwgname(const SysvarContext& context, const SysvarDefinition&)
{
    return context.document ? QFileInfo(context.document->fileName()).fileName() : QString();
}

SysvarValue dwgprefix(const SysvarContext& context, const SysvarDefinition&)
{
    if (!context.document || !context.document->hasFile())
        return QString();
    return QString(QFileInfo(context.document->fileName()).absolutePath() + QLatin1Char('/'));
}

SysvarValue dwgtitled(const SysvarContext& context, const SysvarDefinition&)
{
    return context.document && context.document->hasFile() ? 1 : 0;
}

SysvarValue writestat(const SysvarContext& context, const SysvarDefinition&)
{
    return context.document && context.document->isReadOnly() ? 0 : 1;
}

SysvarValue undomarks(const SysvarContext& context, const SysvarDefinition&)
{
    return context.document ? context.document->undoMarkCount() : 0;
}

SysvarValue viewctr(const SysvarContext& context, const SysvarDefinition& row)
{
    const Vec2 centre = view(context, row).centre();
    return SysvarPoint{centre.x, centre.y, 0};
}

SysvarValue viewsize(const SysvarContext& context, const SysvarDefinition& row)
{
    return view(context, row).height();
}

} // namespace session_variables
