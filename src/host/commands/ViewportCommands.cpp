#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/commands/HostCommand.h"
#include "host/commands/drawing/PointText.h"
#include "host/text/HostText.h"

namespace {

OdDbDatabase& sheetOf(const HostCommandRun& run)
{
    OdDbDatabase& drawing = *run.document().database();
    if (drawing.getTILEMODE()) {
        throw OdError(OdResult::NotApplicable,
                      HostText::tr("Viewports are worked in on a sheet; this is model space."));
    }
    return drawing;
}

/// The smallest of them around a point of the sheet, or null.
const SheetViewport* viewportAt(const std::vector<SheetViewport>& viewports, Vec2 point)
{
    const SheetViewport* found = nullptr;
    for (const SheetViewport& viewport : viewports) {
        const bool isSmaller =
            !found || viewport.width * viewport.height < found->width * found->height;
        if (viewport.frame().contains(point) && isSmaller)
            found = &viewport;
    }
    return found;
}

void modelSpace(const HostCommandRun& run)
{
    OdDbDatabase& drawing = sheetOf(run);
    const std::vector<SheetViewport> viewports = run.document().picks().contents().openViewports();
    if (viewports.empty()) {
        throw OdError(
            OdResult::NotApplicable,
            HostText::tr("The sheet has no viewport that is on and looks straight down."));
    }
    const SheetViewport* viewport = &viewports.front();
    if (run.hasAnswer()) {
        const Vec2 point = run.point(HostText::tr("A point of the sheet in the viewport")).plan();
        viewport = viewportAt(viewports, point);
        if (!viewport) {
            throw OdError(OdResult::InvalidInput,
                          HostText::tr("There is no viewport at %1.").arg(point_text::of(point)));
        }
    }
    drawing.setActiveViewport(drawing.idOfSlot(viewport->slot));
}

void paperSpace(const HostCommandRun& run)
{
    OdDbDatabase& drawing = sheetOf(run);
    const std::vector<OdDbObjectId> viewports = drawing.viewportsOf(drawing.getPaperSpaceId());
    if (!viewports.empty())
        drawing.setActiveViewport(viewports.front());
}

constexpr HostCommandDefinition kCommands[] = {
    {"MSPACE", 0, modelSpace},
    {"PSPACE", 0, paperSpace},
};

} // namespace

std::span<const HostCommandDefinition> viewportCommands()
{
    return kCommands;
}
