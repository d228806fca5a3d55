#include "layerman/states/StateEdit.h"

#include "database/states/LayerStates.h"
#include "database/values/OdError.h"
#include "io/las/LasReader.h"
#include "layerman/AbridgedText.h"
#include "layerman/CompanionText.h"
#include "layerman/Output.h"
#include "layerman/states/LayerChanges.h"
#include "layerman/states/MaskNames.h"

namespace {
/// Rules of the drawing, unlike a state that is not there.
bool isRefusal(const OdError& error)
{
    return error.code() == OdResult::DuplicateKey || error.code() == OdResult::InvalidKey
        || error.code() == OdResult::NotApplicable;
}

OdError taken(const QString& name)
{
    return {OdResult::DuplicateKey,
            CompanionText::tr("There is a layer state \"%1\" already; --replace saves over it.")
                .arg(abridged(name))};
}
} // namespace

StateEdit::StateEdit(const ParsedCommand& command, const StateOperands& operands)
    : m_action(operands.action->action)
    , m_arguments(operands.arguments)
    , m_description(command.value(OptionId::Description))
    , m_replaces(command.has(OptionId::Replace))
    , m_turnsOffMissing(command.has(OptionId::TurnOffMissing))
    , m_tellsChanges(command.has(OptionId::DryRun))
{
    if (const auto mask = command.value(OptionId::Mask))
        m_mask = maskFrom(*mask);
    if (m_action == StateAction::Import)
        m_imported = LasReader::readFile(m_arguments.first());
}

StateEditOutcome StateEdit::apply(OdDbDatabase& drawing, const QString& file, Output& output) const
{
    try {
        if (m_action == StateAction::Import)
            return import(drawing, file, output);
        const LayerChanges changes(drawing, file, m_tellsChanges);
        perform(drawing);
        changes.tell(output);
        return {1, 0};
    } catch (const OdError& error) {
        if (!isRefusal(error))
            throw;
        output.complain(file, error.description());
        return {0, 1};
    }
}

void StateEdit::perform(OdDbDatabase& drawing) const
{
    switch (m_action) {
    case StateAction::Save:
        return save(drawing);
    case StateAction::Restore:
        return restore(drawing);
    case StateAction::Rename:
        return LayerStates(drawing).rename(m_arguments[0], m_arguments[1]);
    case StateAction::Delete:
        return LayerStates(drawing).remove(m_arguments.first());
    case StateAction::List:
    case StateAction::Export:
    case StateAction::Import:
        break;
    }
}

void StateEdit::save(OdDbDatabase& drawing) const
{
    const QString& name = m_arguments.first();
    LayerStates states(drawing);
    const bool isThere = states.has(name);
    if (isThere && !m_replaces)
        throw taken(name);
    if (!isThere)
        states.add(name, m_description.value_or(QString()));
    if (isThere || m_mask)
        states.save(name, m_mask.value_or(states.restoreMask(name)));
    if (isThere && m_description)
        states.setDescription(name, *m_description);
}

void StateEdit::restore(OdDbDatabase& drawing) const
{
    const QString& name = m_arguments.first();
    LayerStates states(drawing);
    LayerStateRestore::Options options;
    options.mask = m_mask.value_or(states.restoreMask(name));
    options.turnOffOthers = m_turnsOffMissing;
    states.restore(name, options);
}

StateEditOutcome StateEdit::import(OdDbDatabase& drawing, const QString& file, Output& output) const
{
    LayerStates states(drawing);
    StateEditOutcome outcome;
    for (const PortableLayerState& state : m_imported) {
        try {
            take(state, states);
            ++outcome.done;
        } catch (const OdError& error) {
            if (!isRefusal(error))
                throw;
            output.complain(file, error.description());
            ++outcome.refused;
        }
    }
    return outcome;
}

void StateEdit::take(const PortableLayerState& state, LayerStates& states) const
{
    if (states.has(state.name)) {
        if (!m_replaces)
            throw taken(state.name);
        states.remove(state.name);
    }
    states.take(state);
}
