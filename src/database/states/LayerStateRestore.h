#pragma once

#include "database/states/DrawingLayers.h"

/// One restore of a layer state.
class LayerStateRestore
{
public:
    struct Options
    {
        int mask = 0; ///< what to bring back, see LayerStateMask
        bool turnOffOthers = false; ///< layers that the state does not have
        bool asOverrides = false; ///< in the active viewport of the current layout only
    };

    LayerStateRestore(OdDbDatabase& drawing, const Options& options);
    /// Raises OdError with NotApplicable for overrides without an active viewport; then nothing
    /// was changed.
    void run(const GroupList& state);

private:
    void restoreLayer(const StoredLayer& saved, OdDbObjectId id);
    /// Notes what becomes of the layer in the active viewport.
    void collectVisibility(const StoredLayer& saved, OdDbObjectId id);
    void turnOff(const std::vector<bool>& restored);

    OdDbDatabase& m_drawing;
    Options m_options;
    DrawingLayers m_layers;
    OdDbObjectIdArray m_freeze;
    OdDbObjectIdArray m_thaw;
};
