#include "io/dwg/records/TableRecords.h"

#include "io/dwg/records/DwgLayerFlag.h"

#include <algorithm>

namespace {

constexpr int kDependentIndex = 0x100;

} // namespace

TableRecords::Listed TableRecords::listed(DwgRecord& table, int extras)
{
    Listed listed;
    listed.count.begin = table.data.position();
    const quint64 counted = table.count(8);
    listed.count.end = table.data.position();
    listed.counted.begin = table.handles.position();
    const quint64 all = counted + static_cast<quint64>(extras);
    for (quint64 i = 0; i < all && !table.hasFailed(); ++i) {
        listed.handles.push_back(table.reference());
        if (i + 1 == counted)
            listed.counted.end = table.handles.position();
    }
    listed.counted.end = std::max(listed.counted.begin, listed.counted.end);
    return listed;
}

TableRecords::Name TableRecords::name(DwgRecord& record)
{
    Name name;
    name.at.begin = record.textPosition();
    name.name = record.text();
    name.at.end = record.textPosition();
    if (record.since(DrawingVersion::V2007)) {
        name.dependent = (record.data.bitShort() & kDependentIndex) != 0;
    } else {
        record.data.bit(); // is referred to
        record.data.bitShort(); // number of the reference, from 1
        name.dependent = record.data.bit();
    }
    return name;
}

TableRecords::Layer TableRecords::layer(DwgRecord& record)
{
    Layer layer;
    BitReader& data = record.data;
    layer.head = name(record);
    layer.flagsAt.begin = data.position();
    if (record.since(DrawingVersion::V2000)) {
        const int flags = data.bitShort();
        layer.frozen = (flags & DwgLayerFlag::kFrozen) != 0;
        layer.off = (flags & DwgLayerFlag::kOff) != 0;
        layer.frozenInNewViewports = (flags & DwgLayerFlag::kFrozenInNewViewports) != 0;
        layer.locked = (flags & DwgLayerFlag::kLocked) != 0;
        layer.plottable = (flags & DwgLayerFlag::kPlottable) != 0;
        layer.lineWeight =
            dwgLineWeight(flags >> DwgLayerFlag::kLineWeightShift & DwgLayerFlag::kLineWeightMask);
    } else {
        layer.frozen = data.bit();
        layer.off = data.bit();
        layer.frozenInNewViewports = data.bit();
        layer.locked = data.bit();
    }
    layer.flagsAt.end = layer.colorAt.begin = data.position();
    layer.colorNamesAt.begin = record.textPosition();
    layer.color = record.color();
    layer.colorAt.end = data.position();
    layer.colorNamesAt.end = record.textPosition();
    record.reference(); // block of the external reference
    layer.plotStyleAt.begin = record.handles.position();
    if (record.since(DrawingVersion::V2000))
        layer.plotStyle = record.reference();
    layer.plotStyleAt.end = record.handles.position();
    if (record.since(DrawingVersion::V2007))
        layer.material = record.reference();
    layer.linetypeAt.begin = record.handles.position();
    layer.linetype = record.reference();
    layer.linetypeAt.end = record.handles.position();
    if (record.since(DrawingVersion::V2013))
        layer.visualStyle = record.reference();
    return layer;
}

TableRecords::Linetype TableRecords::linetype(DwgRecord& record)
{
    constexpr quint32 kMostDashes = 12;
    Linetype linetype;
    BitReader& data = record.data;
    linetype.head = name(record);
    linetype.description = record.text();
    linetype.length = data.bitDouble();
    data.rawChar(); // alignment
    const quint32 count = qMin<quint32>(data.rawChar(), kMostDashes);
    for (quint32 i = 0; i < count && !record.hasFailed(); ++i) {
        Linetype::Dash dash;
        dash.length = data.bitDouble();
        dash.shape = data.bitShort();
        dash.offset[0] = data.rawDouble();
        dash.offset[1] = data.rawDouble();
        dash.scale = data.bitDouble();
        dash.angle = data.bitDouble();
        dash.flags = data.bitShort();
        linetype.dashes.push_back(dash);
    }
    return linetype;
}

TableRecords::Block TableRecords::block(DwgRecord& record)
{
    Block block;
    BitReader& data = record.data;
    block.head = name(record);
    block.anonymous = data.bit();
    block.hasAttributes = data.bit();
    block.external = data.bit();
    block.overlay = data.bit();
    if (record.since(DrawingVersion::V2000))
        block.unloaded = data.bit();
    const bool hasOwn = !block.external && !block.overlay;
    block.countAt.begin = data.position();
    const quint32 count = hasOwn && record.since(DrawingVersion::V2004) ? record.count(8) : 0;
    block.countAt.end = data.position();
    record.point(block.base);
    block.path = record.text();
    quint32 uses = 0;
    if (record.since(DrawingVersion::V2000)) {
        block.useBytesAt.begin = data.position();
        while (data.rawChar() != 0)
            ++uses;
        block.useBytesAt.end = block.useBytesAt.begin + 8 * quint64(uses);
        block.description = record.text();
    }
    record.reference(); // none
    block.entities.begin = record.reference();
    block.entitiesAt.begin = record.handles.position();
    if (hasOwn && !record.since(DrawingVersion::V2004)) {
        block.entities.first = record.reference();
        block.entities.last = record.reference();
    }
    for (quint32 i = 0; i < count && !record.hasFailed(); ++i)
        block.entities.listed.push_back(record.reference());
    block.entitiesAt.end = record.handles.position();
    block.entities.end = record.reference();
    if (record.since(DrawingVersion::V2000)) {
        block.usesAt.begin = record.handles.position();
        for (quint32 i = 0; i < uses && !record.hasFailed(); ++i)
            block.uses.push_back(record.reference());
        block.usesAt.end = record.handles.position();
        block.layout = record.reference();
    }
    return block;
}
