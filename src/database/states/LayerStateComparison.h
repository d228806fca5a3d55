#pragma once

#include "database/states/DrawingLayers.h"

#include <vector>

/// Tells whether stored states show the layers as they are. To be made once for any number of
/// states; each costs one pass over its groups, up to the first difference.
class LayerStateComparison
{
public:
    explicit LayerStateComparison(const DrawingLayers& drawing);

    /// True when each layer of the state is there with the same settings, as far as the mask names
    /// them, and the state has every layer of the drawing. Layers whose names begin with "*" need
    /// not be in a state.
    bool matches(const GroupList& groups, int mask);

private:
    bool sameSettings(const OdDbLayerTableRecord& layer, const StoredLayer& stored, int mask) const;

    const DrawingLayers& m_drawing;
    std::vector<bool> m_required; ///< by slot, up to the last layer's
    std::size_t m_requiredCount = 0;
};
