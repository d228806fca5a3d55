#pragma once

#include "database/values/GroupList.h"

#include <QString>

/// What stands before the layers of a stored state. The oldest states have a mask only.
struct LayerStateHead
{
    int mask = 0;
    QString description;
    bool inLayout = false; ///< saved while a layout was current
    QString currentLayer;

    static LayerStateHead read(const GroupList& groups);
    void append(GroupList& groups) const;

    /// The groups with one value of the head set; all others stay as they are.
    static GroupList with(const GroupList& groups, int code, QByteArrayView value);
    /// The head as it is stored, unknown groups included.
    static GroupList groupsOf(const GroupList& groups);
};
