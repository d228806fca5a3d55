#pragma once

#include "database/drawing/OdDbDatabase.h"

#include <memory>
#include <variant>
#include <vector>

/// The undo and redo stacks of a database. A record is a list of before-images; undoing exchanges
/// each with the state of its object, which makes the record its own redo.
class UndoJournal
{
public:
    explicit UndoJournal(OdDbDatabase& database)
        : m_database(database)
    { }

    void start();
    void end() { m_open = false; }
    bool isOpen() const { return m_open; }
    bool hasUndo() const;
    bool hasRedo() const { return !m_redo.empty(); }
    /// Number of records that undo() can take back.
    std::size_t undoCount() const
    {
        const bool lastIsEmpty = !m_undo.empty() && m_undo.back()->changes.empty();
        return m_undo.size() - (lastIsEmpty ? 1 : 0);
    }
    bool undo();
    bool redo();
    quint64 stamp() const { return m_stamp; }

    /// Keeps the object's state unless the open record has it already.
    void keepImage(OdDbObject& object);
    void erase(OdDbObject& object, bool erasing);
    /// Notes that an object was added.
    void appended(quint32 slot);
    void keepCurrent(const CurrentSettings& before);
    void keepHeader(const QString& name, int code, const QString& before, bool existed);
    void keepExtension(quint32 slot, quint32 before);
    void keepEntityLayer(quint32 slot, quint32 before);

private:
    struct StateChange
    {
        quint32 slot;
        std::unique_ptr<OdDbObjectImage> image;
    };
    struct ExistenceChange
    {
        quint32 slot;
        bool exists; ///< what the exchange brings about
        bool isAppend;
    };
    struct HeaderChange
    {
        QString name;
        int code;
        QString value;
        bool exists;
    };
    struct ExtensionChange
    {
        quint32 slot;
        quint32 dictionary;
    };
    struct EntityLayerChange
    {
        quint32 slot;
        quint32 layer;
    };
    using Change = std::variant<StateChange, ExistenceChange, CurrentSettings, HeaderChange,
                                ExtensionChange, EntityLayerChange>;
    struct Record
    {
        quint64 serial;
        quint64 stampBefore;
        quint64 stampAfter;
        std::vector<Change> changes = {};
        bool hasCurrent = false; ///< a CurrentSettings is among the changes
    };

    Record& writable();
    void exchange(const std::shared_ptr<Record>& record, bool backwards);
    void exchange(Change& change);
    void announce(const Change& change);
    /// Names of the variables among them that the drawing's dictionary of variables holds.
    QStringList dictionaryVariables(const std::vector<Change>& changes) const;

    OdDbDatabase& m_database;
    std::vector<std::shared_ptr<Record>> m_undo;
    std::vector<std::shared_ptr<Record>> m_redo;
    bool m_open = false;
    quint64 m_serial = 0;
    quint64 m_stamp = 0;
    quint64 m_lastStamp = 0;
};
