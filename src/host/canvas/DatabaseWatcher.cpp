#include "host/canvas/DatabaseWatcher.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbObject.h"

namespace {

bool isEntity(const OdDbObject* object)
{
    return object->kind() == OdDbObjectKind::Entity || object->kind() == OdDbObjectKind::Viewport;
}

} // namespace

DatabaseWatcher::DatabaseWatcher(OdDbDatabase& database, QObject* parent)
    : QObject(parent)
    , m_database(&database)
{
    database.addReactor(this);
}

DatabaseWatcher::~DatabaseWatcher()
{
    if (m_database)
        m_database->removeReactor(this);
}

void DatabaseWatcher::objectAppended(const OdDbDatabase*, const OdDbObject* object)
{
    if (isEntity(object))
        emit entityAppended(object->objectId().slot());
}

void DatabaseWatcher::objectUnAppended(const OdDbDatabase*, const OdDbObject* object)
{
    if (isEntity(object))
        emit entityErased(object->objectId().slot(), true);
}

void DatabaseWatcher::objectReAppended(const OdDbDatabase*, const OdDbObject* object)
{
    if (isEntity(object))
        emit entityErased(object->objectId().slot(), false);
}

void DatabaseWatcher::objectModified(const OdDbDatabase*, const OdDbObject* object)
{
    const quint32 slot = object->objectId().slot();
    switch (object->kind()) {
    case OdDbObjectKind::Layer:
        emit layerChanged(slot);
        break;
    case OdDbObjectKind::Viewport:
        emit viewportChanged(slot);
        break;
    case OdDbObjectKind::Linetype:
        emit linetypeChanged(slot);
        break;
    case OdDbObjectKind::Entity:
        emit entityModified(slot);
        break;
    case OdDbObjectKind::BlockTableRecord:
        emit blockModified(slot);
        break;
    default:
        break;
    }
}

void DatabaseWatcher::objectErased(const OdDbDatabase*, const OdDbObject* object, bool erased)
{
    if (isEntity(object))
        emit entityErased(object->objectId().slot(), erased);
}

void DatabaseWatcher::headerSysVarChanged(const OdDbDatabase*, const QString& name)
{
    if (name == QLatin1String("TILEMODE") || name == QLatin1String("CTAB"))
        emit spaceChanged();
    else if (name == QLatin1String("CVPORT"))
        emit activeViewportChanged();
    else
        emit variableChanged(name);
}

void DatabaseWatcher::goodbye(const OdDbDatabase*)
{
    m_database = nullptr;
    emit databaseGone();
}
