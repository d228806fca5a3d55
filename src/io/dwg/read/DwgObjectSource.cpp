#include "io/dwg/read/DwgObjectSource.h"

#include "base/NumberText.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbDictionaryVar.h"
#include "database/objects/OdDbEntity.h"
#include "database/objects/OdDbLayout.h"
#include "database/objects/OdDbXrecord.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/tables/OdDbNamedRecord.h"
#include "io/dwg/read/DwgCursor.h"
#include "io/dwg/records/DwgTypes.h"
#include "io/dwg/records/SheetRecords.h"
#include "io/records/LayerXData.h"

DwgObjectSource::DwgObjectSource(std::unique_ptr<DwgFile> file, OdDbDatabase& database)
    : RecordSource(database)
    , m_file(std::move(file))
    , m_format(DwgFormat::of(m_file->version(), m_file->codePage()))
    , m_classes(*m_file, m_format)
{ }

quint64 DwgObjectSource::footprint() const
{
    return image().size() + static_cast<quint64>(m_file->section(DwgSection::Objects).size());
}

DwgRecord DwgObjectSource::reader() const
{
    return {m_format, m_file->section(DwgSection::Objects)};
}

bool DwgObjectSource::open(DwgRecord& record, quint32 slot) const
{
    return slot < m_offsets.size() && record.open(m_offsets[slot]);
}

QString DwgObjectSource::nameOf(quint64 handle) const
{
    const OdDbObjectId record = id(handle);
    return record.isNull() ? QString() : readNamed(record.slot()).name;
}

QString DwgObjectSource::plainNameOf(quint64 handle) const
{
    DwgRecord record = reader();
    return openObject(record, handle) ? TableRecords::name(record).name : QString();
}

bool DwgObjectSource::openObject(DwgRecord& record, quint64 handle) const
{
    const OdDbObjectId object = id(handle);
    if (object.isNull() || !open(record, object.slot()) || classes().isEntity(record.type()))
        return false;
    DwgHead head;
    record.readHead(head);
    return true;
}

OdCmColor DwgObjectSource::bookColor(quint64 handle) const
{
    DwgRecord record = reader();
    return openObject(record, handle) ? record.color() : OdCmColor();
}

std::unique_ptr<GroupCursor> DwgObjectSource::makeCursor() const
{
    return std::make_unique<DwgCursor>(*this);
}

quint32 DwgObjectSource::extensionDictionary(quint32 slot) const
{
    DwgRecord record = reader();
    if (!open(record, slot))
        return OdDbObjectId::kNoSlot;
    DwgHead head;
    DwgEntityHead entity;
    record.readHead(head, entity, database().store().has(slot, ObjectStore::kEntity));
    return id(head.extension).slot();
}

LayerState DwgObjectSource::readLayer(quint32 slot) const
{
    DwgRecord record = reader();
    if (!open(record, slot)) {
        LayerState none;
        none.linetype = database().getLinetypeContinuousId();
        return none;
    }
    DwgHead head;
    record.readHead(head);
    LayerState state =
        decodeLayer(record, head, [this](quint64 handle) { return plainNameOf(handle); });
    readLayerExtras(slot, id(head.extension), state);
    return state;
}

LayerState DwgObjectSource::decodeLayer(DwgRecord& record, const DwgHead& head,
                                        const FreeRecords::NameOf& nameOf) const
{
    LayerState state;
    state.linetype = database().getLinetypeContinuousId();
    const TableRecords::Layer layer = TableRecords::layer(record);
    state.name = layer.head.name;
    state.dependent = layer.head.dependent;
    state.off = layer.off;
    state.frozen = layer.frozen;
    state.locked = layer.locked;
    state.plottable = layer.plottable;
    state.frozenInNewViewports = layer.frozenInNewViewports;
    state.lineWeight = layer.lineWeight;
    // By-block, by-layer and what is no index say nothing on a layer.
    const OdCmColor::Method method = layer.color.colorMethod();
    if (method == OdCmColor::kByACI || method == OdCmColor::kByColor)
        state.color = layer.color;
    if (const OdDbObjectId linetype = id(layer.linetype); !linetype.isNull())
        state.linetype = linetype;
    state.plotStyle = id(layer.plotStyle);
    readLayerXData(FreeRecords::xData(record, head, nameOf), state);
    return state;
}

void DwgObjectSource::readLayerXData(const GroupList& xData, LayerState& layer) const
{
    LayerXData::Finder finder;
    for (const GroupList::Group& group : xData) {
        if (group.code == 1001)
            finder.startApplication(group.value);
        else if (const LayerXData::Property* found = finder.next(group.code))
            found->take(QString::fromUtf8(group.value),
                        NumberText::integer(group.value).value_or(0), layer);
    }
}

DictionaryState DwgObjectSource::readDictionary(quint32 slot) const
{
    DictionaryState state;
    DwgRecord record = reader();
    if (!open(record, slot))
        return state;
    DwgHead head;
    record.readHead(head);
    const FreeRecords::Dictionary dictionary = FreeRecords::dictionary(record);
    state.treatElementsAsHard = dictionary.hard;
    for (const auto& [key, handle] : dictionary.entries)
        state.entries.push_back({key, id(handle)});
    state.xData = FreeRecords::xData(record, head, [this](quint64 h) { return plainNameOf(h); });
    return state;
}

XrecordState DwgObjectSource::readXrecord(quint32 slot) const
{
    XrecordState state;
    DwgRecord record = reader();
    if (!open(record, slot))
        return state;
    DwgHead head;
    record.readHead(head);
    state.groups = FreeRecords::xrecord(record).own.groups;
    state.xData = FreeRecords::xData(record, head, [this](quint64 h) { return plainNameOf(h); });
    return state;
}

DictionaryVarState DwgObjectSource::readDictionaryVar(quint32 slot) const
{
    DwgRecord record = reader();
    if (!open(record, slot))
        return {};
    DwgHead head;
    record.readHead(head);
    record.data.rawChar(); // schema
    return {record.text()};
}

ViewportState DwgObjectSource::readViewport(quint32 slot) const
{
    ViewportState state;
    DwgRecord record = reader();
    if (!open(record, slot))
        return state;
    DwgHead head;
    DwgEntityHead entity;
    record.readHead(head, entity);
    const SheetRecords::Viewport viewport = SheetRecords::viewport(record);
    const ObjectStore& store = database().store();
    const bool hasList = record.since(DrawingVersion::V2000);
    for (const quint64 handle :
         hasList ? viewport.frozenLayers : SheetRecords::frozenInXData(record, head))
    {
        const OdDbObjectId layer = id(handle);
        if (!layer.isNull() && store.type(layer.slot()) == RecordType::Layer)
            state.frozenLayers.push_back(layer);
    }
    // This format numbers viewports by their place in the sheet only.
    for (const quint32 other : store.viewports()) {
        if (store.owner(other) == store.owner(slot))
            ++state.number;
        if (other == slot)
            break;
    }
    state.status = (viewport.flags & SheetRecords::Viewport::kOff) != 0 ? 0 : state.number;
    return state;
}

NamedRecordState DwgObjectSource::readNamed(quint32 slot) const
{
    DwgRecord record = reader();
    if (!open(record, slot))
        return {};
    DwgHead head;
    record.readHead(head);
    if (record.type() == DwgType::BlockHeader) {
        const TableRecords::Block block = TableRecords::block(record);
        return {wholeName(block), block.head.dependent};
    }
    const TableRecords::Name name = TableRecords::name(record);
    return {name.name, name.dependent};
}

QString DwgObjectSource::wholeName(const TableRecords::Block& block) const
{
    // "*D" here, "*D12" in the entity that the block begins with.
    const OdDbObjectId begin = id(block.entities.begin);
    if (!block.head.name.startsWith(QLatin1Char('*')) || begin.isNull())
        return block.head.name;
    DwgRecord record = reader();
    if (!open(record, begin.slot()) || record.type() != DwgType::Block)
        return block.head.name;
    DwgHead head;
    DwgEntityHead entity;
    record.readHead(head, entity);
    const QString name = record.text();
    return name.startsWith(block.head.name, Qt::CaseInsensitive) ? name : block.head.name;
}

LinetypeState DwgObjectSource::readLinetype(quint32 slot) const
{
    LinetypeState state;
    DwgRecord record = reader();
    if (!open(record, slot))
        return state;
    DwgHead head;
    record.readHead(head);
    const TableRecords::Linetype linetype = TableRecords::linetype(record);
    state.name = linetype.head.name;
    state.dependent = linetype.head.dependent;
    state.description = linetype.description;
    for (const TableRecords::Linetype::Dash& dash : linetype.dashes)
        state.dashes.push_back(dash.length);
    return state;
}

LayoutState DwgObjectSource::readLayout(quint32 slot) const
{
    DwgRecord record = reader();
    if (!open(record, slot))
        return {};
    DwgHead head;
    record.readHead(head);
    const SheetRecords::Layout layout = SheetRecords::layout(record);
    return {layout.name, layout.tabOrder, id(layout.block), id(layout.lastActiveViewport),
            layout.styleSheet};
}

BlockState DwgObjectSource::readBlock(quint32 slot) const
{
    BlockState state;
    DwgRecord record = reader();
    if (!open(record, slot))
        return state;
    DwgHead head;
    record.readHead(head);
    const TableRecords::Block block = TableRecords::block(record);
    constexpr int kAnonymous = 1;
    constexpr int kAttributes = 2;
    constexpr int kExternal = 4;
    constexpr int kOverlay = 8;
    constexpr int kDependent = 16;
    constexpr int kResolved = 32;
    state.name = wholeName(block);
    state.layout = id(block.layout);
    std::copy(std::begin(block.base), std::end(block.base), std::begin(state.basePoint));
    state.path = block.path;
    state.unloaded = block.unloaded;
    state.flags = (block.anonymous ? kAnonymous : 0) | (block.hasAttributes ? kAttributes : 0)
        | (block.external ? kExternal : 0) | (block.overlay ? kExternal | kOverlay : 0)
        | (block.head.dependent ? kDependent : 0) | (block.external ? kResolved : 0);
    return state;
}
