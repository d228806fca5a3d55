#pragma once

#include "database/states/PortableLayerState.h"
#include "layerman/states/StateActions.h"

#include <optional>
#include <vector>

class LayerStates;
class OdDbDatabase;
class Output;

/// What an edit of the layer states of a drawing came to.
struct StateEditOutcome
{
    int done = 0; ///< states
    int refused = 0;
};

/// One of the actions that change layer states, on one drawing after the other.
class StateEdit
{
public:
    /// Reads what the action needs: raises UsageError for a mask that is none, and OdError for a
    /// layer-state file that cannot be read.
    StateEdit(const ParsedCommand& command, const StateOperands& operands);

    /// Does it in memory; what a rule refuses is told. Raises OdError for a state that the drawing
    /// has not; nothing is changed then.
    StateEditOutcome apply(OdDbDatabase& drawing, const QString& file, Output& output) const;

private:
    void perform(OdDbDatabase& drawing) const;
    void save(OdDbDatabase& drawing) const;
    void restore(OdDbDatabase& drawing) const;
    StateEditOutcome import(OdDbDatabase& drawing, const QString& file, Output& output) const;
    void take(const PortableLayerState& state, LayerStates& states) const;

    StateAction m_action;
    QStringList m_arguments;
    std::optional<int> m_mask;
    std::optional<QString> m_description;
    std::vector<PortableLayerState> m_imported;
    bool m_replaces;
    bool m_turnsOffMissing;
    bool m_tellsChanges;
};
