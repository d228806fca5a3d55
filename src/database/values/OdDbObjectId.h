#pragma once

#include "database/values/OdDbHandle.h"
#include "database/values/OdSmartPtr.h"

#include <QHashFunctions>

class OdDbDatabase;
class OdDbObject;

namespace OdDb {
enum OpenMode { kForRead, kForWrite };
}

/// Value identity of an object: its database and its slot there. Stays valid while the object is
/// erased, undone and redone; ends with the database.
class OdDbObjectId
{
public:
    static constexpr quint32 kNoSlot = 0xFFFFFFFFu;

    constexpr OdDbObjectId() = default;
    constexpr OdDbObjectId(OdDbDatabase* database, quint32 slot)
        : m_database(slot == kNoSlot ? nullptr : database)
        , m_slot(database ? slot : kNoSlot)
    { }

    constexpr bool isNull() const { return m_database == nullptr; }
    constexpr OdDbDatabase* database() const { return m_database; }
    constexpr quint32 slot() const { return m_slot; }

    bool isErased() const;
    OdDbHandle getHandle() const;

    /// The object as T, or null: null id, erased (unless asked for), or not a T.
    template <class T = OdDbObject>
    OdSmartPtr<T> openObject(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;

    /// As openObject, but raises OdError_NotThatKindOfClass, or OdError with NullObjectId or
    /// WasErased.
    template <class T = OdDbObject>
    OdSmartPtr<T> safeOpenObject(OdDb::OpenMode mode = OdDb::kForRead,
                                 bool openErased = false) const;

    friend constexpr bool operator==(const OdDbObjectId&, const OdDbObjectId&) = default;
    friend constexpr auto operator<=>(const OdDbObjectId& a, const OdDbObjectId& b)
    {
        return a.m_slot <=> b.m_slot;
    }

private:
    OdDbDatabase* m_database = nullptr;
    quint32 m_slot = kNoSlot;
};

inline size_t qHash(const OdDbObjectId& id, size_t seed = 0)
{
    return qHash(id.slot(), seed);
}
