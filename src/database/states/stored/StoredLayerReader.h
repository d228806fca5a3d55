#pragma once

#include "database/states/stored/StoredLayer.h"

/// Steps through the layers of a stored state. Nothing is copied; the groups must stay unchanged
/// meanwhile. Groups may stand in any order: a layer ends where the next begins.
class StoredLayerReader
{
public:
    explicit StoredLayerReader(const GroupList& groups);

    /// Where the first layer begins; what comes before is the head.
    GroupList::const_iterator headEnd() const { return m_headEnd; }
    bool next(StoredLayer& layer);

private:
    GroupList::const_iterator m_at;
    GroupList::const_iterator m_end;
    GroupList::const_iterator m_headEnd;
};
