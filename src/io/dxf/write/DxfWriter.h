#pragma once

#include "io/DrawingCodec.h"
#include "io/dxf/patch/NewRecords.h"
#include "io/dxf/patch/PatchList.h"
#include "io/dxf/write/DxfMeant.h"
#include "io/records/RecordWriter.h"

#include <QSet>

#include <map>
#include <optional>
#include <set>
#include <unordered_map>

class DxfObjectSource;
class OdDbBlockTableRecord;
class RecordPatcher;

/// Writes a drawing back over the image it was read from: every byte that was not edited is copied.
class DxfWriter final : private RecordWriter
{
public:
    DxfWriter(const DxfObjectSource& source, const OdDbDatabase& database);
    DrawingPieces run();

private:
    static constexpr int kLayerName = 8;

    /// New records that go to one place of the file.
    struct NewRun
    {
        QByteArray bytes = {};
        std::vector<std::pair<quint32, qsizetype>> starts = {}; ///< slot, offset in bytes
        int count = 0;
        QByteArray placed = {}; ///< the patch that holds the bytes, behind `prefix` others
        qsizetype prefix = 0;
    };

    // What was touched
    void addRecord(quint32 slot) override;
    void editLayer(quint32 slot) override;
    void editEntity(quint32 slot) override;
    void setFrozen(quint32 viewport, const std::vector<OdDbObjectId>& before,
                   const std::vector<OdDbObjectId>& after) override;
    void setXrecord(quint32 slot, const XrecordState& before, const XrecordState& after) override;
    void setVariable(quint32 slot, const QString& value) override;
    void setDictionary(quint32 slot, const DictionaryState& before,
                       const std::vector<KeyedHandle>& entries, const GroupList& xData) override;
    void setExtension(quint32 slot, quint64 dictionary) override;
    void recordRemoved(quint32 slot) override;
    void makeXrecord(const KeyedHandle& entry, quint64 dictionary,
                     const GroupList& groups) override;
    void makeDictionary(quint64 handle, quint64 owner,
                        const std::vector<KeyedHandle>& entries) override;
    bool canHoldObjects() override;
    static void insertLayer(RecordPatcher& record, const QByteArray& name);
    void addTo(NewRun& run, quint32 slot, const QByteArray& record);
    void addLayer(quint32 slot);
    QByteArray rootForNewObjects();
    void addEntity(quint32 slot);
    /// Offset before the ENDBLK of a block's definition; nothing where the file has none.
    std::optional<quint64> endOfBlock(const OdDbBlockTableRecord& block) const;
    void addMade(const QByteArray& record, DxfMeant::Made made);
    NewRecords::Head headOf(quint32 slot) const;

    // What follows from it
    void collectLayers();
    void renameReferences();
    /// Groups of entities must not name erased ones.
    void clearGroups();
    void renameIn(quint32 slot, bool entity);
    void placeNewRecords();
    void placeTableRecords(OdDbTableKind kind, const char* name, NewRun& run);
    void placeEntities();
    void placeObjects();
    void placeClasses();
    void placeTablesSection();
    void requireXrecordClass();
    QByteArray madeUpLayerZero();
    void patchCount(OdDbTableKind kind);
    void patchHeader();
    void patchVariable(const QString& name, int code, const QByteArray& value);
    void patchHandleSeed();
    void placeVariables();
    void requireApplications(const QList<QByteArray>& names);
    void report(DrawingPieces& pieces);
    void listChanged(const std::vector<quint32>& changed, DrawingPieces& pieces) const;
    void listNew(const NewRun& run, DrawingPieces& pieces) const;

    const DxfObjectSource& m_source;
    NewRecords m_newRecords;
    PatchList m_patches;
    std::vector<quint32> m_changed; ///< records of the file, some repeatedly
    std::set<quint32> m_moved; ///< entities on another layer now
    std::shared_ptr<DxfMeant> m_meant = std::make_shared<DxfMeant>();
    std::map<OdDbTableKind, NewRun> m_tableRuns;
    std::map<OdDbTableKind, int> m_countChanges;
    std::map<quint32, NewRun> m_entities; ///< by block; kNone: those of the ENTITIES section
    NewRun m_objects;
    QByteArray m_newVariables; ///< of the header
    QByteArray m_tablesSection; ///< of a file that has none
    quint64 m_tablesSectionAt = 0;
    quint64 m_headerChanges = 0;
    QSet<QByteArray> m_applications; ///< to be registered
    std::set<std::pair<QByteArray, QByteArray>> m_classes; ///< that new objects need
    bool m_toldNoObjects = false;
    std::unordered_map<quint32, QByteArray> m_renamed; ///< encoded new name by slot of the layer
    QHash<QByteArray, QByteArray> m_renamedKeys; ///< the same by folded name in the file
};
