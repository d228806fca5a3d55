#pragma once

#include "database/objects/OdDbXrecord.h"
#include "database/values/OdDbObjectId.h"
#include "io/records/KeyedHandle.h"

#include <QSet>
#include <QStringList>

#include <map>
#include <set>
#include <vector>

class ObjectStore;
class OdDbDatabase;
class RecordSource;
struct DictionaryState;
struct LayerState;

/// What a save does about every record that was touched since the drawing was read. How a record
/// is spelled, and where it goes, is the format's own.
class RecordWriter
{
public:
    RecordWriter(const RecordWriter&) = delete;
    RecordWriter& operator=(const RecordWriter&) = delete;

protected:
    RecordWriter(const RecordSource& source, const OdDbDatabase& database);
    ~RecordWriter() = default;

    // In this order
    /// Records that name erased layers, but were not touched themselves.
    void cleanReferences();
    void editTouched(quint32 slot);
    /// After all else: other edits put entries into dictionaries.
    void editDictionaries();

    /// The records of a layer's extension dictionary.
    void editExtras(quint32 slot, const LayerState& before, const LayerState& after);
    /// The record goes, with what hangs on it.
    void removeRecord(quint32 slot);

    bool isInFile(quint32 slot) const;
    /// Neither it nor an owner of it is erased.
    bool isLive(quint32 slot) const;
    /// The handle of the extension dictionary that a record is to have; 0 for none.
    quint64 extensionOf(quint32 slot) const;
    /// What a record of free groups is to hold.
    XrecordState xrecordNow(quint32 slot) const;
    /// The entries that a dictionary is to have. One with handle 0 names no object of the drawing:
    /// the value of that key in the file stays.
    std::vector<KeyedHandle> entriesNow(quint32 slot);
    std::vector<OdDbObjectId> frozenNow(quint32 viewport) const;
    /// Remembers the highest handle that was taken for this save; returns the handle.
    quint64 used(quint64 handle);
    void tellNotKept(const QString& sentence);

    /// Why the file cannot hold a new record, in a sentence; nothing where it can.
    virtual QString whyNotHeld(quint32) const { return {}; }
    virtual void addRecord(quint32 slot) = 0;
    virtual void editLayer(quint32 slot) = 0;
    /// Its layer, if that differs.
    virtual void editEntity(quint32 slot) = 0;
    virtual void setFrozen(quint32 viewport, const std::vector<OdDbObjectId>& before,
                           const std::vector<OdDbObjectId>& after) = 0;
    virtual void setXrecord(quint32 slot, const XrecordState& before,
                            const XrecordState& after) = 0;
    virtual void setVariable(quint32 slot, const QString& value) = 0;
    virtual void setDictionary(quint32 slot, const DictionaryState& before,
                               const std::vector<KeyedHandle>& entries, const GroupList& xData) = 0;
    virtual void setExtension(quint32 slot, quint64 dictionary) = 0;
    virtual void recordRemoved(quint32 slot) = 0;
    /// Records that no object of the drawing stands for: a layer's extension dictionary, and what
    /// is in it.
    virtual void makeXrecord(const KeyedHandle& entry, quint64 dictionary,
                             const GroupList& groups) = 0;
    virtual void makeDictionary(quint64 handle, quint64 owner,
                                const std::vector<KeyedHandle>& entries) = 0;
    /// Whether the file can hold dictionaries and free groups at all; tells the user if not.
    virtual bool canHoldObjects() { return true; }

    const OdDbDatabase& m_database;
    ObjectStore& m_store;
    QStringList m_notKept;
    std::set<quint32> m_removed; ///< records of the file
    std::map<quint32, XrecordState> m_rewritten; ///< what differs from their objects
    quint64 m_highestNew = 0;

private:
    struct DictionaryEdit
    {
        std::vector<KeyedHandle> added = {};
        QSet<QString> removed = {}; ///< folded keys
    };

    void editViewport(quint32 slot);
    void editXrecord(quint32 slot);
    void editVariable(quint32 slot);
    void editDictionary(quint32 slot);
    void editExtension(quint32 slot);

    const RecordSource& m_source;
    std::map<quint32, DictionaryEdit> m_dictionaryEdits;
    std::map<quint32, std::vector<KeyedHandle>> m_madeDictionaries; ///< by owning layer
    bool m_erasedDictionaries = false;
};
