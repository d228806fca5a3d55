#include "layermanager/layer_states/core/DrawingWatch.h"

#include "database/drawing/OdDbDatabase.h"

#include <utility>

DrawingWatch::DrawingWatch(std::function<void()> left)
    : m_left(std::move(left))
{
    KsApDocManager* documents = ksDocManagerPtr();
    KsApDocument* current = documents ? documents->curDocument() : nullptr;
    if (!current || !current->database())
        return;
    m_database = current->database();
    m_database->addReactor(this);
    documents->addReactor(this);
}

DrawingWatch::~DrawingWatch()
{
    detach();
}

void DrawingWatch::detach()
{
    OdDbDatabase* database = std::exchange(m_database, nullptr);
    if (!database)
        return;
    database->removeReactor(this);
    if (KsApDocManager* documents = ksDocManagerPtr())
        documents->removeReactor(this);
}

void DrawingWatch::leave()
{
    detach();
    if (const auto left = std::exchange(m_left, nullptr))
        left();
}

void DrawingWatch::documentBecameCurrent(KsApDocument* document)
{
    if (m_database && (!document || document->database() != m_database))
        leave();
}

void DrawingWatch::documentToBeDestroyed(KsApDocument* document)
{
    if (m_database && document && document->database() == m_database)
        leave();
}

void DrawingWatch::goodbye(const OdDbDatabase* database)
{
    if (m_database == database)
        leave();
}
