#include "io/dwg/write/NewDwgRecords.h"

#include "base/NumberText.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/values/GroupList.h"
#include "io/dwg/records/DwgLayerFlag.h"
#include "io/dwg/records/DwgTypes.h"

#include <algorithm>

namespace {

constexpr qint16 kCloning = 1; ///< keep what is there

void appendType(BitWriter& out, DrawingVersion version, quint16 type)
{
    constexpr quint16 kClasses = 0x1F0;
    if (version < DrawingVersion::V2010) {
        out.bitShort(static_cast<qint16>(type));
    } else if (type <= 0xFF) {
        out.bits(0, 2);
        out.rawChar(static_cast<quint8>(type));
    } else if (type >= kClasses && type <= kClasses + 0xFF) {
        out.bits(1, 2);
        out.rawChar(static_cast<quint8>(type - kClasses));
    } else {
        out.bits(2, 2);
        out.rawShort(type);
    }
}

double value(const GroupList& groups, int code)
{
    for (const GroupList::Group& group : groups) {
        if (group.code == code)
            return NumberText::real(group.value).value_or(0.0);
    }
    return code == 230 ? 1.0 : 0.0;
}

void appendPlane(BitWriter& data, const GroupList& groups)
{
    const double thickness = value(groups, 39);
    data.bit(thickness == 0);
    if (thickness != 0)
        data.bitDouble(thickness);
    const double normal[3] = {value(groups, 210), value(groups, 220), value(groups, 230)};
    const bool isUp = normal[0] == 0 && normal[1] == 0 && normal[2] == 1;
    data.bit(isUp);
    if (!isUp) {
        for (const double coordinate : normal)
            data.bitDouble(coordinate);
    }
}

} // namespace

int NewDwgRecords::layerFlags(const LayerState& state)
{
    return (state.frozen ? DwgLayerFlag::kFrozen : 0) | (state.off ? DwgLayerFlag::kOff : 0)
        | (state.frozenInNewViewports ? DwgLayerFlag::kFrozenInNewViewports : 0)
        | (state.locked ? DwgLayerFlag::kLocked : 0)
        | (state.plottable ? DwgLayerFlag::kPlottable : 0)
        | dwgLineWeightNumber(state.lineWeight) << DwgLayerFlag::kLineWeightShift;
}

int NewDwgRecords::changedLayerFlags(int flags, const LayerState& before, const LayerState& after)
{
    constexpr int kWeight = DwgLayerFlag::kLineWeightMask << DwgLayerFlag::kLineWeightShift;
    const int now = layerFlags(after);
    int changed = (layerFlags(before) ^ now) & ~kWeight;
    // Numbers that stand for no lineweight stay as they are until there is one.
    if (before.lineWeight != after.lineWeight)
        changed |= kWeight;
    return (flags & ~changed) | (now & changed);
}

BitWriter NewDwgRecords::spelledXData(const std::vector<std::pair<quint64, QByteArray>>& blocks)
{
    BitWriter out;
    for (const auto& [application, bytes] : blocks) {
        if (bytes.isEmpty())
            continue; // a length of zero ends them all
        out.bitShort(static_cast<qint16>(bytes.size()));
        out.handle(DwgReference::HardPointer, application);
        out.raw(bytes);
    }
    out.bitShort(0);
    return out;
}

RecordParts NewDwgRecords::begin(quint16 type, const Head& head) const
{
    RecordParts parts;
    parts.version = m_format.version;
    appendType(parts.data, m_format.version, type);
    parts.lengthAt = parts.data.size();
    if (!since(DrawingVersion::V2010))
        parts.data.rawLong(0);
    parts.data.handle(DwgReference::Own, head.handle);
    parts.data.append(spelledXData(head.xData));
    return parts;
}

void NewDwgRecords::appendReactors(RecordParts& parts, const Head& head) const
{
    parts.data.bitLong(static_cast<qint32>(head.reactors.size()));
    for (const quint64 reactor : head.reactors)
        parts.handles.handle(DwgReference::SoftPointer, reactor);
    if (since(DrawingVersion::V2004))
        parts.data.bit(head.extension == 0);
    if (head.extension != 0 || !since(DrawingVersion::V2004))
        parts.handles.handle(DwgReference::HardOwner, head.extension);
    if (since(DrawingVersion::V2013))
        parts.data.bit(false);
}

void NewDwgRecords::appendText(RecordParts& parts, const QString& text) const
{
    BitWriter& out = hasTextStream(m_format.version) ? parts.text : parts.data;
    out.append(Spelling::text(m_format, text));
    parts.hasText = parts.text.size() > 0;
}

void NewDwgRecords::appendName(RecordParts& parts, const QString& name) const
{
    appendText(parts, name);
    if (since(DrawingVersion::V2007)) {
        parts.data.bitShort(0);
    } else {
        parts.data.bit(true); // referred to
        parts.data.bitShort(0);
        parts.data.bit(false);
    }
}

QByteArray NewDwgRecords::layer(const Head& head, const LayerState& state, const LayerLinks& links,
                                const TableRecords::Layer& zero) const
{
    RecordParts parts = begin(DwgType::Layer, head);
    parts.handles.handle(DwgHandle::shortest(head.handle, head.owner));
    appendReactors(parts, head);
    appendName(parts, state.name);
    parts.data.bitShort(static_cast<qint16>(layerFlags(state)));
    const Spelling::Color color = Spelling::color(m_format, state.color);
    parts.data.append(color.data);
    (hasTextStream(m_format.version) ? parts.text : parts.data).append(color.names);
    const auto link = [&](quint64 handle) {
        parts.handles.handle(DwgReference::HardPointer, handle);
    };
    link(0); // no external reference
    link(links.plotStyle != 0 ? links.plotStyle : zero.plotStyle);
    if (since(DrawingVersion::V2007))
        link(zero.material);
    link(links.linetype != 0 ? links.linetype : zero.linetype);
    if (since(DrawingVersion::V2013))
        link(zero.visualStyle);
    return parts.assembled();
}

QByteArray NewDwgRecords::linetype(const Head& head, const LinetypeState& state) const
{
    constexpr quint8 kAlignment = 'A';
    constexpr qsizetype kTextArea = 256; ///< of texts in the pattern, up to version 2004
    RecordParts parts = begin(DwgType::Ltype, head);
    BitWriter& data = parts.data;
    parts.handles.handle(DwgHandle::shortest(head.handle, head.owner));
    appendReactors(parts, head);
    appendName(parts, state.name);
    appendText(parts, state.description);
    double length = 0;
    for (const double dash : state.dashes)
        length += std::abs(dash);
    data.bitDouble(length);
    data.rawChar(kAlignment);
    data.rawChar(static_cast<quint8>(state.dashes.size()));
    for (const double dash : state.dashes) {
        data.bitDouble(dash);
        data.bitShort(0);
        data.rawDouble(0);
        data.rawDouble(0);
        data.bitDouble(1);
        data.bitDouble(0);
        data.bitShort(0);
    }
    if (!since(DrawingVersion::V2007))
        data.raw(QByteArray(kTextArea, '\0'));
    parts.handles.handle(DwgReference::HardPointer, 0);
    for (std::size_t i = 0; i < state.dashes.size(); ++i)
        parts.handles.handle(DwgReference::HardPointer, 0);
    return parts.assembled();
}

QByteArray NewDwgRecords::application(const Head& head, const QString& name) const
{
    RecordParts parts = begin(DwgType::AppId, head);
    parts.handles.handle(DwgHandle::shortest(head.handle, head.owner));
    appendReactors(parts, head);
    appendName(parts, name);
    parts.data.rawChar(0);
    parts.handles.handle(DwgReference::HardPointer, 0);
    return parts.assembled();
}

QByteArray NewDwgRecords::dictionary(const Head& head, bool hard,
                                     const std::vector<KeyedHandle>& entries) const
{
    RecordParts parts = begin(DwgType::Dictionary, head);
    parts.handles.handle(DwgHandle::shortest(head.handle, head.owner));
    appendReactors(parts, head);
    parts.data.bitLong(static_cast<qint32>(entries.size()));
    parts.data.bitShort(kCloning);
    parts.data.rawChar(hard ? 1 : 0);
    for (const auto& [key, handle] : entries) {
        appendText(parts, key);
        parts.handles.handle(DwgReference::SoftOwner, handle);
    }
    return parts.assembled();
}

std::optional<QByteArray> NewDwgRecords::xrecord(const Head& head, const GroupList& groups) const
{
    RecordParts parts = begin(DwgType::Xrecord, head);
    parts.handles.handle(DwgHandle::shortest(head.handle, head.owner));
    appendReactors(parts, head);
    BitWriter spelled;
    if (!Spelling::freeGroups(m_format, groups, spelled))
        return std::nullopt;
    parts.data.bitLong(static_cast<qint32>(spelled.size() / 8));
    parts.data.append(spelled);
    parts.data.bitShort(kCloning);
    return parts.assembled();
}

QByteArray NewDwgRecords::variable(const Head& head, quint16 type, const QString& value) const
{
    RecordParts parts = begin(type, head);
    parts.handles.handle(DwgHandle::shortest(head.handle, head.owner));
    appendReactors(parts, head);
    parts.data.rawChar(0);
    appendText(parts, value);
    return parts.assembled();
}

void NewDwgRecords::beginEntity(RecordParts& parts, const Head& head,
                                const EntityHead& entity) const
{
    BitWriter& data = parts.data;
    data.bit(false); // no picture
    data.bits(static_cast<quint32>(entity.space), 2);
    if (entity.space == DwgEntityHead::Space::Owner)
        parts.handles.handle(DwgHandle::shortest(head.handle, head.owner));
    appendReactors(parts, head);
    if (!since(DrawingVersion::V2004)) {
        const bool areBeside = entity.previous == head.handle - 1 && entity.next == head.handle + 1;
        data.bit(areBeside);
        for (const quint64 neighbour : {entity.previous, entity.next}) {
            if (!areBeside)
                parts.handles.handle(DwgHandle::shortest(head.handle, neighbour));
        }
    }
    data.bitShort(entity.color);
    data.bitDouble(entity.linetypeScale);
    parts.handles.handle(DwgReference::HardPointer, entity.layer);
    constexpr quint8 kNamed = 3;
    data.bits(entity.linetypeKind, 2);
    if (entity.linetypeKind == kNamed)
        parts.handles.handle(DwgReference::HardPointer, entity.linetype);
    if (since(DrawingVersion::V2007)) {
        data.bits(0, 2); // material by layer
        data.rawChar(0);
    }
    data.bits(0, 2); // plot style by layer
    if (since(DrawingVersion::V2010))
        data.bits(0, 3); // no visual styles
    data.bitShort(0); // visible
    data.rawChar(static_cast<quint8>(dwgLineWeightNumber(entity.lineWeight)));
}

void NewDwgRecords::appendLine(BitWriter& data, const GroupList& groups)
{
    const bool flat = value(groups, 30) == 0 && value(groups, 31) == 0;
    data.bit(flat);
    for (int axis = 0; axis < (flat ? 2 : 3); ++axis) {
        const double first = value(groups, 10 + 10 * axis);
        data.rawDouble(first);
        data.bitDouble(value(groups, 11 + 10 * axis), first);
    }
    appendPlane(data, groups);
}

void NewDwgRecords::appendCircle(BitWriter& data, const GroupList& groups)
{
    for (int axis = 0; axis < 3; ++axis)
        data.bitDouble(value(groups, 10 + 10 * axis));
    data.bitDouble(value(groups, 40));
    appendPlane(data, groups);
}

void NewDwgRecords::appendTextEntity(RecordParts& parts, const GroupList& groups,
                                     quint64 style) const
{
    // A set bit: that value has its standard and is left out.
    enum Standard : quint8 {
        kElevation = 1,
        kAlignmentPoint = 2,
        kOblique = 4,
        kRotation = 8,
        kWidth = 16,
        kGeneration = 32,
        kHorizontal = 64,
        kVertical = 128,
    };
    constexpr double kDegreesToRadians = 0.017453292519943295;
    BitWriter& data = parts.data;
    const double elevation = value(groups, 30);
    const double rotation = value(groups, 50);
    data.rawChar(kAlignmentPoint | kOblique | kWidth | kGeneration | kHorizontal | kVertical
                 | (elevation == 0 ? kElevation : 0) | (rotation == 0 ? kRotation : 0));
    if (elevation != 0)
        data.rawDouble(elevation);
    data.rawDouble(value(groups, 10));
    data.rawDouble(value(groups, 20));
    data.bit(true); // upwards
    data.bit(true); // without thickness
    if (rotation != 0)
        data.rawDouble(rotation * kDegreesToRadians);
    data.rawDouble(value(groups, 40));
    QString text;
    for (const GroupList::Group& group : groups) {
        if (group.code == 1)
            text = QString::fromUtf8(group.value);
    }
    appendText(parts, text);
    parts.handles.handle(DwgReference::HardPointer, style);
}

std::optional<QByteArray> NewDwgRecords::entity(const Head& head, const EntityHead& entity,
                                                QByteArrayView type, const GroupList& groups) const
{
    struct Kind
    {
        QByteArrayView name;
        quint16 type;
    };
    constexpr Kind kKinds[] = {
        {"LINE", DwgType::Line}, {"CIRCLE", DwgType::Circle}, {"TEXT", DwgType::Text}};
    const auto kind = std::find_if(std::begin(kKinds), std::end(kKinds),
                                   [&](const Kind& known) { return known.name == type; });
    if (kind == std::end(kKinds))
        return std::nullopt;
    RecordParts parts = begin(kind->type, head);
    beginEntity(parts, head, entity);
    if (kind->type == DwgType::Line)
        appendLine(parts.data, groups);
    else if (kind->type == DwgType::Circle)
        appendCircle(parts.data, groups);
    else
        appendTextEntity(parts, groups, entity.textStyle);
    return parts.assembled();
}
