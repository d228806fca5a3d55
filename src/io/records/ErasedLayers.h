#pragma once

#include "database/values/GroupList.h"
#include "database/values/OdDbObjectId.h"

#include <QByteArray>
#include <QSet>
#include <QString>

#include <map>
#include <set>

class OdDbDatabase;

/// The layers that were erased since a drawing was read, and the records of filters and layer
/// states that still speak of them.
class ErasedLayers
{
public:
    explicit ErasedLayers(const OdDbDatabase& database);

    bool isEmpty() const { return m_slots.empty(); }
    /// The groups that those records should have, by slot; records that name none are left out.
    std::map<quint32, GroupList> cleanedRecords() const;

private:
    GroupList cleaned(const GroupList& groups, bool isState) const;
    void clean(OdDbObjectId dictionary, bool isState, int depth, std::set<quint32>& seen,
               std::map<quint32, GroupList>& found) const;
    bool isErasedName(const QString& name) const;
    bool isErased(QByteArrayView handle) const;

    const OdDbDatabase& m_database;
    std::set<quint32> m_slots;
    QSet<QByteArray> m_names; ///< folded
};
