#include "database/states/SavedSettings.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/states/LayerStateMask.h"

using enum LayerStateMask::Bit;

namespace {

void applyFlags(const StoredLayer& saved, int mask, bool mayFreeze, OdDbLayerTableRecord& layer)
{
    if (!saved.flags)
        return;
    const auto has = [&](StoredLayer::Flag flag) { return (*saved.flags & flag) != 0; };
    if ((mask & kOn) != 0)
        layer.setIsOff(has(StoredLayer::kOff));
    if ((mask & kFrozen) != 0 && (mayFreeze || !has(StoredLayer::kFrozen)))
        layer.setIsFrozen(has(StoredLayer::kFrozen));
    if ((mask & kLocked) != 0)
        layer.setIsLocked(has(StoredLayer::kLocked));
    if ((mask & kPlot) != 0)
        layer.setIsPlottable(has(StoredLayer::kPlottable));
    if ((mask & kNewViewportFrozen) != 0)
        layer.setVPDFLT(has(StoredLayer::kFrozenInNewViewports));
}

/// The name of the saved plot style where it can be given to layers, else empty.
QString usablePlotStyle(const StoredLayer& saved, const DrawingLayers& drawing)
{
    if (!drawing.hasNamedPlotStyles() || saved.plotStyle.isEmpty())
        return {};
    const QString name = QString::fromUtf8(saved.plotStyle);
    return drawing.hasPlotStyle(name) ? name : QString();
}

} // namespace

void SavedSettings::apply(const StoredLayer& saved, int mask, const DrawingLayers& drawing,
                          OdDbLayerTableRecord& layer)
{
    applyFlags(saved, mask, layer.objectId() != drawing.drawing().getCLAYER(), layer);
    const auto color = (mask & kColor) != 0 ? SavedValue::color(saved) : std::nullopt;
    if (color)
        layer.setColor(*color);
    const OdDbObjectId linetype =
        (mask & kLinetype) != 0 ? drawing.linetype(saved) : OdDbObjectId();
    if (!linetype.isNull() && linetype != layer.state().linetype)
        layer.setLinetypeObjectId(linetype);
    const auto weight = (mask & kLineWeight) != 0 ? SavedValue::lineWeight(saved) : std::nullopt;
    if (weight)
        layer.setLineWeight(*weight);
    if ((mask & kTransparency) != 0 && saved.transparency
        && SavedValue::comparableTransparency(*saved.transparency)
            != SavedValue::comparableTransparency(layer.transparency()))
        layer.setTransparency(*saved.transparency);
    const QString style = (mask & kPlotStyle) != 0 ? usablePlotStyle(saved, drawing) : QString();
    if (!style.isEmpty() && drawing.plotStyle(layer) != style)
        layer.setPlotStyleName(style);
}

void SavedSettings::applyAsOverrides(const StoredLayer& saved, int mask,
                                     const DrawingLayers& drawing, OdDbObjectId viewport,
                                     OdDbLayerTableRecord& layer)
{
    const auto color = (mask & kColor) != 0 ? SavedValue::color(saved) : std::nullopt;
    if (color && *color == layer.color())
        layer.removeColorOverride(viewport);
    else if (color)
        layer.setColor(*color, viewport);

    const OdDbObjectId linetype =
        (mask & kLinetype) != 0 ? drawing.linetype(saved) : OdDbObjectId();
    if (!linetype.isNull() && linetype == layer.linetypeObjectId())
        layer.removeLinetypeOverride(viewport);
    else if (!linetype.isNull())
        layer.setLinetypeObjectId(linetype, viewport);

    const auto weight = (mask & kLineWeight) != 0 ? SavedValue::lineWeight(saved) : std::nullopt;
    if (weight && *weight == layer.lineWeight())
        layer.removeLineWeightOverride(viewport);
    else if (weight)
        layer.setLineWeight(*weight, viewport);

    if ((mask & kTransparency) != 0 && saved.transparency) {
        if (SavedValue::comparableTransparency(*saved.transparency)
            == SavedValue::comparableTransparency(layer.transparency()))
            layer.removeTransparencyOverride(viewport);
        else
            layer.setTransparency(*saved.transparency, viewport);
    }

    const QString style = (mask & kPlotStyle) != 0 ? usablePlotStyle(saved, drawing) : QString();
    if (!style.isEmpty() && style == drawing.plotStyle(layer))
        layer.removePlotStyleOverride(viewport);
    else if (!style.isEmpty())
        layer.setPlotStyleName(style, viewport);
}
