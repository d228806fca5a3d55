#pragma once

#include "io/records/LayerXData.h"

#include <QByteArray>
#include <QStringList>

#include <bitset>

class DxfObjectSource;
class GroupCursor;
class RecordPatcher;

/// LAYER records as groups: which attribute of a layer stands under which group code.
namespace LayerGroups {

/// Fills a state from the groups of a record, in any order. Where a code stands twice, the first
/// counts, and so do an application's first extended data; what stands in its group (102) is none
/// of the layer's.
class Reader
{
public:
    Reader(const OdDbDatabase& database, LayerState& layer)
        : m_database(database)
        , m_layer(layer)
    { }
    void take(const GroupCursor& group);

private:
    void takeOwn(const GroupCursor& group);
    void takeExtendedData(const GroupCursor& group);

    const OdDbDatabase& m_database;
    LayerState& m_layer;
    std::bitset<1000> m_taken; ///< codes that were there already
    bool m_inGroup = false;
    LayerXData::Finder m_xData;
};

/// Turns the record of the file from `before` into `after`, as far as the record itself holds it
/// (overrides and the reconciled flag stand in other records). What the drawing's version cannot
/// hold is added to `notKept` in words.
void patch(RecordPatcher& record, const DxfObjectSource& source, const LayerState& before,
           const LayerState& after, QStringList& notKept);

/// The groups of a new record behind its subclass marks, as the file spells them.
QByteArray spelled(const DxfObjectSource& source, const LayerState& layer, QStringList& notKept);

/// Applications whose extended data comes or changes between the states.
QList<QByteArray> applications(const LayerState& before, const LayerState& after);

} // namespace LayerGroups
