#include "host/commands/selection/SelectEntities.h"

#include "database/values/OdError.h"
#include "host/application/HostCore.h"
#include "host/commands/selection/SelectionPrompt.h"
#include "host/text/HostText.h"
#include "sdk/KestSSGet.h"
#include "sdk/KestStatus.h"

namespace {

SelectionPrompt::Rules rulesOf(const KestSelectionRequest& request, bool keepsPickSet)
{
    const auto on = [&](KestSelectionSwitch which) {
        return request.switches[static_cast<std::size_t>(which)];
    };
    SelectionPrompt::Rules rules;
    rules.prompt = request.prompt;
    rules.removePrompt = request.secondPrompt.value_or(QString());
    rules.types = request.filter;
    rules.takesMany = on(KestSelectionSwitch::Many);
    rules.takesKeywords = on(KestSelectionSwitch::Keywords);
    rules.takesRectangles = on(KestSelectionSwitch::Rectangles);
    rules.takesPickSet = on(KestSelectionSwitch::PickSet) && keepsPickSet;
    rules.takesLocked = on(KestSelectionSwitch::Locked);
    rules.tellsCounts = on(KestSelectionSwitch::Counts);
    rules.isRemembered = on(KestSelectionSwitch::Remember);
    return rules;
}

int pickAt(HostCore& core, HostDocument& document, const KestSelectionRequest& request,
           const SelectionPrompt::Rules& rules, KestSelectionSet& selection)
{
    const SelectionFinder finder(document, core.frontEnd().view());
    const auto found = finder.at({request.point->x(), request.point->y()});
    selection.entities = SelectionFinder::keep(found, rules.types, rules.takesLocked).entities;
    if (selection.entities.empty())
        return kest::kNone;
    if (rules.isRemembered)
        document.selection().setPrevious(selection.entities);
    return kest::kNormal;
}

} // namespace

int selectEntities(HostCore& core, const KestSelectionRequest& request, KestSelectionSet& selection)
{
    selection.entities.clear();
    if (request.outFlag)
        *request.outFlag = false;
    HostDocument* document = core.documents().curDocument();
    if (!document)
        return kest::kError;
    const auto rules = rulesOf(request, core.commands().runningKeepsPickSet());
    try {
        if (request.point)
            return pickAt(core, *document, request, rules, selection);
        SelectionPrompt prompt(core, *document, rules);
        const SelectionPrompt::End end = prompt.run();
        selection.entities = prompt.entities();
        if (end == SelectionPrompt::End::Done)
            document->selection().clear();
        if (request.outFlag)
            *request.outFlag = prompt.isEndedByKeyword();
        switch (end) {
        case SelectionPrompt::End::Done:
            return kest::kNormal;
        case SelectionPrompt::End::None:
            return kest::kNone;
        case SelectionPrompt::End::Cancelled:
            return kest::kCancel;
        case SelectionPrompt::End::Unasked:
            core.commands().noteFailure(
                HostText::tr("Objects are to be selected, and the line names none."));
            return kest::kError;
        }
    } catch (const OdError& error) {
        // Modules are not prepared for errors that are raised through them.
        core.commands().noteFailure(error.description());
    }
    return kest::kError;
}
