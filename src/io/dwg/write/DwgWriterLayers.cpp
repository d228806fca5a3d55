#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbXrecord.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "io/dwg/read/DwgObjectSource.h"
#include "io/dwg/write/DwgWriter.h"
#include "io/dxf/read/LayerGroups.h"

#include <algorithm>

using Stream = RecordPatch::Stream;

namespace {

/// A property of layers that stands in the extended data of an application.
struct Application
{
    const char* name;
    bool (*differs)(const LayerState&, const LayerState&);
    bool (*isNeeded)(const LayerState&);
    int code;
    int number; ///< the first, second, ... group of that code holds the value
    QByteArray (*value)(const LayerState&);
};
constexpr Application kApplications[] = {
    {LayerGroups::kDescriptionApplication,
     [](const LayerState& a, const LayerState& b) { return a.description != b.description; },
     [](const LayerState& layer) { return !layer.description.isEmpty(); }, 1000, 2,
     [](const LayerState& layer) { return layer.description.toUtf8(); }},
    {LayerGroups::kTransparencyApplication,
     [](const LayerState& a, const LayerState& b) { return a.transparency != b.transparency; },
     [](const LayerState& layer) { return layer.transparency != 0; }, 1071, 1,
     [](const LayerState& layer) { return QByteArray::number(layer.transparency); }},
};

/// The groups with the layer's value where it belongs; other groups stay.
GroupList withValue(const Application& application, const GroupList& groups,
                    const LayerState& layer)
{
    GroupList result;
    int values = 0;
    for (const GroupList::Group& group : groups) {
        const bool isValue = group.code == application.code && ++values == application.number;
        if (isValue)
            result.append(group.code, application.value(layer));
        else
            result.append(group);
    }
    while (++values < application.number)
        result.append(application.code, QByteArrayView(""));
    if (values == application.number)
        result.append(application.code, application.value(layer));
    return result;
}

} // namespace

void DwgWriter::editLayer(quint32 slot)
{
    const auto layer = m_database.idOfSlot(slot).safeOpenObject<OdDbLayerTableRecord>();
    const LayerState before = m_source.readLayer(slot);
    const LayerState& after = layer->state();
    DwgRecord record = m_source.reader();
    DwgHead head;
    if (before == after || !open(record, head, slot))
        return;
    const TableRecords::Layer fields = TableRecords::layer(record);
    RecordPatch patch(record);
    if (before.name != after.name)
        patch.replace(Stream::Text, fields.head.at, Spelling::text(m_source.format(), after.name));
    record.data.seek(fields.flagsAt.begin);
    const int flags = record.data.bitShort();
    const int flagsNow = NewDwgRecords::changedLayerFlags(flags, before, after);
    if (flagsNow != flags) {
        BitWriter bits;
        bits.bitShort(static_cast<qint16>(flagsNow));
        patch.replace(Stream::Data, fields.flagsAt, bits);
    }
    if (before.color != after.color) {
        tellLostColor(after);
        const Spelling::Color color = Spelling::color(m_source.format(), after.color);
        BitWriter data = color.data;
        if (hasTextStream(record.version()))
            patch.replace(Stream::Text, fields.colorNamesAt, color.names);
        else
            data.append(color.names);
        patch.replace(Stream::Data, fields.colorAt, data);
    }
    const auto link = [&](BitSpan at, OdDbObjectId target) {
        BitWriter bits;
        bits.handle(DwgReference::HardPointer,
                    target.isNull() ? 0 : used(target.getHandle().value()));
        patch.replace(Stream::Handles, at, bits);
    };
    if (before.linetype != after.linetype)
        link(fields.linetypeAt, after.linetype);
    if (before.plotStyle != after.plotStyle)
        link(fields.plotStyleAt, after.plotStyle);
    editLayerXData(record, head, before, after, patch);
    patched(slot, patch);
    editExtras(slot, before, after);
}

void DwgWriter::tellLostColor(const LayerState& layer)
{
    const bool isIndex =
        layer.color.colorMethod() != OdCmColor::kByColor && layer.color.bookName().isEmpty();
    if (!isIndex && m_source.format().version < DrawingVersion::V2004)
        tellNotKept(tr("The drawing's version cannot hold the true color of layer \"%1\".")
                        .arg(layer.name));
}

void DwgWriter::editLayerXData(DwgRecord& record, const DwgHead& head, const LayerState& before,
                               const LayerState& after, RecordPatch& patch)
{
    const bool differs = std::any_of(
        std::begin(kApplications), std::end(kApplications),
        [&](const Application& application) { return application.differs(before, after); });
    if (!differs)
        return;
    const auto nameOf = [this](quint64 handle) { return m_source.nameOf(handle); };
    const std::vector<FreeRecords::XDataBlock> blocks =
        FreeRecords::xDataBlocks(record, head, nameOf);
    BitWriter bits;
    std::vector<std::pair<quint64, QByteArray>> added;
    const auto spelled = [&](const GroupList& groups) {
        QByteArray bytes;
        Spelling::xData(m_source.format(), groups, handleOf(), bytes);
        return bytes;
    };
    std::set<const Application*> done;
    for (const FreeRecords::XDataBlock& block : blocks) {
        const QString name = nameOf(block.application);
        const auto* edited = std::find_if(
            std::begin(kApplications), std::end(kApplications), [&](const Application& known) {
                return known.differs(before, after)
                    && name.compare(QLatin1String(known.name), Qt::CaseInsensitive) == 0;
            });
        if (edited == std::end(kApplications) || !done.insert(edited).second) {
            bits.append(record.body(), block.at.begin, block.at.end);
            continue;
        }
        const QByteArray bytes = spelled(withValue(*edited, block.groups, after));
        bits.bitShort(static_cast<qint16>(bytes.size()));
        bits.handle(DwgReference::HardPointer, block.application);
        bits.raw(bytes);
    }
    for (const Application& known : kApplications) {
        if (known.differs(before, after) && !done.contains(&known))
            added.emplace_back(application(QLatin1String(known.name)),
                               spelled(withValue(known, {}, after)));
    }
    bits.append(NewDwgRecords::spelledXData(added));
    patch.replace(Stream::Data, head.xData, bits);
}

std::vector<std::pair<quint64, QByteArray>> DwgWriter::layerXData(const LayerState& layer)
{
    std::vector<std::pair<quint64, QByteArray>> blocks;
    for (const Application& known : kApplications) {
        if (!known.isNeeded(layer))
            continue;
        QByteArray bytes;
        Spelling::xData(m_source.format(), withValue(known, {}, layer), handleOf(), bytes);
        blocks.emplace_back(application(QLatin1String(known.name)), bytes);
    }
    return blocks;
}

void DwgWriter::makeXrecord(const KeyedHandle& entry, quint64 dictionary, const GroupList& groups)
{
    addXrecord(ObjectStore::kNone, {entry.handle, dictionary, {dictionary}}, groups);
}

void DwgWriter::makeDictionary(quint64 handle, quint64 owner,
                               const std::vector<KeyedHandle>& entries)
{
    put(ObjectStore::kNone, handle, m_newRecords.dictionary({handle, owner}, true, entries));
}

void DwgWriter::addLayer(quint32 slot, NewDwgRecords::Head head)
{
    const auto layer = m_database.idOfSlot(slot).safeOpenObject<OdDbLayerTableRecord>();
    const LayerState& state = layer->state();
    editExtras(slot, LayerState(), state);
    tellLostColor(state);
    head.extension = extensionOf(slot);
    head.xData = layerXData(state);
    DwgRecord record = m_source.reader();
    DwgHead zeroHead;
    TableRecords::Layer zero;
    if (open(record, zeroHead, m_database.getLayerZeroId().slot()))
        zero = TableRecords::layer(record);
    const auto handle = [this](OdDbObjectId id) {
        return id.isNull() ? 0 : used(id.getHandle().value());
    };
    put(slot, head.handle,
        m_newRecords.layer(head, state, {handle(state.linetype), handle(state.plotStyle)}, zero));
    m_addedToTables[OdDbTableKind::Layer].push_back(head.handle);
}

quint64 DwgWriter::application(const QString& name)
{
    const OdDbSymbolTable& table = m_database.table(OdDbTableKind::RegApp);
    if (const OdDbObjectId known = table.getAt(name); !known.isNull())
        return known.getHandle().value();
    quint64& handle = m_applications[name];
    if (handle == 0) {
        handle = m_source.handleOfMade(table.objectId().slot(), name);
        put(ObjectStore::kNone, handle,
            m_newRecords.application({handle, table.objectId().getHandle().value()}, name));
        m_addedToTables[OdDbTableKind::RegApp].push_back(handle);
    }
    return handle;
}
