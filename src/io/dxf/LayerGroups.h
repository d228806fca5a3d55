#pragma once

#include "database/GroupList.h"
#include "database/OdDbLayerTableRecord.h"

#include <QByteArray>

#include <vector>

class DxfCursor;
class DxfText;
class GroupCursor;

/// LAYER records as groups: which attribute of a layer stands under which group code.
namespace LayerGroups {

/// Fills a state from the groups of a record, in any order.
class Reader
{
public:
    Reader(const OdDbDatabase& database, LayerState& layer)
        : m_database(database)
        , m_layer(layer)
    { }
    void take(const GroupCursor& group);

private:
    void takeExtendedData(const GroupCursor& group);

    const OdDbDatabase& m_database;
    LayerState& m_layer;
    QByteArray m_application; ///< whose extended data follows, upper case
    int m_strings = 0;
};

/// Takes one record of a layer's extension dictionary: viewport overrides, the reconciled flag.
void readExtra(const OdDbDatabase& database, const QString& key, const GroupList& groups,
               LayerState& layer);

/// One replaced byte range of the file image.
struct Patch
{
    quint64 begin = 0;
    quint64 end = 0;
    QByteArray bytes;
};

/// Appends the patches that turn the record in the image from `before` into `after`. Raises OdError
/// with NotImplementedYet for a difference that has no form in this file.
void patch(DxfCursor& record, const LayerState& before, const LayerState& after,
           const DxfText& text, std::vector<Patch>& patches);

} // namespace LayerGroups
