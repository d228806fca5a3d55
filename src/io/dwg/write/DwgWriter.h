#pragma once

#include "database/tables/OdDbSymbolTable.h"
#include "io/DrawingCodec.h"
#include "io/dwg/write/DwgMeant.h"
#include "io/dwg/write/NewDwgRecords.h"
#include "io/records/RecordWriter.h"

#include <map>
#include <set>

class DwgObjectSource;

/// Writes a drawing back over the DWG file it was read from: records that were not edited are
/// copied bit by bit, edited ones are patched, new ones are spelled whole.
class DwgWriter final : private RecordWriter
{
public:
    DwgWriter(const DwgObjectSource& source, const OdDbDatabase& database);
    DrawingPieces run();

private:
    static QString tr(const char* text);
    /// A count as a record has it.
    static BitWriter number(std::size_t count);

    // What was touched
    QString whyNotHeld(quint32 slot) const override;
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
    void tellLostColor(const LayerState& layer);

    // What is new
    void addLayer(quint32 slot, NewDwgRecords::Head head);
    void addDictionary(quint32 slot, const NewDwgRecords::Head& head);
    void addEntity(quint32 slot, const NewDwgRecords::Head& head);
    void addVariable(quint32 slot, const NewDwgRecords::Head& head);
    void addXrecord(quint32 slot, NewDwgRecords::Head head, const XrecordState& state);
    NewDwgRecords::EntityHead entityHead(quint32 slot, const GroupList& groups) const;
    NewDwgRecords::Head headOf(quint32 slot) const;
    void put(quint32 slot, quint64 handle, const QByteArray& record);

    // Extended data
    struct XData
    {
        QString application;
        GroupList groups; ///< without the application
    };
    /// Extended data as DXF has them, from group 1001, by application.
    static std::vector<XData> divided(const GroupList& groups);
    /// Those that are new, by the handle of their application; `taken` bytes stand there already.
    std::vector<std::pair<quint64, QByteArray>>
    newXData(quint64 record, const std::vector<XData>& blocks, quint64 taken = 0);
    std::vector<std::pair<quint64, QByteArray>> layerXData(quint64 record, const LayerState& layer);
    void setXData(DwgRecord& record, const DwgHead& head, std::vector<XData> wanted,
                  RecordPatch& patch);
    void editLayerXData(DwgRecord& record, const DwgHead& head, const LayerState& before,
                        const LayerState& after, RecordPatch& patch);
    void tellXDataNotKept(quint64 record, const QString& application);
    quint64 application(const QString& name);

    // References to what was erased, in records that other programs check
    using EditOfRecord = void (DwgWriter::*)(DwgRecord& record, RecordPatch& patch) const;
    void clearReferences();
    /// All records of a type, behind their heads.
    void editRecords(QByteArrayView type, EditOfRecord edit);
    bool isGone(quint64 handle) const;
    /// Takes what is gone out of a list; false where nothing is.
    bool clearList(DwgRecord& record, std::vector<quint64> handles, BitSpan count, BitSpan at,
                   RecordPatch& patch) const;
    /// A layout names its viewports, and the last active one.
    void clearLayout(DwgRecord& record, RecordPatch& patch) const;
    /// A table lists the viewports; programs have it up to version 2000.
    void clearViewportEntry(DwgRecord& record, RecordPatch& patch) const;
    void clearUsesOfBlock(DwgRecord& record, RecordPatch& patch) const;
    void clearGroup(DwgRecord& record, RecordPatch& patch) const;
    void clearDrawOrder(DwgRecord& record, RecordPatch& patch) const;
    /// Any record may name what it is told of.
    void clearReactors();

    // What follows from it
    void editTables();
    void editBlocks();
    /// Up to version 2000 entities of a block form a chain.
    void relinkEntities(const std::vector<quint64>& entities);

    /// The record of a slot as it is now: edited before, or as the file has it.
    bool open(DwgRecord& record, DwgHead& head, quint32 slot,
              DwgEntityHead* entity = nullptr) const;
    void patched(quint32 slot, const RecordPatch& patch);
    void report(DrawingPieces& pieces) const;
    Spelling::HandleOf handleOf() const;

    const DwgObjectSource& m_source;
    NewDwgRecords m_newRecords;
    std::shared_ptr<DwgMeant> m_meant = std::make_shared<DwgMeant>();
    std::map<OdDbTableKind, std::vector<quint64>> m_addedToTables;
    std::set<OdDbTableKind> m_shrunkTables;
    std::set<quint32> m_changedBlocks;
    std::map<QString, quint64> m_applications; ///< made for this save
};
