#pragma once

#include <QRect>

/// What the places of the palette's controls depend on, in device-independent pixels.
struct LayerPaneSizes
{
    QSize client;
    int searchBoxWidth = 0;
    int searchButtonWidth = 0;
    int topHeight = 0; ///< of the search button
    int toolbarHeight = 0;
    int leftTools = 0; ///< preferred widths of the toolbars
    int middleTools = 0;
    int rightTools = 0;
    int statusNeed = 0; ///< heights that the font needs
    int invertNeed = 0;
    int treeWidth = 0;
    bool treeShown = true;
};

/// Where the palette's controls stand, all in the palette's own coordinates. What is not shown has
/// an empty rectangle.
struct LayerPaneRects
{
    QRect currentLayer;
    QRect searchBox;
    QRect searchButton;
    QRect leftTools;
    QRect middleTools;
    QRect rightTools;
    QRect splitter;
    QRect tree;
    QRect invert;
    QRect list;
    QRect statusLine;
};

namespace layer_pane {

inline constexpr int kStatusHeight = 25;
inline constexpr int kInvertHeight = 20;
inline constexpr int kBelowTree = 52; ///< from the tree's end to that of the splitter
inline constexpr int kListGap = 7; ///< between tree and list
inline constexpr int kToolbarGap = 10; ///< the least between the left and the middle toolbar

} // namespace layer_pane

/// Heights that are fixed grow where the font needs more than they allow. The middle toolbar gives
/// way to the right one, first in its place, then in its width.
LayerPaneRects layOutLayerPane(const LayerPaneSizes& sizes);
