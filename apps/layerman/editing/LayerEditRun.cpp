#include "layerman/editing/LayerEditRun.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/states/DrawingLayers.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layerman/CompanionText.h"
#include "layerman/Output.h"
#include "layerman/editing/ChangeLine.h"
#include "layerman/listing/ColumnTable.h"
#include "layermanager/layers/LayerUndoRecord.h"

#include <algorithm>
#include <unordered_set>

namespace {
QString name(const PropertyEdit& edit)
{
    return QLatin1String(edit.info->name);
}

/// A message of several lines as one, so that a refusal is a line.
QString oneLine(const QString& message)
{
    return message.simplified();
}

[[noreturn]] void refuseDrawing(const QString& sentence)
{
    throw OdError(OdResult::KeyNotFound, sentence);
}

bool isForColors(const QString& linetype)
{
    return linetype.compare(QLatin1String("ByLayer"), Qt::CaseInsensitive) == 0
        || linetype.compare(QLatin1String("ByBlock"), Qt::CaseInsensitive) == 0;
}
} // namespace

LayerEditRun::LayerEditRun(OdDbDatabase& drawing, const QString& file,
                           const std::vector<PropertyEdit>& edits)
    : m_drawing(drawing)
    , m_file(file)
    , m_edits(edits)
    , m_context(LayerCellContext::of(drawing))
{
    for (PropertyEdit& edit : m_edits)
        requireValue(edit);
}

void LayerEditRun::requireValue(PropertyEdit& edit)
{
    if (edit.info->kind == PropertyKind::Linetype) {
        const OdDbObjectId id = m_drawing.table(OdDbTableKind::Linetype).getAt(edit.text);
        if (id.isNull() || isForColors(edit.text))
            refuseDrawing(
                CompanionText::tr("%1 has no linetype \"%2\" for layers.").arg(m_file, edit.text));
        edit.value = id;
    } else if (edit.info->kind == PropertyKind::PlotStyle) {
        const DrawingLayers layers(m_drawing);
        if (layers.hasNamedPlotStyles() && !layers.hasPlotStyle(edit.text))
            refuseDrawing(CompanionText::tr("%1 has no plot style \"%2\".").arg(m_file, edit.text));
    }
}

void LayerEditRun::apply(const std::vector<OdDbObjectId>& ids, const LayerEditOptions& options,
                         Output& output)
{
    m_options = options;
    m_output = &output;
    Layers layers;
    layers.reserve(ids.size());
    for (const OdDbObjectId id : ids)
        layers.push_back({id, id.safeOpenObject<OdDbLayerTableRecord>()->getName()});
    beginLayerUndoRecord(m_drawing);
    for (const PropertyEdit& edit : m_edits) {
        // A layer that an edit before made current, or renamed, is so for the next.
        m_context = LayerCellContext::of(m_drawing);
        applyOne(edit, layers);
    }
    const auto count = [&](bool Layer::*mark) {
        return static_cast<int>(std::count_if(layers.begin(), layers.end(),
                                              [mark](const Layer& layer) { return layer.*mark; }));
    };
    m_changed = count(&Layer::isChanged);
    m_refused = std::max(count(&Layer::isRefused), m_hasRefusal ? 1 : 0);
}

void LayerEditRun::applyOne(const PropertyEdit& edit, Layers& layers)
{
    if (const QString why = refusalForAll(edit, layers); !why.isEmpty()) {
        m_output->complain(m_file, name(edit), oneLine(why));
        for (Layer& layer : layers)
            layer.isRefused = true;
        m_hasRefusal = true;
        return;
    }
    QStringList before;
    if (m_options.tellsChanges) {
        for (const Layer& layer : layers)
            before << textOf(edit, layer);
    }
    if (edit.info->column == LayerColumn::VpFreeze || edit.info->kind == PropertyKind::Reconciled)
        giveToAll(edit, layers);
    else
        giveToEach(edit, layers);
    if (m_options.tellsChanges)
        tellChanges(edit, layers, before);
}

QString LayerEditRun::refusalForAll(const PropertyEdit& edit, const Layers& layers) const
{
    if (edit.info->isForOneLayer() && layers.size() != 1) {
        if (edit.info->kind == PropertyKind::Current && !layers.empty())
            return severalCurrentLayersText();
        return layers.empty()
            ? CompanionText::tr("One layer must be chosen, and none is.")
            : CompanionText::tr("One layer must be chosen, and %1 are.").arg(layers.size());
    }
    if (layers.empty())
        return {};
    if (edit.info->isOfViewport() && !m_context.viewportReadable())
        return CompanionText::tr("No layout with an active viewport is current.");
    if (edit.info->kind == PropertyKind::PlotStyle
        && !DrawingLayers(m_drawing).hasNamedPlotStyles())
        return CompanionText::tr("In this drawing a layer's plot style follows its color.");
    return {};
}

void LayerEditRun::giveToAll(const PropertyEdit& edit, Layers& layers)
{
    std::vector<OdDbObjectId> ids;
    ids.reserve(layers.size());
    for (const Layer& layer : layers)
        ids.push_back(layer.id);
    const bool value = std::get<bool>(edit.value);
    const std::vector<OdDbObjectId> changed = edit.info->kind == PropertyKind::Reconciled
        ? markLayersReconciled(m_drawing, ids, value)
        : freezeLayersInViewport(m_context.viewport, ids, value);
    std::unordered_set<quint32> slots_;
    for (const OdDbObjectId id : changed)
        slots_.insert(id.slot());
    for (Layer& layer : layers)
        layer.isChanged = layer.isChanged || slots_.count(layer.id.slot()) != 0;
}

void LayerEditRun::giveToEach(const PropertyEdit& edit, Layers& layers)
{
    for (Layer& layer : layers) {
        if (keepsOn(edit, layer))
            continue;
        const LayerEditOutcome outcome = give(edit, layer);
        layer.isChanged = layer.isChanged || outcome.changed;
        if (!outcome.refusal.isEmpty()) {
            layer.isRefused = true;
            m_output->complain(m_file, layer.name, oneLine(outcome.refusal));
        }
    }
}

LayerEditOutcome LayerEditRun::give(const PropertyEdit& edit, Layer& layer)
{
    switch (edit.info->kind) {
    case PropertyKind::Name:
        return renameLayer(layer.id, edit.text);
    case PropertyKind::Description:
        return describeLayer(layer.id, edit.text);
    case PropertyKind::Current:
        return makeLayerCurrent(layer.id);
    default:
        return giveLayerValue(layer.id, *edit.info->column, edit.value, m_context);
    }
}

bool LayerEditRun::keepsOn(const PropertyEdit& edit, const Layer& layer)
{
    if (edit.info->column != LayerColumn::On || !std::get<bool>(edit.value))
        return false;
    const auto record = layer.id.safeOpenObject<OdDbLayerTableRecord>();
    if (mayEditLayerCell(*record, LayerColumn::On, m_context.currentLayer)
        != LayerVerdict::AskTurnOffCurrent)
        return false;
    m_output->complain(m_file, layer.name,
                       m_options.keepsCurrentOn
                           ? CompanionText::tr("This is the current layer; it stays on.")
                           : CompanionText::tr("This is the current layer; it is turned off."));
    return m_options.keepsCurrentOn;
}

QString LayerEditRun::textOf(const PropertyEdit& edit, const Layer& layer) const
{
    const auto record = layer.id.safeOpenObject<OdDbLayerTableRecord>();
    if (edit.info->kind == PropertyKind::Current)
        return m_drawing.getCLAYER() == layer.id ? QStringLiteral("yes") : QStringLiteral("no");
    const ListColumn& column =
        edit.info->column ? listColumn(*edit.info->column) : listColumn(ExtraColumn::Reconciled);
    return cellText(column, {*record, m_context, m_file});
}

void LayerEditRun::tellChanges(const PropertyEdit& edit, const Layers& layers,
                               const QStringList& before)
{
    for (std::size_t i = 0; i < layers.size(); ++i) {
        const QString& old = before[static_cast<qsizetype>(i)];
        const QString now = textOf(edit, layers[i]);
        if (now == old)
            continue;
        m_output->print(changeLine(m_file, layers[i].name, name(edit), old, now));
    }
}
