#pragma once

class OdDbDatabase;
struct KestSelectionSet;

/// Takes the entities that the user picked for a group filter.
class GroupFilterPickReceiver
{
public:
    virtual ~GroupFilterPickReceiver() = default;
    /// `answer`: what the user said to the question before the pick.
    virtual void entitiesPicked(OdDbDatabase& database, const KestSelectionSet& selection,
                                bool answer) = 0;
};
