#pragma once

#include "database/drawing/OdDbDatabaseReactor.h"
#include "database/values/OdDbObjectId.h"

#include <QObject>
#include <QSet>
#include <QTimer>

#include <vector>

/// The entities of a drawing that are selected, in the order in which they were. Erased ones drop
/// out by themselves; a change of the space ends the selection.
class DrawingSelection : public QObject, private OdDbDatabaseReactor
{
    Q_OBJECT
public:
    explicit DrawingSelection(OdDbDatabase& database);
    ~DrawingSelection() override;

    bool isEmpty() const { return m_slots.isEmpty(); }
    std::size_t size() const { return static_cast<std::size_t>(m_slots.size()); }
    bool contains(OdDbObjectId entity) const { return m_slots.contains(entity.slot()); }
    const std::vector<OdDbObjectId>& entities() const;

    /// Both answer how many entities came or went; the others were there, or not, already.
    std::size_t add(const std::vector<OdDbObjectId>& entities);
    std::size_t remove(const std::vector<OdDbObjectId>& entities);
    void set(const std::vector<OdDbObjectId>& entities);
    void clear() { set({}); }

    /// What a command worked on last, without what was erased since.
    std::vector<OdDbObjectId> previous() const;
    void setPrevious(const std::vector<OdDbObjectId>& entities) { m_previous = entities; }

signals:
    void changed();

private:
    void objectUnAppended(const OdDbDatabase*, const OdDbObject* object) override;
    void objectErased(const OdDbDatabase*, const OdDbObject* object, bool erased) override;
    void headerSysVarChanged(const OdDbDatabase*, const QString& name) override;
    void goodbye(const OdDbDatabase*) override;
    void drop(const OdDbObject* object);

    OdDbDatabase* m_database;
    QSet<quint32> m_slots;
    mutable std::vector<OdDbObjectId> m_entities; ///< may hold some that were dropped
    std::vector<OdDbObjectId> m_previous;
    QTimer m_later; ///< a burst of erased entities is told once
};
