#include "database/objects/OdDbObject.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/drawing/UndoJournal.h"
#include "database/store/ObjectStore.h"

OdDbObject::~OdDbObject() = default;

OdDbObjectId OdDbObject::ownerId() const
{
    return OdDbObjectId(database(), database()->store().owner(m_id.slot()));
}

bool OdDbObject::isErased() const
{
    return m_id.isErased();
}

void OdDbObject::release()
{
    if (--m_openCount == 0)
        database()->closed(*this);
}

void OdDbObject::requireWriteEnabled() const
{
    if (m_writers == 0)
        throw OdError_NotOpenForWrite();
}

void OdDbObject::assertWriteEnabled()
{
    requireWriteEnabled();
    m_modified = true;
    database()->store().setFlag(m_id.slot(), ObjectStore::kTouched, true);
    database()->journal().keepImage(*this);
}

void OdDbObject::erase(bool erasing)
{
    requireWriteEnabled();
    database()->journal().erase(*this, erasing);
}

std::unique_ptr<OdDbObjectImage> OdDbObject::captureImage() const
{
    return nullptr;
}

void OdDbObject::swapImage(OdDbObjectImage&)
{ }

bool OdDbObjectId::isErased() const
{
    return m_database && m_database->store().has(m_slot, ObjectStore::kErased);
}

OdDbHandle OdDbObjectId::getHandle() const
{
    return OdDbHandle(m_database ? m_database->store().handle(m_slot) : 0);
}
