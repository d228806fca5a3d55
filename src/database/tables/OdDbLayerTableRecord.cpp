#include "database/tables/OdDbLayerTableRecord.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbDictionary.h"
#include "database/objects/OdDbEntity.h"
#include "database/store/HeaderVariables.h"
#include "database/tables/LayerNameReferences.h"
#include "database/tables/OdDbBlockTableRecord.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLinetypeTableRecord.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr quint32 kAlphaMethod = 0x02000000;
constexpr int kMostTransparent = 90; ///< percent

/// 1: plot styles go by colour; 0: by name. Drawings without the variable are colour-dependent.
bool usesNamedPlotStyles(const OdDbDatabase& drawing)
{
    return drawing.header().intValue(QStringLiteral("$PSTYLEMODE"), 1) == 0;
}

OdDbDictionaryPtr plotStyles(const OdDbDatabase& drawing)
{
    return drawing.namedObject({QStringLiteral("ACAD_PLOTSTYLENAME")}).openObject<OdDbDictionary>();
}

} // namespace

void OdDbLayerTableRecord::setName(const QString& name)
{
    requireWriteEnabled();
    if (name == m_state.name)
        return;
    OdDbLayerTable& layers = database()->layerTable();
    if (name.isEmpty())
        throw OdError(OdResult::InvalidKey, QStringLiteral("A layer needs a name."));
    if (objectId() == database()->getLayerZeroId() || isDependent())
        throw OdError(OdResult::NotApplicable,
                      QStringLiteral("Layer \"%1\" cannot be renamed.").arg(m_state.name));
    const OdDbObjectId taken = layers.getAt(name);
    if (!taken.isNull() && taken != objectId())
        throw OdError(OdResult::DuplicateKey,
                      QStringLiteral("There is a layer \"%1\" already.").arg(name));
    assertWriteEnabled();
    LayerNameReferences::renamed(*database(), m_state.name, name);
    m_state.name = name;
    layers.recordRenamed(objectId().slot(), name);
}

void OdDbLayerTableRecord::swapImage(OdDbObjectImage& image)
{
    const bool before = m_state.reconciled.has_value();
    OdDbStateful::swapImage(image);
    const bool after = m_state.reconciled.has_value();
    if (before != after)
        database()->layerTable().reconciledRecordsChanged(after ? 1 : -1);
}

void OdDbLayerTableRecord::imageSwapped()
{
    database()->layerTable().recordRenamed(objectId().slot(), m_state.name);
}

// Overrides

const LayerOverride* OdDbLayerTableRecord::overrideIn(OdDbObjectId viewport) const
{
    if (viewport.isNull() || m_state.overrides.empty())
        return nullptr;
    const auto it = m_state.overrides.find(viewport.slot());
    return it == m_state.overrides.end() ? nullptr : &it->second;
}

template <class Value>
Value OdDbLayerTableRecord::overridden(std::optional<Value> LayerOverride::*member,
                                       const Value& own, OdDbObjectId viewport) const
{
    const LayerOverride* there = overrideIn(viewport);
    return there ? (there->*member).value_or(own) : own;
}

void OdDbLayerTableRecord::requireViewport(OdDbObjectId viewport) const
{
    if (!viewport.openObject<OdDbViewport>(OdDb::kForRead, true))
        throw OdError(OdResult::InvalidInput,
                      QStringLiteral("A property can be overridden in a viewport only."));
}

template <class Value>
void OdDbLayerTableRecord::assignOverride(std::optional<Value> LayerOverride::*member,
                                          const std::optional<Value>& value, OdDbObjectId viewport)
{
    requireWriteEnabled();
    requireViewport(viewport);
    const LayerOverride* there = overrideIn(viewport);
    const std::optional<Value> before = there ? there->*member : std::nullopt;
    if (before == value)
        return;
    assertWriteEnabled();
    const auto it = m_state.overrides.try_emplace(viewport.slot()).first;
    it->second.*member = value;
    if (it->second == LayerOverride())
        m_state.overrides.erase(it);
}

OdCmColor OdDbLayerTableRecord::color(OdDbObjectId viewport) const
{
    return overridden(&LayerOverride::color, m_state.color, viewport);
}

OdDbObjectId OdDbLayerTableRecord::linetypeObjectId(OdDbObjectId viewport) const
{
    return overridden(&LayerOverride::linetype, m_state.linetype, viewport);
}

qint16 OdDbLayerTableRecord::lineWeight(OdDbObjectId viewport) const
{
    return overridden(&LayerOverride::lineWeight, m_state.lineWeight, viewport);
}

quint32 OdDbLayerTableRecord::transparency(OdDbObjectId viewport) const
{
    return overridden(&LayerOverride::transparency, m_state.transparency, viewport);
}

void OdDbLayerTableRecord::setColor(const OdCmColor& color, OdDbObjectId viewport)
{
    if (viewport.isNull())
        assign(&LayerState::color, color);
    else
        assignOverride(&LayerOverride::color, std::optional(color), viewport);
}

void OdDbLayerTableRecord::setLinetypeObjectId(OdDbObjectId linetype, OdDbObjectId viewport)
{
    if (!linetype.openObject<OdDbLinetypeTableRecord>())
        throw OdError(OdResult::InvalidInput,
                      QStringLiteral("A layer takes a linetype of its drawing only."));
    if (viewport.isNull())
        assign(&LayerState::linetype, linetype);
    else
        assignOverride(&LayerOverride::linetype, std::optional(linetype), viewport);
}

void OdDbLayerTableRecord::setLineWeight(qint16 weight, OdDbObjectId viewport)
{
    if (viewport.isNull())
        assign(&LayerState::lineWeight, weight);
    else
        assignOverride(&LayerOverride::lineWeight, std::optional(weight), viewport);
}

void OdDbLayerTableRecord::setTransparency(quint32 transparency, OdDbObjectId viewport)
{
    if (viewport.isNull())
        assign(&LayerState::transparency, transparency);
    else
        assignOverride(&LayerOverride::transparency, std::optional(transparency), viewport);
}

void OdDbLayerTableRecord::removeColorOverride(OdDbObjectId viewport)
{
    assignOverride(&LayerOverride::color, {}, viewport);
}

void OdDbLayerTableRecord::removeLinetypeOverride(OdDbObjectId viewport)
{
    assignOverride(&LayerOverride::linetype, {}, viewport);
}

void OdDbLayerTableRecord::removeLineWeightOverride(OdDbObjectId viewport)
{
    assignOverride(&LayerOverride::lineWeight, {}, viewport);
}

void OdDbLayerTableRecord::removePlotStyleOverride(OdDbObjectId viewport)
{
    assignOverride(&LayerOverride::plotStyle, {}, viewport);
}

void OdDbLayerTableRecord::removeTransparencyOverride(OdDbObjectId viewport)
{
    assignOverride(&LayerOverride::transparency, {}, viewport);
}

void OdDbLayerTableRecord::removeViewportOverrides(OdDbObjectId viewport)
{
    requireWriteEnabled();
    if (!overrideIn(viewport))
        return;
    assertWriteEnabled();
    m_state.overrides.erase(viewport.slot());
}

void OdDbLayerTableRecord::removeAllOverrides()
{
    assign(&LayerState::overrides, {});
}

// Plot style, transparency

QString OdDbLayerTableRecord::plotStyleName(OdDbObjectId viewport) const
{
    if (!usesNamedPlotStyles(*database()))
        return QStringLiteral("Color_%1").arg(color(viewport).colorIndex());
    const OdDbObjectId style = overridden(&LayerOverride::plotStyle, m_state.plotStyle, viewport);
    const auto styles = plotStyles(*database());
    return styles && !style.isNull() ? styles->nameAt(style) : QString();
}

void OdDbLayerTableRecord::setPlotStyleName(const QString& name, OdDbObjectId viewport)
{
    if (!usesNamedPlotStyles(*database()))
        throw OdError(OdResult::NotApplicable,
                      QStringLiteral("In this drawing a layer's plot style follows its color."));
    const auto styles = plotStyles(*database());
    const OdDbObjectId style = styles ? styles->getAt(name) : OdDbObjectId();
    if (style.isNull())
        throw OdError(OdResult::KeyNotFound,
                      QStringLiteral("The drawing has no plot style \"%1\".").arg(name));
    if (viewport.isNull())
        assign(&LayerState::plotStyle, style);
    else
        assignOverride(&LayerOverride::plotStyle, std::optional(style), viewport);
}

int OdDbLayerTableRecord::transparencyPercent(quint32 stored)
{
    if ((stored & 0xFF000000u) != kAlphaMethod)
        return 0;
    const int percent = static_cast<int>(std::lround(100 - (stored & 0xFF) / 2.55));
    return std::clamp(percent, 0, kMostTransparent);
}

quint32 OdDbLayerTableRecord::transparencyFromPercent(int percent)
{
    const int kept = 100 - std::clamp(percent, 0, kMostTransparent);
    return kept == 100 ? 0 : kAlphaMethod + static_cast<quint32>(255 * kept / 100);
}

// Reconciled, use, reference

bool OdDbLayerTableRecord::isReconciled() const
{
    if (isErased())
        throw OdError(OdResult::WasErased, QStringLiteral("The layer was erased."));
    if (m_state.reconciled)
        return *m_state.reconciled;
    // These never carry the flag.
    if (m_state.name.startsWith(QLatin1Char('*'))
        || m_state.name.compare(QLatin1String("Defpoints"), Qt::CaseInsensitive) == 0)
        return true;
    if (database()->dictionaryVariable(QStringLiteral("LAYEREVAL")).trimmed() == QLatin1String("0"))
        return true;
    return !database()->layerTable().hasReconciledBaseline();
}

void OdDbLayerTableRecord::setIsReconciled(bool reconciled)
{
    const bool had = m_state.reconciled.has_value();
    assign(&LayerState::reconciled, std::optional(reconciled));
    if (!had)
        database()->layerTable().reconciledRecordsChanged(1);
}

bool OdDbLayerTableRecord::isInUse() const
{
    return database()->layerTable().useCount(objectId().slot()) > 0;
}

OdDbObjectId OdDbLayerTableRecord::externalReference() const
{
    const qsizetype bar = m_state.name.indexOf(QLatin1Char('|'));
    if (bar <= 0)
        return {};
    const OdDbObjectId block =
        database()->table(OdDbTableKind::Block).getAt(m_state.name.left(bar));
    const auto record = block.openObject<OdDbBlockTableRecord>();
    return record && record->isFromExternalReference() ? block : OdDbObjectId();
}
