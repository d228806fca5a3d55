#include "database/states/DrawingLayers.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/store/HeaderVariables.h"
#include "database/store/ObjectStore.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLinetypeTableRecord.h"

#include <algorithm>
#include <limits>

namespace {

constexpr quint32 kOpaque = 0x020000FF;

/// The object of a handle if it is there and of that type; nothing is opened.
OdDbObjectId live(const OdDbDatabase& drawing, quint64 handle, RecordType type)
{
    const OdDbObjectId id = drawing.getOdDbObjectId(OdDbHandle(handle));
    const bool found = !id.isNull() && !id.isErased() && drawing.store().type(id.slot()) == type;
    return found ? id : OdDbObjectId();
}

} // namespace

DrawingLayers::DrawingLayers(OdDbDatabase& drawing)
    : m_drawing(drawing)
    , m_namedPlotStyles(drawing.header().intValue(QStringLiteral("$PSTYLEMODE"), 1) == 0)
    , m_viewport(drawing.activeViewportId().openObject<OdDbViewport>())
{ }

OdDbObjectId DrawingLayers::layer(const StoredLayer& stored) const
{
    if (stored.layerHandle != 0)
        return live(m_drawing, stored.layerHandle, RecordType::Layer);
    return stored.layerName.isEmpty()
        ? OdDbObjectId()
        : m_drawing.layerTable().getAt(QString::fromUtf8(stored.layerName));
}

bool DrawingLayers::wasErased(const StoredLayer& stored) const
{
    const OdDbObjectId id = m_drawing.getOdDbObjectId(OdDbHandle(stored.layerHandle));
    return !id.isNull() && id.isErased() && m_drawing.store().type(id.slot()) == RecordType::Layer;
}

OdDbObjectId DrawingLayers::linetype(const StoredLayer& stored) const
{
    if (stored.linetypeHandle != 0)
        return live(m_drawing, stored.linetypeHandle, RecordType::Ltype);
    if (stored.linetypeName.isEmpty())
        return {};
    const QByteArray name = stored.linetypeName.toByteArray();
    const auto known = m_linetypes.constFind(name);
    if (known != m_linetypes.constEnd())
        return *known;
    const OdDbObjectId found =
        m_drawing.table(OdDbTableKind::Linetype).getAt(QString::fromUtf8(name));
    m_linetypes.insert(name, found);
    return found;
}

const DrawingLayers::Styles& DrawingLayers::styles() const
{
    if (m_styles)
        return *m_styles;
    m_styles.emplace();
    const auto names =
        m_drawing.namedObject({QStringLiteral("ACAD_PLOTSTYLENAME")}).openObject<OdDbDictionary>();
    if (!names)
        return *m_styles;
    for (const DictionaryEntry& entry : names->entries()) {
        if (entry.value.isNull() || entry.value.isErased())
            continue;
        m_styles->insert(entry.value.slot(), entry.key);
        m_styleKeys.insert(entry.key.toCaseFolded());
    }
    return *m_styles;
}

QString DrawingLayers::plotStyle(const OdDbLayerTableRecord& layer) const
{
    if (m_namedPlotStyles)
        return styles().value(layer.state().plotStyle.slot());
    const int index = std::clamp(layer.state().color.colorIndex(), 0, 256);
    QString& name = m_colorStyles[static_cast<std::size_t>(index)];
    if (name.isNull())
        name = QStringLiteral("Color_%1").arg(index);
    return name;
}

bool DrawingLayers::hasPlotStyle(const QString& name) const
{
    styles();
    return m_styleKeys.contains(name.toCaseFolded());
}

quint32 DrawingLayers::storedFlags(const OdDbLayerTableRecord& layer) const
{
    const auto bit = [](bool set, quint32 flag) { return set ? flag : 0u; };
    return bit(layer.isOff(), StoredLayer::kOff) | bit(layer.isFrozen(), StoredLayer::kFrozen)
        | bit(layer.isLocked(), StoredLayer::kLocked)
        | bit(layer.isPlottable(), StoredLayer::kPlottable)
        | bit(layer.VPDFLT(), StoredLayer::kFrozenInNewViewports)
        | bit(m_viewport && m_viewport->isLayerFrozenInViewport(layer.objectId()),
              StoredLayer::kFrozenInViewport);
}

LayerInfoInLS DrawingLayers::settings(const OdDbLayerTableRecord& layer) const
{
    const LayerState& state = layer.state();
    LayerInfoInLS info;
    info.plotStyleName = plotStyle(layer);
    info.layerId = layer.objectId();
    info.linetypeId = state.linetype;
    info.flags = storedFlags(layer) ^ LayerInfoInLS::kOn;
    info.lineWeight = state.lineWeight;
    info.transparency = state.transparency;
    info.setFullColor(state.color);
    return info;
}

LayerInfoInLS DrawingLayers::settings(const OdDbLayerTableRecord& layer,
                                      const StoredLayer& before) const
{
    LayerInfoInLS info = settings(layer);
    info.flags |= before.flags.value_or(0) & ~quint32(StoredLayer::kKnownFlags);
    for (auto group = before.begin; group != before.end; ++group)
        info.stored.append(*group);
    // Left out, these would be taken for settings that the state is not to touch.
    if (!before.flags)
        info.stored.append(StateGroup::kFlags, qint64(storedFlags(layer)));
    if (!before.colorIndex)
        info.stored.append(StateGroup::kColorIndex, qint64(info.color));
    if (!before.lineWeight)
        info.stored.append(StateGroup::kLineWeight, qint64(info.lineWeight));
    return info;
}

LayerInfoInLS DrawingLayers::info(const StoredLayer& stored) const
{
    LayerInfoInLS info;
    info.layerId = layer(stored);
    if (const auto record = info.layerId.openObject<OdDbLayerTableRecord>())
        info.name = record->getName();
    else
        info.name = QString::fromUtf8(stored.layerName);
    info.linetypeId = linetype(stored);
    info.plotStyleName = QString::fromUtf8(stored.plotStyle);
    info.flags = stored.flags ? *stored.flags ^ LayerInfoInLS::kOn : info.flags;
    info.color = info.packedColorIndex = stored.colorIndex.value_or(info.color);
    info.lineWeight = stored.lineWeight.value_or(info.lineWeight);
    info.transparency = stored.transparency;
    info.packedColor = stored.packedColor;
    info.bookName = QString::fromUtf8(stored.bookName);
    for (auto group = stored.begin; group != stored.end; ++group)
        info.stored.append(*group);
    return info;
}

std::optional<OdCmColor> SavedValue::color(const StoredLayer& stored)
{
    if (stored.packedColor && *stored.packedColor >> 24 == OdCmColor::kByColor) {
        const quint32 rgb = *stored.packedColor;
        return OdCmColor::fromRgb(static_cast<int>(rgb >> 16 & 0xFF),
                                  static_cast<int>(rgb >> 8 & 0xFF), static_cast<int>(rgb & 0xFF),
                                  QString::fromUtf8(stored.bookName));
    }
    if (!stored.colorIndex)
        return std::nullopt;
    // Some programs give the index of a layer that is off a sign, as layer records have it.
    const qint64 index = std::abs(static_cast<qint64>(*stored.colorIndex));
    if (index < 1 || index > 255)
        return std::nullopt;
    return OdCmColor::fromIndex(static_cast<int>(index));
}

std::optional<qint16> SavedValue::lineWeight(const StoredLayer& stored)
{
    using Limits = std::numeric_limits<qint16>;
    if (!stored.lineWeight || *stored.lineWeight < Limits::min()
        || *stored.lineWeight > Limits::max())
        return std::nullopt;
    return static_cast<qint16>(*stored.lineWeight);
}

quint32 SavedValue::comparableTransparency(quint32 stored)
{
    return stored == kOpaque ? 0 : stored;
}
