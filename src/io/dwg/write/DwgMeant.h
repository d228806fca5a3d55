#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <map>
#include <set>

/// What a save means the records of a DWG file to be; all others stay as they are.
struct DwgMeant
{
    std::map<quint64, QByteArray> records; ///< changed and new ones by handle
    std::set<quint64> removed; ///< handles
    std::map<quint64, quint32> slotOf; ///< of the records that have one
};
