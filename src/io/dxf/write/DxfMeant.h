#pragma once

#include "database/objects/OdDbXrecord.h"
#include "io/dxf/patch/NewRecords.h"

#include <optional>
#include <unordered_map>
#include <vector>

/// What a save means to write where the drawing's objects do not say it themselves.
struct DxfMeant
{
    /// A record that was made for the file alone: one of a layer's extension dictionary, or that.
    struct Made
    {
        GroupList groups;
        std::vector<NewRecords::Entry> entries;
        bool isDictionary = false;
    };

    std::unordered_map<quint32, XrecordState> xrecords;
    std::unordered_map<quint32, std::vector<NewRecords::Entry>> dictionaries;
    std::vector<Made> made; ///< in the order of the changed records without a slot
};
