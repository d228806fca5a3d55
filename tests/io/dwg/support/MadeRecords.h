#pragma once

#include "io/dwg/records/DwgFormat.h"
#include "io/dwg/support/MadeDrawing.h"
#include "io/dwg/write/NewDwgRecords.h"

#include <map>

/// The records of a made drawing: tables, blocks, a sheet with a viewport, dictionaries, layers and
/// what hangs on them, entities.
class MadeRecords
{
public:
    /// The number of the class DICTIONARYVAR.
    static constexpr quint16 kVariableType = 500;

    MadeRecords(const MadeDrawing& drawing, const DwgFormat& format);

    /// By handle, each from its size to its sum.
    const std::map<quint64, QByteArray>& all() const { return m_records; }
    static quint64 layerHandle(std::size_t layer);

private:
    using Head = NewDwgRecords::Head;
    using EntityHead = NewDwgRecords::EntityHead;

    // Tables
    void addControls();
    void addControl(quint16 type, const Head& head, const std::vector<quint64>& records,
                    const std::vector<quint64>& extras = {});
    void addApplications();
    void addLinetypes();
    void addStyle();
    void addDimStyle();
    void addLayers();
    std::vector<std::pair<quint64, QByteArray>> xData(const LayerState& state) const;
    // Blocks and sheets
    void addBlock(quint64 handle, const QString& name, quint64 begin,
                  const std::vector<quint64>& entities, quint64 layout);
    void addLayout(quint64 handle, const QString& name, int order, quint64 block,
                   const std::vector<quint64>& viewports);
    void addViewport(quint64 handle, const EntityHead& entity, double width,
                     const std::vector<quint64>& frozen);
    void addVport();
    void addEntities();
    // Dictionaries
    void addDictionaries();
    void addFilters();
    void addState();
    void addOverrides();
    void addXrecord(quint64 handle, quint64 owner, const GroupList& groups);

    void put(quint64 handle, const RecordParts& parts) { m_records[handle] = parts.assembled(); }
    RecordParts begin(quint16 type, const Head& head) const;
    bool since(DrawingVersion version) const { return m_drawing.version >= version; }

    const MadeDrawing& m_drawing;
    const DwgFormat& m_format;
    NewDwgRecords m_new;
    std::map<quint64, QByteArray> m_records;
};
