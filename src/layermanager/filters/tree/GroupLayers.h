#pragma once

#include "database/values/OdDbObjectId.h"
#include "layermanager/filters/tree/FilterNode.h"

#include <span>

class OdDbDatabase;
struct KestSelectionSet;

/// Fills a group filter with the layers of picked entities, each once, in the order of the
/// selection. Mode 1 adds them to what the group holds, mode 0 replaces that. False, and nothing
/// changed, where the drawing has no group of that key.
bool FillGroupFromSelection(OdDbDatabase& database, const FilterKey& group,
                            const KestSelectionSet& selection, int mode);

/// Adds layers that the group does not hold yet. True where that changed the group, as one undo
/// record.
bool addLayersToGroup(OdDbDatabase& database, const FilterKey& group,
                      std::span<const OdDbObjectId> layers);

/// The same, and takes the layers out of another group. Null, a key of no group, or of the same
/// one, takes them out of none. Groups that programs make take and give nothing.
bool moveLayersToGroup(OdDbDatabase& database, const FilterKey* from, const FilterKey& to,
                       std::span<const OdDbObjectId> layers);

/// Takes a layer out of every group filter of the drawing; false without a filter tree.
bool RemoveLayerFromGroups(OdDbDatabase& database, OdDbObjectId layer);

/// The same for many layers in one walk. Writes nothing where no group holds any.
bool removeLayersFromGroups(OdDbDatabase& database, std::span<const OdDbObjectId> layers);
