#pragma once

#include "database/drawing/OdDbDatabaseReactor.h"

#include <QObject>

class OdDbDatabase;

/// Follows a database and says what of it concerns a picture. Lets go of the database when it is
/// destroyed, and when the database says goodbye.
class DatabaseWatcher : public QObject, private OdDbDatabaseReactor
{
    Q_OBJECT
public:
    explicit DatabaseWatcher(OdDbDatabase& database, QObject* parent = nullptr);
    ~DatabaseWatcher() override;

signals:
    void layerChanged(quint32 slot);
    void viewportChanged(quint32 slot);
    void linetypeChanged(quint32 slot);
    void entityErased(quint32 slot, bool erased);
    void entityAppended(quint32 slot);
    void entityModified(quint32 slot);
    void blockModified(quint32 slot);
    /// A header variable, by its name without the dollar sign.
    void variableChanged(const QString& name);
    /// Another space is current.
    void spaceChanged();
    void activeViewportChanged();
    void databaseGone();

private:
    void objectAppended(const OdDbDatabase*, const OdDbObject* object) override;
    void objectUnAppended(const OdDbDatabase*, const OdDbObject* object) override;
    void objectReAppended(const OdDbDatabase*, const OdDbObject* object) override;
    void objectModified(const OdDbDatabase*, const OdDbObject* object) override;
    void objectErased(const OdDbDatabase*, const OdDbObject* object, bool erased) override;
    void headerSysVarChanged(const OdDbDatabase*, const QString& name) override;
    void goodbye(const OdDbDatabase*) override;

    OdDbDatabase* m_database;
};
