#pragma once

#include "layermanager/layers/LayerListing.h"

#include <QtGlobal>

#include <utility>
#include <vector>

/// What the drawing told its grid and the grid has not brought up to date yet.
struct LayerBurst
{
    using Ids = std::vector<OdDbObjectId>;

    struct Change
    {
        OdDbObjectId layer;
        bool wasListed; ///< before the burst; of a new layer: that it should be
    };

    /// So many notifications of one turn of the event loop are shown one by one; the others
    /// together, once the turn is over.
    static constexpr int kShownAtOnce = 32;

    // Of this turn
    int told = 0;
    bool armed = false; ///< the refresh timer was started
    bool rowsStale = false;
    bool countStale = false;
    bool currentStale = false;
    Ids come; ///< layers that wait for their rows
    Ids gone; ///< layers that wait for their rows to go
    std::optional<LayerListing> listing; ///< made ready for this turn

    bool waits() const
    {
        return rowsStale || countStale || currentStale || !come.empty() || !gone.empty();
    }

    // Until the timers fire
    Ids erased;
    bool violated = false; ///< a layer agrees with the listing no more; the user is to be told

    /// Notes a change; of several of one layer the first one counts.
    void noteChange(OdDbObjectId layer, bool wasListed)
    {
        if (layer.slot() >= m_isNoted.size())
            m_isNoted.resize(layer.slot() + std::size_t(1));
        if (m_isNoted[layer.slot()])
            return;
        m_isNoted[layer.slot()] = true;
        m_changes.push_back({layer, wasListed});
    }
    bool hasChanges() const { return !m_changes.empty(); }
    std::vector<Change> takeChanges()
    {
        for (const Change& change : m_changes)
            m_isNoted[change.layer.slot()] = false;
        return std::exchange(m_changes, {});
    }

private:
    std::vector<Change> m_changes;
    std::vector<bool> m_isNoted; ///< by slot
};
