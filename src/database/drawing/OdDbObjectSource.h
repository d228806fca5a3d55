#pragma once

#include <QByteArrayView>
#include <QString>

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
    /// Slot of the object's extension dictionary as the file has it, or OdDbObjectId::kNoSlot.
    virtual quint32 extensionDictionary(quint32 slot) const = 0;
    /// Text of a group value in the drawing's encoding.
    virtual QString decode(QByteArrayView value) const = 0;
    /// Bytes of memory held.
    virtual quint64 footprint() const = 0;
};
