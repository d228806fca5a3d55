#include "layermanager/layers/operations/LayerEdits.h"

#include "base/NameCharacters.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbEntity.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/layers/LayerTexts.h"

#include <QCoreApplication>

#include <algorithm>
#include <unordered_set>

namespace {

using Record = OdDbLayerTableRecord;

constexpr qsizetype kTooLong = 255;

QString editWords(const char* text)
{
    return QCoreApplication::translate("LayerEdits", text);
}

LayerEditOutcome refused(const QString& why)
{
    return {false, why};
}

/// Runs an edit; what the drawing refuses is a refusal like any other.
template <class Edit>
LayerEditOutcome attempt(const Edit& edit)
{
    try {
        return edit();
    } catch (const OdError& error) {
        return refused(error.description());
    }
}

} // namespace

LayerEditOutcome giveLayerValue(OdDbObjectId id, LayerColumn column, const LayerValue& value,
                                const LayerCellContext& context)
{
    const LayerProperty* property = layerProperty(column);
    const bool needsViewport = layerColumnInfo(column).layoutsOnly;
    if (!property || (needsViewport && !context.viewportReadable()))
        return {};
    return attempt([&]() -> LayerEditOutcome {
        const OdDbObjectId viewport = needsViewport ? context.viewport : OdDbObjectId();
        const LayerValue before = property->read(*id.safeOpenObject<Record>(), viewport);
        if (before == value)
            return {};
        const LayerVerdict verdict =
            mayEditLayerCell(*id.safeOpenObject<Record>(), column, context.currentLayer);
        if (const QString why = layerVerdictText(verdict); !why.isEmpty())
            return refused(why);
        const auto layer = id.safeOpenObject<Record>(OdDb::kForWrite);
        property->write(*layer, viewport, value);
        // A name in another case may stand for the value that is there.
        return {property->read(*layer, viewport) != before, {}};
    });
}

QString layerNameRefusal(const QString& name)
{
    if (name.isEmpty())
        return editWords(QT_TRANSLATE_NOOP("LayerEdits", "A name is needed."));
    if (name_characters::containsAnyOf(name, name_characters::kNotInLayers)) {
        return KsResString(layerTexts(), 84506) + name_characters::kNotInLayers;
    }
    // 255 characters are refused already; deliberate.
    if (name.size() >= kTooLong)
        return KsResString(layerTexts(), 84919);
    const auto isControl = [](QChar c) { return c.category() == QChar::Other_Control; };
    if (std::any_of(name.begin(), name.end(), isControl))
        return editWords(
            QT_TRANSLATE_NOOP("LayerEdits", "A layer's name holds no control characters."));
    return {};
}

LayerEditOutcome renameLayer(OdDbObjectId id, const QString& name)
{
    return attempt([&]() -> LayerEditOutcome {
        {
            const auto layer = id.safeOpenObject<Record>();
            if (layer->getName() == name)
                return {};
            const LayerVerdict verdict = mayEditLayerCell(*layer, LayerColumn::Name, {});
            if (const QString why = layerVerdictText(verdict); !why.isEmpty())
                return refused(why);
        }
        if (const QString why = layerNameRefusal(name); !why.isEmpty())
            return refused(why);
        id.safeOpenObject<Record>(OdDb::kForWrite)->setName(name);
        return {true, {}};
    });
}

LayerEditOutcome describeLayer(OdDbObjectId id, const QString& text)
{
    return attempt([&]() -> LayerEditOutcome {
        if (id.safeOpenObject<Record>()->description() == text)
            return {};
        id.safeOpenObject<Record>(OdDb::kForWrite)->setDescription(text);
        return {true, {}};
    });
}

QString severalCurrentLayersText()
{
    return KsResString(layerTexts(), 40433);
}

QString currentLayerRefusal(const OdDbLayerTableRecord& layer)
{
    if (!layer.isFrozen() && !layer.isDependent())
        return {};
    return KsResString(layerTexts(), 84516);
}

LayerEditOutcome makeLayerCurrent(OdDbObjectId id)
{
    return attempt([&]() -> LayerEditOutcome {
        if (const QString why = currentLayerRefusal(*id.safeOpenObject<Record>()); !why.isEmpty())
            return refused(why);
        OdDbDatabase& database = *id.database();
        if (database.getCLAYER() == id)
            return {};
        database.setCLAYER(id);
        return {true, {}};
    });
}

std::vector<OdDbObjectId> layersToFreeze(OdDbObjectId id, std::span<const OdDbObjectId> layers,
                                         bool frozen)
{
    std::vector<OdDbObjectId> differing;
    const auto viewport = id.openObject<OdDbViewport>();
    if (!viewport)
        return differing;
    std::unordered_set<quint32> seen;
    for (const OdDbObjectId layer : layers) {
        const bool isOfDrawing = layer.database() == id.database() && layer.openObject<Record>();
        if (isOfDrawing && viewport->isLayerFrozenInViewport(layer) != frozen
            && seen.insert(layer.slot()).second)
            differing.push_back(layer);
    }
    return differing;
}

std::vector<OdDbObjectId> freezeLayersInViewport(OdDbObjectId id,
                                                 std::span<const OdDbObjectId> layers, bool frozen)
{
    std::vector<OdDbObjectId> differing = layersToFreeze(id, layers, frozen);
    if (differing.empty())
        return differing;
    const auto viewport = id.safeOpenObject<OdDbViewport>(OdDb::kForWrite);
    if (frozen)
        viewport->freezeLayersInViewport(differing);
    else
        viewport->thawLayersInViewport(differing);
    return differing;
}

std::vector<OdDbObjectId>
markLayersReconciled(OdDbDatabase& database, std::span<const OdDbObjectId> layers, bool reconciled)
{
    std::vector<OdDbObjectId> differing;
    for (const OdDbObjectId id : layers) {
        const auto layer = id.openObject<Record>();
        if (layer && layer->isReconciled() != reconciled)
            differing.push_back(id);
    }
    if (!differing.empty() && !reconciled)
        database.layerTable().startReconciledBaseline();
    for (const OdDbObjectId id : differing)
        id.safeOpenObject<Record>(OdDb::kForWrite)->setIsReconciled(reconciled);
    return differing;
}
