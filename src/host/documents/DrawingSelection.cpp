#include "host/documents/DrawingSelection.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbObject.h"

#include <algorithm>

DrawingSelection::DrawingSelection(OdDbDatabase& database)
    : m_database(&database)
{
    database.addReactor(this);
    m_later.setSingleShot(true);
    m_later.setInterval(0);
    connect(&m_later, &QTimer::timeout, this, &DrawingSelection::changed);
}

DrawingSelection::~DrawingSelection()
{
    if (m_database)
        m_database->removeReactor(this);
}

const std::vector<OdDbObjectId>& DrawingSelection::entities() const
{
    if (m_entities.size() != size())
        std::erase_if(m_entities, [this](OdDbObjectId id) { return !contains(id); });
    return m_entities;
}

std::size_t DrawingSelection::add(const std::vector<OdDbObjectId>& entities)
{
    const std::size_t before = this->entities().size();
    for (const OdDbObjectId id : entities) {
        if (id.isErased() || contains(id))
            continue;
        m_slots.insert(id.slot());
        m_entities.push_back(id);
    }
    const std::size_t added = size() - before;
    if (added > 0)
        emit changed();
    return added;
}

std::size_t DrawingSelection::remove(const std::vector<OdDbObjectId>& entities)
{
    const std::size_t before = size();
    for (const OdDbObjectId id : entities)
        m_slots.remove(id.slot());
    // At once: one that comes back goes to the end.
    this->entities();
    if (size() != before)
        emit changed();
    return before - size();
}

void DrawingSelection::set(const std::vector<OdDbObjectId>& entities)
{
    if (entities == this->entities())
        return;
    m_slots.clear();
    m_entities.clear();
    if (add(entities) == 0)
        emit changed();
}

std::vector<OdDbObjectId> DrawingSelection::previous() const
{
    std::vector<OdDbObjectId> present;
    std::copy_if(m_previous.begin(), m_previous.end(), std::back_inserter(present),
                 [](OdDbObjectId id) { return !id.isErased(); });
    return present;
}

void DrawingSelection::drop(const OdDbObject* object)
{
    if (!m_slots.remove(object->objectId().slot()))
        return;
    if (isEmpty())
        m_entities.clear();
    if (!m_later.isActive())
        m_later.start();
}

void DrawingSelection::objectUnAppended(const OdDbDatabase*, const OdDbObject* object)
{
    drop(object);
}

void DrawingSelection::objectErased(const OdDbDatabase*, const OdDbObject* object, bool erased)
{
    if (erased)
        drop(object);
}

void DrawingSelection::headerSysVarChanged(const OdDbDatabase*, const QString& name)
{
    const bool isSpace = name == QLatin1String("TILEMODE") || name == QLatin1String("CTAB")
        || name == QLatin1String("CVPORT");
    if (isSpace)
        clear();
}

void DrawingSelection::goodbye(const OdDbDatabase*)
{
    m_database = nullptr;
}
