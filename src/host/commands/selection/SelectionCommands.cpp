#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/commands/HostCommand.h"
#include "host/commands/selection/SelectionPrompt.h"
#include "host/text/HostText.h"

namespace {

/// The entities that the user selects; empty when none. Raises OdError when it is cancelled.
SelectionPrompt::Entities select(const HostCommandRun& run, const SelectionPrompt::Rules& rules)
{
    SelectionPrompt prompt(run.core(), run.document(), rules);
    switch (prompt.run()) {
    case SelectionPrompt::End::Cancelled:
        throw OdError(OdResult::Cancelled, HostText::tr("*Cancel*"));
    case SelectionPrompt::End::Unasked:
        throw OdError(OdResult::InvalidInput,
                      HostText::tr("Objects are to be selected, and the line names none."));
    default:
        return prompt.entities();
    }
}

void selectObjects(const HostCommandRun& run)
{
    SelectionPrompt::Rules rules;
    rules.takesPickSet = run.isInteractive();
    select(run, rules);
}

void erase(const HostCommandRun& run)
{
    SelectionPrompt::Rules rules;
    rules.takesLocked = false;
    const SelectionPrompt::Entities entities = select(run, rules);
    OdDbDatabase& drawing = *run.document().database();
    for (const OdDbObjectId id : entities)
        drawing.eraseTree(id);
    if (!entities.empty()) {
        run.tell(entities.size() == 1 ? HostText::tr("1 erased.")
                                      : HostText::tr("%1 erased.").arg(entities.size()));
    }
}

constexpr HostCommandDefinition kCommands[] = {
    {"ERASE", OdEd::kUsePickSet, erase},
    {"SELECT", OdEd::kUsePickSet, selectObjects},
};

} // namespace

std::span<const HostCommandDefinition> selectionCommands()
{
    return kCommands;
}
