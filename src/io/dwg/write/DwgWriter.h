#pragma once

#include "database/tables/OdDbSymbolTable.h"
#include "io/DrawingCodec.h"
#include "io/dwg/write/DwgMeant.h"
#include "io/dwg/write/NewDwgRecords.h"
#include "io/records/LayerExtras.h"

#include <QSet>

#include <map>
#include <set>

class DwgObjectSource;
class ObjectStore;

/// Writes a drawing back over the DWG file it was read from: records that were not edited are
/// copied bit by bit, edited ones are patched, new ones are spelled whole.
class DwgWriter
{
public:
    DwgWriter(const DwgObjectSource& source, const OdDbDatabase& database);
    DrawingPieces run();

private:
    struct DictionaryEdit
    {
        std::vector<NewDwgRecords::Entry> added = {};
        QSet<QString> removed = {}; ///< folded keys
    };

    // What was touched
    void editTouched(quint32 slot);
    void editLayer(quint32 slot);
    void editLayerXData(DwgRecord& record, const DwgHead& head, const LayerState& before,
                        const LayerState& after, RecordPatch& patch);
    void editExtras(quint32 slot, const LayerState& before, const LayerState& after);
    void editViewport(quint32 slot);
    void editXrecord(quint32 slot);
    void editDictionary(quint32 slot, const DictionaryEdit& edit);
    void editDictionaryVar(quint32 slot);
    void editEntityLayer(quint32 slot);
    void editExtension(quint32 slot);
    void removeRecord(quint32 slot);

    // What is new
    void addRecord(quint32 slot);
    void addLayer(quint32 slot, NewDwgRecords::Head head);
    void addDictionary(quint32 slot, const NewDwgRecords::Head& head);
    void addEntity(quint32 slot, const NewDwgRecords::Head& head);
    void addXrecord(quint32 slot, const NewDwgRecords::Head& head, const GroupList& groups);
    NewDwgRecords::EntityHead entityHead(quint32 slot, const GroupList& groups) const;
    NewDwgRecords::Head headOf(quint32 slot) const;
    void put(quint32 slot, quint64 handle, const QByteArray& record);

    // What follows from it
    void cleanReferences();
    void editTables();
    void editBlocks();
    /// Up to version 2000 entities of a block form a chain.
    void relinkEntities(const std::vector<quint64>& entities);
    quint64 application(const QString& name);
    std::vector<std::pair<quint64, QByteArray>> layerXData(const LayerState& layer);
    std::vector<std::pair<quint64, QByteArray>> spelledXData(const GroupList& groups);
    void replaceXData(const DwgHead& head, const GroupList& groups, RecordPatch& patch);

    bool isInFile(quint32 slot) const;
    bool isLive(quint32 slot) const;
    quint64 extensionOf(quint32 slot) const;
    quint64 used(quint64 handle);
    /// The record of a slot as it is now: edited before, or as the file has it.
    bool open(DwgRecord& record, DwgHead& head, quint32 slot,
              DwgEntityHead* entity = nullptr) const;
    void patched(quint32 slot, const RecordPatch& patch);
    void tellNotKept(const QString& sentence);
    void report(DrawingPieces& pieces) const;
    Spelling::HandleOf handleOf() const;

    const DwgObjectSource& m_source;
    const OdDbDatabase& m_database;
    ObjectStore& m_store;
    NewDwgRecords m_newRecords;
    std::shared_ptr<DwgMeant> m_meant = std::make_shared<DwgMeant>();
    std::map<quint32, DictionaryEdit> m_dictionaryEdits;
    std::map<quint32, GroupList> m_cleaned; ///< records of filters and states without erased layers
    std::map<quint32, std::vector<NewDwgRecords::Entry>> m_madeDictionaries; ///< by owning layer
    std::map<OdDbTableKind, std::vector<quint64>> m_addedToTables;
    std::set<OdDbTableKind> m_shrunkTables;
    std::set<quint32> m_changedBlocks;
    std::map<QString, quint64> m_applications; ///< made for this save
    quint64 m_highestNew = 0;
    QStringList m_notKept;
};
