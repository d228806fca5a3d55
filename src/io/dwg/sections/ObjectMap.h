#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <vector>

/// The object map of a DWG file: where the record of each handle stands.
struct ObjectMap
{
    struct Entry
    {
        quint64 handle;
        quint64 offset; ///< from the start of the object section
    };

    std::vector<Entry> entries; ///< in the order of the file, which is by handle
    bool complete = true; ///< false where the map breaks off or does not hold to its form
    bool sumsHold = true;

    static ObjectMap read(QByteArrayView section);
    /// The section for these entries, which are in the order of their handles.
    static QByteArray spelled(const std::vector<Entry>& entries);
};
