#pragma once

#include "layermanager/filters/LayerFilterMatch.h"

#include <vector>

class OdLyLayerFilter;
class OdLyLayerGroup;

/// What a filter shows by.
enum class FilterMeaning { Group, Unreconciled, All, Used, Expression };

/// A group is one whatever its name; of the others the names decide.
FilterMeaning meaningOfFilter(const OdLyLayerFilter& filter);

/// By slot, whether a layer is a member of a group. Ids of other drawings are none.
std::vector<bool> membersOfGroup(const OdDbDatabase& database, const OdLyLayerGroup& group);

/// A filter made ready to tell of single layers, whenever they change, what GetLayersOfFilter()
/// tells of all. It stands for the filter as it is now, and for the viewport worked in now.
class LayerFilterTest
{
public:
    LayerFilterTest(OdDbDatabase& database, const OdLyLayerFilter& filter);

    /// False for ids that are no layers, and for erased ones.
    bool shows(OdDbObjectId layer) const;

private:
    bool passesRows(const OdDbLayerTableRecord& layer) const;

    OdDbDatabase* m_database;
    FilterMeaning m_meaning;
    std::vector<bool> m_members;
    LayerFilterRows m_rows; ///< those that ask about the viewport, which must not be kept open
    std::vector<LayerRowMatcher> m_matchers; ///< of the other rows
};
