#include "host/window/views/DatabaseWatch.h"

#include "database/drawing/OdDbDatabase.h"

DatabaseWatch::DatabaseWatch(QObject* parent)
    : QObject(parent)
{
    m_later.setSingleShot(true);
    m_later.setInterval(0);
    connect(&m_later, &QTimer::timeout, this, &DatabaseWatch::changed);
}

DatabaseWatch::~DatabaseWatch()
{
    setDatabase(nullptr);
}

void DatabaseWatch::setDatabase(OdDbDatabase* database)
{
    if (m_database == database)
        return;
    if (m_database)
        m_database->removeReactor(this);
    m_database = database;
    if (m_database)
        m_database->addReactor(this);
    noteChange();
}

void DatabaseWatch::goodbye(const OdDbDatabase*)
{
    m_database = nullptr;
    noteChange();
}

void DatabaseWatch::noteChange()
{
    // Started once for a burst: restarting a timer for each of many thousand changes is felt.
    if (!m_later.isActive())
        m_later.start();
}
