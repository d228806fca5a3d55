#pragma once

#include "database/drawing/OdDbDatabaseReactor.h"
#include "database/filters/OdLyLayerFilter.h"
#include "database/objects/OdDbObject.h"
#include "database/tables/OdDbSymbolTable.h"

#include <QByteArray>
#include <QStringList>

#include <array>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

class GroupCursor;
class GroupList;
class HeaderVariables;
class ObjectStore;
class OdDbLayerTable;
class OdDbObjectSource;
class UndoJournal;
enum class RecordType : quint16;

/// Header state that the database interprets itself.
struct CurrentSettings
{
    OdDbObjectId layer; ///< CLAYER
    bool modelSpace = true; ///< TILEMODE
    OdDbObjectId sheet; ///< the current, or last current, layout other than the model tab
    OdDbObjectId viewport; ///< the one worked in, null: by the drawing
    bool operator==(const CurrentSettings&) const = default;
};

/// A drawing: objects, tables, header variables, undo and the reactors that follow them.
class OdDbDatabase
{
public:
    OdDbDatabase();
    ~OdDbDatabase();
    OdDbDatabase(const OdDbDatabase&) = delete;
    OdDbDatabase& operator=(const OdDbDatabase&) = delete;

    // Tables and roots
    OdDbObjectId getLayerTableId() const { return tableId(OdDbTableKind::Layer); }
    OdDbObjectId getLinetypeTableId() const { return tableId(OdDbTableKind::Linetype); }
    OdDbObjectId getLinetypeContinuousId() const;
    OdDbObjectId tableId(OdDbTableKind kind) const;
    OdDbLayerTable& layerTable() const;
    OdDbSymbolTable& table(OdDbTableKind kind) const;
    OdDbObjectId getLayerZeroId() const;
    OdDbObjectId getNamedObjectsDictionaryId() const;
    OdDbObjectId getModelSpaceId() const;
    /// The block of the current, or last current, sheet.
    OdDbObjectId getPaperSpaceId() const;
    OdDbObjectId getOdDbObjectId(OdDbHandle handle) const;
    /// The dictionary of records that hang on an object, or a null id.
    OdDbObjectId extensionDictionary(OdDbObjectId object) const;
    /// Whether that dictionary came, or went, since the drawing was read.
    bool hasOtherExtension(quint32 slot) const { return m_extensions.contains(slot); }
    /// The object of that key, going down from the named-object dictionary, or a null id.
    OdDbObjectId namedObject(std::initializer_list<QString> path) const;
    OdDbObjectId idOfSlot(quint32 slot) const
    {
        return OdDbObjectId(const_cast<OdDbDatabase*>(this), slot);
    }

    // Spaces
    /// Layouts by tab order, the model tab first.
    std::vector<OdDbObjectId> layouts() const;
    OdDbObjectId currentLayoutId() const;
    /// Viewports in the block of a sheet, the sheet's own (overall) one first.
    std::vector<OdDbObjectId> viewportsOf(OdDbObjectId space) const;
    /// In a layout: the viewport worked in, the sheet's own (overall) one included. In model space:
    /// a null id, since viewport properties apply to layouts only.
    OdDbObjectId activeViewportId() const;
    /// The viewport that is, or would be, the active one while that sheet is current; a null id for
    /// a sheet never opened.
    OdDbObjectId activeViewportOf(OdDbObjectId sheet) const;
    /// Makes a viewport of the current layout the active one (session state).
    void setActiveViewport(OdDbObjectId viewport);

    // Header variables that have an accessor; each setter is undoable and notifies.
    OdDbObjectId getCLAYER() const;
    void setCLAYER(OdDbObjectId layer);
    bool getTILEMODE() const;
    void setTILEMODE(bool modelSpace);
    QString getCTAB() const;
    /// Switches to the layout of that name; raises OdError with KeyNotFound.
    void setCTAB(const QString& layoutName);
    int getCVPORT() const;
    /// Any other header variable ("$LWDISPLAY"), with its group code; undoable.
    void setHeaderVariable(const QString& name, int code, const QString& value);
    HeaderVariables& header() const { return *m_header; }

    /// A variable of the drawing's variable dictionary ("LAYEREVAL"), empty where it has none.
    QString dictionaryVariable(const QString& name) const;
    /// Undoable; notifies like a header variable.
    void setDictionaryVariable(const QString& name, const QString& value);

    // Making and erasing objects; undoable. Handles are given out here and never a second time.
    OdDbObjectId addObject(std::unique_ptr<OdDbObject> object, RecordType type, OdDbObjectId owner);
    /// Makes an entity of a DXF type ("LINE") on that layer, behind all others of a block or space.
    /// `groups` as OdDbMadeEntity::madeGroups() has them.
    OdDbObjectId addEntity(const QByteArray& type, const GroupList& groups, OdDbObjectId block,
                           OdDbObjectId layer);
    /// The object's extension dictionary, made where it has none.
    OdDbObjectId createExtensionDictionary(OdDbObjectId object);
    /// Put under the key of a dictionary, which owns them; a present object of that kind is
    /// returned as it is.
    OdDbObjectId createDictionary(OdDbObjectId dictionary, const QString& key);
    OdDbObjectId createXrecord(OdDbObjectId dictionary, const QString& key);
    /// Erases the object, its extension dictionary and, of a dictionary, all that it owns. Entries
    /// of other dictionaries are not looked at.
    void eraseTree(OdDbObjectId object);
    /// Moves an entity to another layer.
    void setEntityLayer(OdDbObjectId entity, OdDbObjectId layer);

    /// Layer filters that programs made for this session; the drawing does not keep them.
    const std::vector<OdLyLayerFilterPtr>& sessionFilters() const { return m_sessionFilters; }
    void setSessionFilters(const std::vector<OdLyLayerFilterPtr>& filters)
    {
        m_sessionFilters = filters;
    }

    // Undo
    /// Starts a new undo record; changes up to the next call belong to it.
    void startUndoRecord();
    /// True between startUndoRecord() and the end of that record by undo, redo or endUndoRecord().
    bool isUndoRecordOpen() const;
    void endUndoRecord();
    bool hasUndo() const;
    bool hasRedo() const;
    /// Takes the newest record back; false when there is none.
    bool undo();
    bool redo();
    /// Changes whenever an edit, undo or redo changed the contents; equal again after undoing back.
    quint64 editStamp() const;
    UndoJournal& journal() const { return *m_journal; }

    // Reactors
    void addReactor(OdDbDatabaseReactor* reactor);
    void removeReactor(OdDbDatabaseReactor* reactor);

    /// Every broken invariant in words: owners, handles, ids, name index, references. Empty when
    /// sound.
    QStringList audit() const;

    // For the codecs, the canvas and the journal
    ObjectStore& store() const { return *m_store; }
    void setSource(std::unique_ptr<OdDbObjectSource> source);
    OdDbObjectSource* source() const { return m_source.get(); }
    /// A cursor over the groups of records; null for a database that was not read from a file.
    std::unique_ptr<GroupCursor> makeCursor() const;
    /// Opens, reading the object from its source first where nobody did yet.
    OdDbObject* openRaw(quint32 slot, OdDb::OpenMode mode, bool openErased);
    void closed(OdDbObject& object);
    /// Takes an object made by a codec into its slot.
    OdDbObject& adoptObject(quint32 slot, std::unique_ptr<OdDbObject> object);
    void setRoots(OdDbObjectId namedObjects);
    void setCurrentForLoading(const CurrentSettings& current)
    {
        m_current = m_loadedCurrent = current;
    }
    const CurrentSettings& loadedCurrent() const { return m_loadedCurrent; }
    const CurrentSettings& current() const { return m_current; }
    void setTable(OdDbTableKind kind, quint32 slot);
    /// Things the reader repaired or left out, as sentences.
    QStringList& loadNotes() { return m_loadNotes; }

private:
    friend class UndoJournal;
    friend class OdDbObject;
    void notify(const std::function<void(OdDbDatabaseReactor&)>& call);
    void notifyHeader(const QString& name);
    void changeCurrent(const CurrentSettings& next);
    void setErased(quint32 slot, bool erased);
    void exchangeCurrent(CurrentSettings& other) { std::swap(m_current, other); }
    /// Tells which of the variables differ from those before.
    void announceCurrent(const CurrentSettings& before);
    quint32 exchangeExtension(quint32 slot, quint32 dictionary);
    quint32 exchangeEntityLayer(quint32 slot, quint32 layer);
    OdDbObjectId createInDictionary(OdDbObjectId dictionary, const QString& key,
                                    std::unique_ptr<OdDbObject> object, RecordType type);
    OdDbObjectId requireNamedObjectsDictionary();
    void exchangeHeader(const QString& name, int code, QString& value, bool& exists);
    std::unique_ptr<OdDbObject> makeObject(quint32 slot) const;
    quint32 takeSlot(RecordType type, OdDbObjectId owner);
    void announceAdded(quint32 slot, std::unique_ptr<OdDbObject> object);

    std::unique_ptr<ObjectStore> m_store;
    std::unique_ptr<HeaderVariables> m_header;
    std::unique_ptr<UndoJournal> m_journal;
    std::unique_ptr<OdDbObjectSource> m_source;
    std::array<quint32, kOdDbTableKindCount> m_tables;
    OdDbObjectId m_namedObjects;
    std::unordered_map<quint32, quint32> m_extensions; ///< those that differ from the file
    CurrentSettings m_current;
    CurrentSettings m_loadedCurrent;
    std::vector<OdDbDatabaseReactor*> m_reactors;
    int m_notifyDepth = 0;
    QStringList m_loadNotes;
    std::vector<OdLyLayerFilterPtr> m_sessionFilters;
};

template <class T>
OdSmartPtr<T> OdDbObjectId::openObject(OdDb::OpenMode mode, bool openErased) const
{
    OdDbObject* object = m_database ? m_database->openRaw(m_slot, mode, openErased) : nullptr;
    if (!object)
        return nullptr;
    if (!T::isKind(object->kind())) {
        object->release();
        return nullptr;
    }
    return OdSmartPtr<T>::adopt(static_cast<T*>(object));
}

template <class T>
OdSmartPtr<T> OdDbObjectId::safeOpenObject(OdDb::OpenMode mode, bool openErased) const
{
    if (isNull())
        throw OdError(OdResult::NullObjectId, QStringLiteral("The object id is null."));
    if (!openErased && isErased())
        throw OdError(OdResult::WasErased, QStringLiteral("The object was erased."));
    OdSmartPtr<T> object = openObject<T>(mode, openErased);
    if (!object)
        throw OdError_NotThatKindOfClass(QLatin1String(T::kClassName));
    return object;
}
