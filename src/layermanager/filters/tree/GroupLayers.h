#pragma once

#include "database/OdDbObjectId.h"
#include "layermanager/filters/tree/FilterNode.h"

#include <span>

class OdDbDatabase;
struct KestSelectionSet;

/// Fills a group filter with the layers of picked entities, each once, in the order of the
/// selection. Mode 1 adds them to what the group holds, mode 0 replaces that. False, and nothing
/// changed, where the drawing has no group of that key.
bool FillGroupFromSelection(OdDbDatabase& database, const FilterKey& group,
                            const KestSelectionSet& selection, int mode);

/// Adds layers that the group does not hold yet. Returns as FillGroupFromSelection().
bool addLayersToGroup(OdDbDatabase& database, const FilterKey& group,
                      std::span<const OdDbObjectId> layers);

/// Takes a layer out of every group filter of the drawing; false without a filter tree.
bool RemoveLayerFromGroups(OdDbDatabase& database, OdDbObjectId layer);
