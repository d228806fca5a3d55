#pragma once

#include "database/objects/OdDbXrecord.h"
#include "io/dxf/patch/NewRecords.h"

#include <map>
#include <unordered_map>
#include <vector>

/// What a save means to write where the drawing's objects do not say it themselves.
struct DxfMeant
{
    /// A record that was made for the file alone: one of a layer's extension dictionary, or that.
    struct Made
    {
        GroupList groups;
        std::vector<KeyedHandle> entries;
        bool isDictionary = false;
    };

    std::map<quint32, XrecordState> xrecords;
    std::unordered_map<quint32, std::vector<KeyedHandle>> dictionaries;
    std::vector<Made> made; ///< in the order of the changed records without a slot
};
