#include "layermanager/layers/operations/LayerOperations.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbEntity.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/layers/HostVariables.h"
#include "layermanager/layers/LayerTexts.h"
#include "layermanager/layers/operations/LayerEdits.h"
#include "layermanager/layers/operations/UndoRecordOnDemand.h"

#include <algorithm>

using enum LayerColumn;

namespace {

using Record = OdDbLayerTableRecord;

template <bool (Record::*get)() const>
LayerValue readFlag(const Record& layer, OdDbObjectId)
{
    return (layer.*get)();
}

template <void (Record::*set)(bool)>
void writeFlag(Record& layer, OdDbObjectId, const LayerValue& value)
{
    (layer.*set)(std::get<bool>(value));
}

template <auto get>
LayerValue readValue(const Record& layer, OdDbObjectId viewport)
{
    return (layer.*get)(viewport);
}

template <auto set, class Value>
void writeValue(Record& layer, OdDbObjectId viewport, const LayerValue& value)
{
    (layer.*set)(std::get<Value>(value), viewport);
}

constexpr auto readColor = readValue<&Record::color>;
constexpr auto writeColor = writeValue<&Record::setColor, OdCmColor>;
constexpr auto readLinetype = readValue<&Record::linetypeObjectId>;
constexpr auto writeLinetype = writeValue<&Record::setLinetypeObjectId, OdDbObjectId>;
constexpr auto readLineweight = readValue<&Record::lineWeight>;
constexpr auto writeLineweight = writeValue<&Record::setLineWeight, qint16>;
constexpr auto readPlotStyle = readValue<&Record::plotStyleName>;
constexpr auto writePlotStyle = writeValue<&Record::setPlotStyleName, QString>;

LayerValue readFrozenThere(const Record& layer, OdDbObjectId id)
{
    const auto viewport = id.openObject<OdDbViewport>();
    return viewport && viewport->isLayerFrozenInViewport(layer.objectId());
}

void writeFrozenThere(Record& layer, OdDbObjectId viewport, const LayerValue& value)
{
    const OdDbObjectId id = layer.objectId();
    freezeLayersInViewport(viewport, {&id, 1}, std::get<bool>(value));
}

constexpr LayerProperty kProperties[] = {
    {On, LayerSpread::Differing, readFlag<&Record::isOff>, writeFlag<&Record::setIsOff>},
    {Freeze, LayerSpread::Differing, readFlag<&Record::isFrozen>, writeFlag<&Record::setIsFrozen>},
    {Locked, LayerSpread::Differing, readFlag<&Record::isLocked>, writeFlag<&Record::setIsLocked>},
    {Plot, LayerSpread::OwnValue, readFlag<&Record::isPlottable>,
     writeFlag<&Record::setIsPlottable>},
    {NewVpFreeze, LayerSpread::Differing, readFlag<&Record::VPDFLT>, writeFlag<&Record::setVPDFLT>},
    {Color, LayerSpread::Differing, readColor, writeColor},
    {Linetype, LayerSpread::Differing, readLinetype, writeLinetype},
    {Lineweight, LayerSpread::Differing, readLineweight, writeLineweight},
    {PlotStyle, LayerSpread::ClickedOnly, readPlotStyle, writePlotStyle},
    {VpFreeze, LayerSpread::Differing, readFrozenThere, writeFrozenThere},
    {VpColor, LayerSpread::Differing, readColor, writeColor},
    {VpLinetype, LayerSpread::Differing, readLinetype, writeLinetype},
    {VpLineweight, LayerSpread::Differing, readLineweight, writeLineweight},
    {VpPlotStyle, LayerSpread::ClickedOnly, readPlotStyle, writePlotStyle},
};

bool isRenamable(const Record& layer)
{
    return layer.objectId() != layer.database()->getLayerZeroId() && !layer.isDependent();
}

/// One operation on the layers of a drawing.
struct Operation
{
    explicit Operation(OdDbDatabase& drawing)
        : database(drawing)
        , record(drawing)
    { }

    OdDbDatabase& database;
    UndoRecordOnDemand record;
    LayerOutcome outcome;
};

void writeProperty(Operation& operation, const LayerProperty& property, OdDbObjectId id,
                   const LayerChange& change)
{
    try {
        const auto layer = id.openObject<Record>(OdDb::kForWrite);
        if (!layer || property.read(*layer, change.viewport) == change.value)
            return;
        operation.record.begin();
        property.write(*layer, change.viewport, change.value);
        operation.outcome.changed.push_back(id);
    } catch (const OdError& error) {
        // The drawing refuses the value for this layer, which keeps its own.
        operation.outcome.refuse(id, error.description());
    }
}

void writeOthers(Operation& operation, const LayerProperty& property, const LayerChange& change)
{
    const bool freezes = change.column == Freeze && std::get<bool>(change.value);
    const OdDbObjectId spared = freezes ? operation.database.getCLAYER() : OdDbObjectId();
    for (const OdDbObjectId other : change.others) {
        if (other == change.clicked)
            continue;
        if (freezes && other == spared)
            operation.outcome.refuse(other, layerVerdictText(LayerVerdict::CannotFreezeCurrent));
        else
            writeProperty(operation, property, other, change);
    }
}

/// What is frozen in a viewport is a list of the viewport's: all layers are written at once.
void writeInViewport(Operation& operation, const LayerChange& change)
{
    std::vector<OdDbObjectId> layers = {change.clicked};
    layers.insert(layers.end(), change.others.begin(), change.others.end());
    const bool frozen = std::get<bool>(change.value);
    layers = layersToFreeze(change.viewport, layers, frozen);
    if (layers.empty())
        return;
    operation.record.begin();
    operation.outcome.changed = freezeLayersInViewport(change.viewport, layers, frozen);
}

/// The viewport that a column is about: the active one for columns of viewports. Nothing where
/// that is needed and missing.
std::optional<OdDbObjectId> viewportOf(const OdDbDatabase& database, LayerColumn column)
{
    if (!layerColumnInfo(column).layoutsOnly)
        return OdDbObjectId();
    const OdDbObjectId active = database.activeViewportId();
    return active.isNull() ? std::nullopt : std::optional(active);
}

} // namespace

const LayerProperty* layerProperty(LayerColumn column)
{
    const auto* found = std::find_if(std::begin(kProperties), std::end(kProperties),
                                     [&](const LayerProperty& p) { return p.column == column; });
    return found == std::end(kProperties) ? nullptr : found;
}

QString layerVerdictText(LayerVerdict verdict)
{
    switch (verdict) {
    case LayerVerdict::CannotFreezeCurrent:
        return KsResString(layerTexts(), 84782);
    case LayerVerdict::CannotRename:
        return KsResString(layerTexts(), 85989);
    default:
        return {};
    }
}

LayerVerdict mayEditLayerCell(const OdDbLayerTableRecord& layer, LayerColumn column,
                              std::optional<OdDbObjectId> currentLayer)
{
    const bool isCurrent = currentLayer == layer.objectId();
    switch (column) {
    case Status:
    case Description:
        return LayerVerdict::NotByClick;
    case Name:
        return isRenamable(layer) ? LayerVerdict::Allowed : LayerVerdict::CannotRename;
    case On:
        return isCurrent && !layer.isOff() ? LayerVerdict::AskTurnOffCurrent
                                           : LayerVerdict::Allowed;
    case Freeze:
        return isCurrent && !layer.isFrozen() ? LayerVerdict::CannotFreezeCurrent
                                              : LayerVerdict::Allowed;
    default:
        return LayerVerdict::Allowed;
    }
}

std::optional<LayerValue> layerCellValue(const OdDbDatabase& database, OdDbObjectId id,
                                         LayerColumn column)
{
    const LayerProperty* property = layerProperty(column);
    const auto layer = id.openObject<Record>();
    const auto viewport = viewportOf(database, column);
    if (!property || !layer || !viewport)
        return std::nullopt;
    return property->read(*layer, *viewport);
}

LayerOutcome changeLayers(OdDbDatabase& database, const LayerChange& change)
{
    Operation operation(database);
    LayerOutcome& outcome = operation.outcome;
    const LayerProperty* property = layerProperty(change.column);
    const auto clicked = change.clicked.openObject<Record>();
    if (!property || !clicked
        || property->read(*clicked, change.viewport).index() != change.value.index())
        return outcome;
    const LayerVerdict verdict =
        mayEditLayerCell(*clicked, change.column, readHostId(QStringLiteral("CLAYER")));
    outcome.message = layerVerdictText(verdict);
    if (!outcome.message.isEmpty()) {
        outcome.refuse(change.clicked, outcome.message);
        return outcome;
    }
    if (change.column == VpFreeze) {
        writeInViewport(operation, change);
        return outcome;
    }
    writeProperty(operation, *property, change.clicked, change);
    if (!outcome.refused.empty())
        outcome.message = outcome.refused.front().why;
    else if (property->spread == LayerSpread::Differing)
        writeOthers(operation, *property, change);
    return outcome;
}

LayerOutcome giveLayers(OdDbDatabase& database, LayerColumn column, const LayerValue& value,
                        OdDbObjectId clicked, std::span<const OdDbObjectId> others)
{
    const auto viewport = viewportOf(database, column);
    return viewport ? changeLayers(database, {column, value, *viewport, clicked, others})
                    : LayerOutcome();
}

LayerOutcome giveEachLayer(OdDbDatabase& database, LayerColumn column, const LayerValue& value,
                           std::span<const OdDbObjectId> layers)
{
    Operation operation(database);
    const LayerProperty* property = layerProperty(column);
    const auto viewport = viewportOf(database, column);
    if (!property || !viewport)
        return operation.outcome;
    const LayerChange change = {column, value, *viewport, {}, layers};
    if (column == VpFreeze)
        writeInViewport(operation, change);
    else
        writeOthers(operation, *property, change);
    return operation.outcome;
}

LayerOutcome toggleLayerFlag(OdDbDatabase& database, LayerColumn column, OdDbObjectId clicked,
                             std::span<const OdDbObjectId> others)
{
    const std::optional<LayerValue> value = layerCellValue(database, clicked, column);
    if (!value || !std::holds_alternative<bool>(*value))
        return {};
    return giveLayers(database, column, !std::get<bool>(*value), clicked, others);
}
