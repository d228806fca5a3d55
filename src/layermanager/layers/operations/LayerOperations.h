#pragma once

#include "database/values/OdCmColor.h"
#include "database/values/OdDbObjectId.h"
#include "layermanager/layers/LayerColumn.h"
#include "layermanager/layers/operations/LayerOutcome.h"

#include <optional>
#include <span>
#include <variant>

class OdDbDatabase;
class OdDbLayerTableRecord;

/// The value of a property: a flag, a colour, a linetype, a lineweight or a plot style name.
using LayerValue = std::variant<bool, OdCmColor, OdDbObjectId, qint16, QString>;

/// Which of the other selected layers get the value given to the clicked one.
enum class LayerSpread {
    Differing, ///< all whose value differs
    OwnValue, ///< all get their own value back and so stay as they are; deliberate
    ClickedOnly, ///< none
};

/// A property that a cell changes. `viewport` is null for the layer's own properties.
struct LayerProperty
{
    LayerColumn column;
    LayerSpread spread;
    LayerValue (*read)(const OdDbLayerTableRecord& layer, OdDbObjectId viewport);
    void (*write)(OdDbLayerTableRecord& layer, OdDbObjectId viewport, const LayerValue& value);
};

/// The property of a column; null for those that hold no value to be given: status,
/// name and description.
const LayerProperty* layerProperty(LayerColumn column);

/// What the rules say to a change of a cell.
enum class LayerVerdict {
    Allowed,
    NotByClick, ///< the column has no value that a click gives
    CannotRename,
    CannotFreezeCurrent,
    AskTurnOffCurrent, ///< allowed unless the user keeps the current layer on
};

/// The message that tells a refusal; empty for the other verdicts.
QString layerVerdictText(LayerVerdict verdict);

/// The rules. `currentLayer` is nothing where it could not be read, which allows the change.
LayerVerdict mayEditLayerCell(const OdDbLayerTableRecord& layer, LayerColumn column,
                              std::optional<OdDbObjectId> currentLayer);

/// A change to be made: the clicked layer first, then those that follow it.
struct LayerChange
{
    LayerColumn column;
    LayerValue value;
    OdDbObjectId viewport; ///< of the columns of viewports; null for the layers' own properties
    OdDbObjectId clicked;
    std::span<const OdDbObjectId> others;
};

/// What a cell holds, in the active viewport for the columns of viewports; nothing for columns that
/// hold no such value, without a viewport, and for what is no layer.
std::optional<LayerValue> layerCellValue(const OdDbDatabase& database, OdDbObjectId layer,
                                         LayerColumn column);

/// Gives a value to the clicked layer and then, as the column spreads it, to the others, in one
/// undo record. Columns of viewports write for the active viewport. A clicked layer that may not
/// change refuses it for all; the question about turning the current layer off was asked before.
/// Layers that cannot be opened, or refuse the value, are left as they are. The current layer is
/// never frozen along with others.
LayerOutcome giveLayers(OdDbDatabase& database, LayerColumn column, const LayerValue& value,
                        OdDbObjectId clicked, std::span<const OdDbObjectId> others);
/// The same with the viewport told.
LayerOutcome changeLayers(OdDbDatabase& database, const LayerChange& change);

/// Gives a value to all of the layers that may have it and differ, in one undo record: as
/// giveLayers() does to those that follow a clicked one.
LayerOutcome giveEachLayer(OdDbDatabase& database, LayerColumn column, const LayerValue& value,
                           std::span<const OdDbObjectId> layers);

/// Gives a flag of the clicked layer its other value, and spreads that.
LayerOutcome toggleLayerFlag(OdDbDatabase& database, LayerColumn column, OdDbObjectId clicked,
                             std::span<const OdDbObjectId> others);
