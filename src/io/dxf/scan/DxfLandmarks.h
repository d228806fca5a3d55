#pragma once

#include "database/store/ObjectStore.h"

#include <QByteArrayView>

#include <algorithm>
#include <vector>

/// What a writer must find again in the image of a DXF file. Slots are kNone where the file has no
/// such record; where it has several, the first counts.
struct DxfLandmarks
{
    struct Table
    {
        QByteArrayView name; ///< in the image
        quint32 begin = ObjectStore::kNone; ///< slot of TABLE
        quint32 end = ObjectStore::kNone; ///< slot of ENDTAB
    };

    /// The table of that name, or null.
    const Table* table(QByteArrayView name) const
    {
        const auto it = std::find_if(tables.begin(), tables.end(),
                                     [&](const Table& table) { return table.name == name; });
        return it == tables.end() ? nullptr : &*it;
    }

    int codeBytes = 0; ///< of a group code in a binary file; 0 in a text
    quint32 headerEnd = ObjectStore::kNone; ///< slot of the section's ENDSEC
    quint32 tablesEnd = ObjectStore::kNone;
    quint32 blocksEnd = ObjectStore::kNone;
    quint32 entitiesEnd = ObjectStore::kNone;
    quint32 objectsEnd = ObjectStore::kNone;
    std::vector<Table> tables;
    /// Records that name a layer in their extended data (group 1003), ascending.
    std::vector<quint32> layerNameUsers;
};
