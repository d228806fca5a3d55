#pragma once

#include "io/dwg/records/DwgRecord.h"
#include "io/dwg/records/OwnedEntities.h"

#include <vector>

/// Records of tables, each read behind its head.
namespace TableRecords {

/// The handles that a table's own record lists, in its order; `extras` more stand behind them,
/// which the record does not count.
struct Listed
{
    std::vector<quint64> handles;
    BitSpan count; ///< of the data
    BitSpan counted; ///< the references that are counted
};
Listed listed(DwgRecord& table, int extras);

/// Name and dependence on an external reference.
struct Name
{
    QString name;
    BitSpan at; ///< of the name, in the stream of texts
    bool dependent = false;
};
Name name(DwgRecord& record);

struct Layer
{
    Name head;
    bool frozen = false;
    bool off = false;
    bool frozenInNewViewports = false;
    bool locked = false;
    bool plottable = true;
    qint16 lineWeight = -3;
    OdCmColor color;
    quint64 plotStyle = 0;
    quint64 material = 0;
    quint64 linetype = 0;
    quint64 visualStyle = 0; ///< since version 2013
    // For edits of it.
    BitSpan flagsAt;
    BitSpan colorAt;
    BitSpan colorNamesAt; ///< in the stream of texts
    BitSpan plotStyleAt;
    BitSpan linetypeAt;
};
Layer layer(DwgRecord& record);

struct Linetype
{
    struct Dash
    {
        double length = 0;
        int shape = 0;
        double offset[2] = {0, 0};
        double scale = 1;
        double angle = 0;
        int flags = 0;
    };
    Name head;
    QString description;
    double length = 0;
    std::vector<Dash> dashes;
};
Linetype linetype(DwgRecord& record);

struct Block
{
    Name head;
    bool anonymous = false;
    bool hasAttributes = false;
    bool external = false;
    bool overlay = false;
    bool unloaded = false;
    double base[3] = {0, 0, 0};
    QString path;
    QString description;
    OwnedEntities entities;
    std::vector<quint64> uses; ///< references to the block, since version 2000
    quint64 layout = 0;
    BitSpan useBytesAt; ///< a byte for each of them
    BitSpan usesAt;
    BitSpan countAt; ///< of the entities, since version 2004
    BitSpan entitiesAt; ///< references to the first and the last one, or to all
};
Block block(DwgRecord& record);

} // namespace TableRecords
