#pragma once

#include "database/objects/OdDbEntity.h"
#include "database/values/GroupList.h"

/// An entity that was made in this session: no file image has its geometry. It does not change.
class OdDbMadeEntity : public OdDbEntity
{
public:
    explicit OdDbMadeEntity(const GroupList& groups)
        : m_groups(groups)
    { }
    /// Its own groups, those of color, linetype and so on first; without type, handle, owner,
    /// space and layer. Subclass marks (100) stand where drawings from R13 on have them, but for
    /// the mark that all entities have.
    const GroupList* madeGroups() const override { return &m_groups; }

private:
    GroupList m_groups;
};
