#pragma once

#include "database/values/OdCmColor.h"
#include "database/values/OdDbObjectId.h"
#include "layermanager/layers/LayerColumn.h"

#include <QString>

class OdDbDatabase;
class OdDbLayerTableRecord;

/// Numbers of the status icons; they sort in this order.
enum class LayerStatus : int { Current = 0, NotInUse = 1, InUse = 2 };

/// What the cells of a drawing's layers depend on besides the layers.
struct LayerCellContext
{
    OdDbObjectId currentLayer;
    bool inLayout = false;
    OdDbObjectId viewport; ///< the active one; null in model space
    bool usageShown = false; ///< SHOWLAYERUSAGE is 1

    bool viewportReadable() const { return inLayout && !viewport.isNull(); }
    static LayerCellContext of(const OdDbDatabase& database);
};

LayerStatus layerStatus(const OdDbLayerTableRecord& layer, const LayerCellContext& context);

/// A colour in words as users read it; in drawings, expressions and scripts names are English.
QString layerColorText(const OdCmColor& color);

/// The text that a cell shows; empty for cells that are icons only, and for viewport cells while
/// there is no viewport.
QString layerCellText(const OdDbLayerTableRecord& layer, LayerColumn column,
                      const LayerCellContext& context);

/// The property behind a two-state icon: off, frozen, locked, plottable, frozen in new viewports,
/// frozen in the active viewport. False for other columns.
bool layerCellFlag(const OdDbLayerTableRecord& layer, LayerColumn column,
                   const LayerCellContext& context);

/// The state of an icon cell in words; empty for cells that show text.
QString layerCellStateText(const OdDbLayerTableRecord& layer, LayerColumn column,
                           const LayerCellContext& context);

/// The same for assistive programs, which say it without the column: "Frozen: yes".
QString layerCellSpokenText(const OdDbLayerTableRecord& layer, LayerColumn column,
                            const LayerCellContext& context);

/// Colour of the Color and VP Color cells.
OdCmColor layerCellColor(const OdDbLayerTableRecord& layer, LayerColumn column,
                         const LayerCellContext& context);

/// Lineweight of the Lineweight and VP LineWeight cells, in hundredths of a millimetre.
qint16 layerCellLineWeight(const OdDbLayerTableRecord& layer, LayerColumn column,
                           const LayerCellContext& context);
