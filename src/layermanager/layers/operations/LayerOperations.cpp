#include "layermanager/layers/operations/LayerOperations.h"

#include "database/OdDbDatabase.h"
#include "database/OdDbLayerTableRecord.h"
#include "layermanager/layers/LayerUndoRecord.h"
#include "sdk/KsResString.h"

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
    {VpColor, LayerSpread::Differing, readColor, writeColor},
    {VpLinetype, LayerSpread::Differing, readLinetype, writeLinetype},
    {VpLineweight, LayerSpread::Differing, readLineweight, writeLineweight},
    {VpPlotStyle, LayerSpread::ClickedOnly, readPlotStyle, writePlotStyle},
};

bool isRenamable(const Record& layer)
{
    return layer.objectId() != layer.database()->getLayerZeroId() && !layer.isDependent();
}

/// True when the record took the value.
bool writeProperty(const LayerProperty& property, OdDbObjectId id, const LayerChange& change)
{
    try {
        const auto layer = id.openObject<Record>(OdDb::kForWrite);
        if (!layer || property.read(*layer, change.viewport) == change.value)
            return false;
        property.write(*layer, change.viewport, change.value);
        return true;
    } catch (const OdError&) {
        return false; // the drawing refuses the value for this layer, and keeps its own
    }
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
        return KsResString(
            84782, QStringLiteral("Cannot freeze current layer. Specify a different layer"));
    case LayerVerdict::CannotRename:
        return KsResString(
            85989,
            QStringLiteral("The selected layer cannot be renamed.\n\n The following layers cannot "
                           "be renamed: \n 1. Layer 0 \n 2. Xref-dependent Layers"));
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

int changeLayers(OdDbDatabase& database, const LayerChange& change)
{
    const LayerProperty* property = layerProperty(change.column);
    if (!property)
        return 0;
    beginLayerUndoRecord(database);
    int changed = writeProperty(*property, change.clicked, change) ? 1 : 0;
    if (property->spread != LayerSpread::Differing)
        return changed;
    const bool freezes = change.column == Freeze && std::get<bool>(change.value);
    const OdDbObjectId currentLayer = database.getCLAYER();
    for (const OdDbObjectId other : change.others) {
        const bool stays = other == change.clicked || (freezes && other == currentLayer);
        if (!stays && writeProperty(*property, other, change))
            ++changed;
    }
    return changed;
}

int toggleLayerFlag(OdDbDatabase& database, LayerColumn column, OdDbObjectId clicked,
                    std::span<const OdDbObjectId> others)
{
    const LayerProperty* property = layerProperty(column);
    if (!property || !clicked.openObject<OdDbLayerTableRecord>())
        return 0;
    const LayerValue value = property->read(*clicked.openObject<OdDbLayerTableRecord>(), {});
    if (!std::holds_alternative<bool>(value))
        return 0;
    return changeLayers(database, {column, !std::get<bool>(value), {}, clicked, others});
}
