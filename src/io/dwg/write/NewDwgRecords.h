#pragma once

#include "database/tables/OdDbLayerTableRecord.h"
#include "io/dwg/records/TableRecords.h"
#include "io/dwg/write/RecordPatch.h"
#include "io/dwg/write/Spelling.h"
#include "io/records/KeyedHandle.h"

#include <optional>
#include <vector>

struct LinetypeState;
class GroupList;

/// Records that a file does not have yet, for its version.
class NewDwgRecords
{
public:
    explicit NewDwgRecords(const DwgFormat& format)
        : m_format(format)
    { }

    /// What heads a record; handles are 0 where there is none.
    struct Head
    {
        quint64 handle = 0;
        quint64 owner = 0;
        std::vector<quint64> reactors = {};
        quint64 extension = 0;
        /// Extended data by the handle of their application, as Spelling has them.
        std::vector<std::pair<quint64, QByteArray>> xData = {};
    };

    /// Handles that a layer refers to; what the state has none of is taken from `zero`, layer 0.
    struct LayerLinks
    {
        quint64 linetype = 0;
        quint64 plotStyle = 0;
    };
    QByteArray layer(const Head& head, const LayerState& state, const LayerLinks& links,
                     const TableRecords::Layer& zero) const;
    QByteArray linetype(const Head& head, const LinetypeState& state) const;
    QByteArray application(const Head& head, const QString& name) const;
    QByteArray dictionary(const Head& head, bool hard,
                          const std::vector<KeyedHandle>& entries) const;
    /// Nothing where a group has no form in this format.
    std::optional<QByteArray> xrecord(const Head& head, const GroupList& groups) const;
    /// `type` is the number of the class DICTIONARYVAR.
    QByteArray variable(const Head& head, quint16 type, const QString& value) const;

    struct EntityHead
    {
        DwgEntityHead::Space space = DwgEntityHead::Space::Owner;
        quint64 layer = 0;
        // Up to version 2000: its neighbours in the block.
        quint64 previous = 0;
        quint64 next = 0;
        qint16 color = 256; ///< index, 0 by block, 256 by layer
        quint8 linetypeKind = 0; ///< as DwgEntityHead has it
        quint64 linetype = 0;
        qint16 lineWeight = -1;
        double linetypeScale = 1;
        quint64 textStyle = 0; ///< of a text
    };
    /// A LINE, a CIRCLE or a TEXT by its groups; nothing for another type.
    std::optional<QByteArray> entity(const Head& head, const EntityHead& entity,
                                     QByteArrayView type, const GroupList& groups) const;

    static int layerFlags(const LayerState& state);
    /// The flags of a record with the bits of what differs between the states.
    static int changedLayerFlags(int flags, const LayerState& before, const LayerState& after);
    /// Extended data as they stand in a head, with the zero behind them.
    static BitWriter spelledXData(const std::vector<std::pair<quint64, QByteArray>>& blocks);

    // Parts of records, for those that have no function of their own.
    RecordParts begin(quint16 type, const Head& head) const;
    /// Reactors and the dictionary of what hangs on the record.
    void appendReactors(RecordParts& parts, const Head& head) const;
    /// What all entities have, behind begin().
    void beginEntity(RecordParts& parts, const Head& head, const EntityHead& entity) const;
    void appendText(RecordParts& parts, const QString& text) const;
    /// Name and the marks of an external reference, which it has none of.
    void appendName(RecordParts& parts, const QString& name) const;
    bool since(DrawingVersion version) const { return m_format.version >= version; }

private:
    static void appendLine(BitWriter& data, const GroupList& groups);
    static void appendCircle(BitWriter& data, const GroupList& groups);
    void appendTextEntity(RecordParts& parts, const GroupList& groups, quint64 style) const;

    const DwgFormat& m_format;
};
