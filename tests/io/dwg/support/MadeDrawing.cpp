#include "io/dwg/support/MadeDrawing.h"

namespace {

MadeDrawing::Layer layer(const QString& name, const OdCmColor& color, qint16 lineWeight)
{
    MadeDrawing::Layer layer;
    layer.state.name = name;
    layer.state.color = color;
    layer.state.lineWeight = lineWeight;
    return layer;
}

void addLayers(MadeDrawing& drawing)
{
    const bool trueColors = drawing.version >= DrawingVersion::V2004;
    std::vector<MadeDrawing::Layer>& layers = drawing.layers;
    layers.push_back(layer(QStringLiteral("0"), OdCmColor::fromIndex(7), OdDb::kLnWtByLwDefault));
    layers.push_back(layer(QStringLiteral("W\u00e4nde $1-_"), OdCmColor::fromIndex(30), 35));
    layers.back().linetype = QStringLiteral("DASHED");
    layers.back().state.description = QStringLiteral("walls \u00e4 \u5c64");
    layers.back().state.transparency = OdDbLayerTableRecord::transparencyFromPercent(40);
    layers.push_back(layer(QStringLiteral("\u5c64 \u0416 odd"),
                           trueColors ? OdCmColor::fromRgb(255, 127, 1) : OdCmColor::fromIndex(255),
                           211));
    layers.back().state.frozen = true;
    layers.back().state.plottable = false;
    layers.push_back(layer(QStringLiteral(" blank ahead"),
                           trueColors
                               ? OdCmColor::fromRgb(1, 2, 3, QStringLiteral("BOOK$Red \u00e4"))
                               : OdCmColor::fromIndex(1),
                           0));
    layers.back().state.off = true;
    layers.back().state.locked = true;
    layers.push_back(layer(QStringLiteral("a rather long name of a layer that is frozen anew"),
                           OdCmColor::fromIndex(5), OdDb::kLnWtByLwDefault));
    layers.back().state.frozenInNewViewports = true;
}

void addEntities(MadeDrawing& drawing)
{
    drawing.entities.push_back(
        {"LINE", {{10, "0"}, {20, "0.5"}, {30, "0"}, {11, "10"}, {21, "-4"}, {31, "0"}}, 1});
    drawing.entities.push_back({"CIRCLE", {{10, "3"}, {20, "4"}, {30, "1"}, {40, "2.25"}}, 2});
    drawing.entities.push_back(
        {"TEXT", {{10, "1"}, {20, "1"}, {30, "0"}, {40, "2.5"}, {50, "30"}, {1, "t\u00e4xt"}}, 3});
    drawing.entities.push_back(
        {"LINE", {{10, "0"}, {20, "0"}, {30, "7"}, {11, "1"}, {21, "1"}, {31, "8"}}, 4, true});
}

} // namespace

MadeDrawing MadeDrawing::sample(DrawingVersion version)
{
    MadeDrawing drawing;
    drawing.version = version;
    addLayers(drawing);
    addEntities(drawing);
    drawing.frozen = {2, 4};
    drawing.override = {1, OdCmColor::fromIndex(6), 50};
    drawing.ruleName = QStringLiteral("Red \u00e4");
    drawing.ruleExpression = QStringLiteral("COLOR==\"1\" OR NAME==\"W*\"");
    drawing.groupName = QStringLiteral("Group \u5c64");
    drawing.groupLayers = {1, 3};
    drawing.stateName = QStringLiteral("As drawn \u00e4");
    drawing.stateDescription = QStringLiteral("all of it");
    return drawing;
}
