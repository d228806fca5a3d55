#include "layermanager/layers/LayerCells.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/objects/OdDbEntity.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "layermanager/layers/HostVariables.h"
#include "sdk/IKestServicesManager.h"

#include <QCoreApplication>

using enum LayerColumn;

namespace {

struct StateWords
{
    LayerColumn column;
    const char* whenTrue;
    const char* whenFalse;
};

constexpr StateWords kStateWords[] = {
    {On, QT_TRANSLATE_NOOP("LayerCells", "Off"), QT_TRANSLATE_NOOP("LayerCells", "On")},
    {Freeze, QT_TRANSLATE_NOOP("LayerCells", "Frozen"), QT_TRANSLATE_NOOP("LayerCells", "Thawed")},
    {Locked, QT_TRANSLATE_NOOP("LayerCells", "Locked"),
     QT_TRANSLATE_NOOP("LayerCells", "Unlocked")},
    {Plot, QT_TRANSLATE_NOOP("LayerCells", "Plotted"),
     QT_TRANSLATE_NOOP("LayerCells", "Not plotted")},
    {NewVpFreeze, QT_TRANSLATE_NOOP("LayerCells", "Frozen in new viewports"),
     QT_TRANSLATE_NOOP("LayerCells", "Thawed in new viewports")},
    {VpFreeze, QT_TRANSLATE_NOOP("LayerCells", "Frozen in the active viewport"),
     QT_TRANSLATE_NOOP("LayerCells", "Thawed in the active viewport")},
};

/// What assistive programs say about a flag: the property and yes or no.
struct SpokenFlag
{
    LayerColumn column;
    const char* text;
    bool flagMeansYes;
};

constexpr SpokenFlag kSpokenFlags[] = {
    {On, QT_TRANSLATE_NOOP("LayerCells", "On: %1"), false},
    {Freeze, QT_TRANSLATE_NOOP("LayerCells", "Frozen: %1"), true},
    {Locked, QT_TRANSLATE_NOOP("LayerCells", "Locked: %1"), true},
    {Plot, QT_TRANSLATE_NOOP("LayerCells", "Plotted: %1"), true},
    {NewVpFreeze, QT_TRANSLATE_NOOP("LayerCells", "Frozen in new viewports: %1"), true},
    {VpFreeze, QT_TRANSLATE_NOOP("LayerCells", "Frozen in the active viewport: %1"), true},
};

/// From index 1 on; further ones have numbers.
constexpr const char* kColors[] = {
    QT_TRANSLATE_NOOP("LayerCells", "red"),   QT_TRANSLATE_NOOP("LayerCells", "yellow"),
    QT_TRANSLATE_NOOP("LayerCells", "green"), QT_TRANSLATE_NOOP("LayerCells", "cyan"),
    QT_TRANSLATE_NOOP("LayerCells", "blue"),  QT_TRANSLATE_NOOP("LayerCells", "magenta"),
    QT_TRANSLATE_NOOP("LayerCells", "white"),
};

constexpr const char* kStatusWords[] = {
    QT_TRANSLATE_NOOP("LayerCells", "Current layer"),
    QT_TRANSLATE_NOOP("LayerCells", "Not in use"),
    QT_TRANSLATE_NOOP("LayerCells", "In use"),
};

QString cellWords(const char* text)
{
    return QCoreApplication::translate("LayerCells", text);
}

QString linetypeName(OdDbObjectId linetype)
{
    const auto record = linetype.openObject<OdDbLinetypeTableRecord>();
    return record ? record->getName() : QString();
}

QString lineWeightText(qint16 weight)
{
    const IKestServicesManager* services = getServicesManagerInterface();
    return services ? services->lineWeightText(weight) : QString();
}

/// The viewport whose values a column shows: the active one for viewport columns, else none.
OdDbObjectId viewportOf(LayerColumn column, const LayerCellContext& context)
{
    return layerColumnInfo(column).layoutsOnly ? context.viewport : OdDbObjectId();
}

} // namespace

LayerCellContext LayerCellContext::of(const OdDbDatabase& database)
{
    LayerCellContext context;
    context.currentLayer = database.getCLAYER();
    context.inLayout = !database.getTILEMODE();
    if (context.inLayout)
        context.viewport = database.activeViewportId();
    context.usageShown = readHostInt(QStringLiteral("SHOWLAYERUSAGE")) == 1;
    return context;
}

LayerStatus layerStatus(const OdDbLayerTableRecord& layer, const LayerCellContext& context)
{
    if (layer.objectId() == context.currentLayer)
        return LayerStatus::Current;
    if (context.usageShown && !layer.isInUse())
        return LayerStatus::NotInUse;
    return LayerStatus::InUse;
}

QString layerColorText(const OdCmColor& color)
{
    const int index = color.colorMethod() == OdCmColor::kByACI ? color.colorIndex() : 0;
    if (index > 0 && index <= static_cast<int>(std::size(kColors)))
        return cellWords(kColors[index - 1]);
    return color.colorNameForDisplay();
}

QString layerCellText(const OdDbLayerTableRecord& layer, LayerColumn column,
                      const LayerCellContext& context)
{
    if (layerColumnInfo(column).layoutsOnly && !context.viewportReadable())
        return {};
    const OdDbObjectId viewport = viewportOf(column, context);
    switch (column) {
    case Name:
        return layer.getName();
    case Color:
    case VpColor:
        return layerColorText(layer.color(viewport));
    case Linetype:
    case VpLinetype:
        return linetypeName(layer.linetypeObjectId(viewport));
    case Lineweight:
    case VpLineweight:
        return lineWeightText(layer.lineWeight(viewport));
    case PlotStyle:
    case VpPlotStyle:
        return layer.plotStyleName(viewport);
    case Description:
        return layer.description();
    case Plot:
        // The one icon cell that also has a text.
        return layerCellStateText(layer, column, context);
    default:
        return {};
    }
}

bool layerCellFlag(const OdDbLayerTableRecord& layer, LayerColumn column,
                   const LayerCellContext& context)
{
    switch (column) {
    case On:
        return layer.isOff();
    case Freeze:
        return layer.isFrozen();
    case Locked:
        return layer.isLocked();
    case Plot:
        return layer.isPlottable();
    case NewVpFreeze:
        return layer.VPDFLT();
    case VpFreeze: {
        const auto viewport =
            context.viewportReadable() ? context.viewport.openObject<OdDbViewport>() : nullptr;
        return viewport && viewport->isLayerFrozenInViewport(layer.objectId());
    }
    default:
        return false;
    }
}

QString layerCellStateText(const OdDbLayerTableRecord& layer, LayerColumn column,
                           const LayerCellContext& context)
{
    if (layerColumnInfo(column).layoutsOnly && !context.viewportReadable())
        return {};
    if (column == Status)
        return cellWords(kStatusWords[static_cast<int>(layerStatus(layer, context))]);
    for (const StateWords& state : kStateWords) {
        if (state.column == column)
            return cellWords(layerCellFlag(layer, column, context) ? state.whenTrue
                                                                   : state.whenFalse);
    }
    return {};
}

QString layerCellSpokenText(const OdDbLayerTableRecord& layer, LayerColumn column,
                            const LayerCellContext& context)
{
    if (layerColumnInfo(column).layoutsOnly && !context.viewportReadable())
        return {};
    for (const SpokenFlag& spoken : kSpokenFlags) {
        if (spoken.column != column)
            continue;
        const bool yes = layerCellFlag(layer, column, context) == spoken.flagMeansYes;
        return cellWords(spoken.text)
            .arg(cellWords(yes ? QT_TRANSLATE_NOOP("LayerCells", "yes")
                               : QT_TRANSLATE_NOOP("LayerCells", "no")));
    }
    return layerCellStateText(layer, column, context);
}

OdCmColor layerCellColor(const OdDbLayerTableRecord& layer, LayerColumn column,
                         const LayerCellContext& context)
{
    return layer.color(viewportOf(column, context));
}

qint16 layerCellLineWeight(const OdDbLayerTableRecord& layer, LayerColumn column,
                           const LayerCellContext& context)
{
    return layer.lineWeight(viewportOf(column, context));
}
