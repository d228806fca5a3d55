#pragma once

#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/values/GroupList.h"

#include <QString>

#include <vector>

/// A layer state outside of any drawing: as layer-state files have it, layers (group 8), linetypes
/// (6) and plot styles (2) by name.
struct PortableLayerState
{
    QString name;
    GroupList groups;
    /// Linetypes of its layers, for drawings that lack them; those with letters or shapes cannot
    /// leave their drawing.
    std::vector<LinetypeState> linetypes = {};

    friend bool operator==(const PortableLayerState&, const PortableLayerState&) = default;
};
