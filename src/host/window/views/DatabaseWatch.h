#pragma once

#include "database/drawing/OdDbDatabaseReactor.h"

#include <QObject>
#include <QTimer>

class OdDbDatabase;

/// Follows a drawing and says, once for each burst of changes, that it changed.
class DatabaseWatch : public QObject, public OdDbDatabaseReactor
{
    Q_OBJECT
public:
    explicit DatabaseWatch(QObject* parent = nullptr);
    ~DatabaseWatch() override;

    /// Follows that drawing, or none.
    void setDatabase(OdDbDatabase* database);
    OdDbDatabase* database() const { return m_database; }

signals:
    /// Something changed since control was in the event loop last.
    void changed();

private:
    void objectAppended(const OdDbDatabase*, const OdDbObject*) override { noteChange(); }
    void objectUnAppended(const OdDbDatabase*, const OdDbObject*) override { noteChange(); }
    void objectReAppended(const OdDbDatabase*, const OdDbObject*) override { noteChange(); }
    void objectModified(const OdDbDatabase*, const OdDbObject*) override { noteChange(); }
    void objectErased(const OdDbDatabase*, const OdDbObject*, bool) override { noteChange(); }
    void headerSysVarChanged(const OdDbDatabase*, const QString&) override { noteChange(); }
    void goodbye(const OdDbDatabase*) override;

    void noteChange();

    OdDbDatabase* m_database = nullptr;
    QTimer m_later;
};
