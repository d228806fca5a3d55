#pragma once

#include "database/values/GroupList.h"
#include "io/records/KeyedHandle.h"

#include <QByteArray>

#include <map>
#include <set>
#include <vector>

/// What a save means the records of a DWG file to be; all others stay as they are.
struct DwgMeant
{
    std::map<quint64, QByteArray> records; ///< changed and new ones by handle
    std::set<quint64> removed; ///< handles
    std::map<quint64, quint32> slotOf; ///< of the records that have one

    // What edited or new records are to say, by handle
    std::map<quint64, GroupList> groups; ///< of free records
    std::map<quint64, std::vector<KeyedHandle>> entries; ///< of dictionaries; handle 0: as it was
    std::map<quint64, GroupList> xData; ///< of free records and dictionaries
    std::map<quint64, QString> variables;
    bool addsVariableClass = false; ///< the class that these are of
    std::map<quint64, std::vector<quint64>> frozen; ///< layers, by viewport
    std::map<quint64, quint64> layers; ///< of entities
    struct Entity
    {
        GroupList groups;
        // As DwgEntityHead has them.
        quint8 linetypeKind = 0;
        quint64 linetype = 0;
    };
    std::map<quint64, Entity> entities; ///< new ones
    std::map<QString, QString> settings; ///< header variables, as HeaderSection has them
    std::map<quint64, QString> applications; ///< names of new ones
    std::set<quint64> shortOfXData; ///< records whose extended data could not be kept
};
