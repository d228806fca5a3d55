#pragma once

#include "sdk/texts/KsResString.h"

#include <QString>

#include <array>

/// The properties of a layer that the grid shows, by column number.
enum class LayerColumn : int {
    Status,
    Name,
    On,
    Freeze,
    Locked,
    Color,
    Linetype,
    Lineweight,
    PlotStyle,
    Plot,
    NewVpFreeze,
    Description,
    VpFreeze,
    VpColor,
    VpLinetype,
    VpLineweight,
    VpPlotStyle,
};
inline constexpr int kLayerColumnCount = 17;

/// What a cell is drawn as.
enum class LayerCellKind { StatusIcon, Text, Flag, Color, Lineweight };

/// One row of the grid's column table.
struct LayerColumnInfo
{
    LayerColumn column;
    KsResText header;
    int identifier; ///< fixed number of the column; not in column order, deliberately
    int width; ///< initial, in pixels
    bool layoutsOnly; ///< hidden while model space is current
    LayerCellKind kind;

    QString headerText() const;
};

/// The seventeen columns, by column number.
const std::array<LayerColumnInfo, kLayerColumnCount>& layerColumns();

inline const LayerColumnInfo& layerColumnInfo(LayerColumn column)
{
    return layerColumns()[static_cast<std::size_t>(column)];
}
