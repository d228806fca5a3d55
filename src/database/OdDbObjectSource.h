#pragma once

#include <QtGlobal>

#include <memory>

class GroupCursor;
class OdDbObject;

/// Where a database gets the contents of objects that nobody opened yet: the codec that read it.
class OdDbObjectSource
{
public:
    virtual ~OdDbObjectSource() = default;
    /// Fills the state of a freshly made object from the record in its slot.
    virtual void read(OdDbObject& object) const = 0;
    virtual std::unique_ptr<GroupCursor> makeCursor() const = 0;
    /// Bytes of memory held.
    virtual quint64 footprint() const = 0;
};
