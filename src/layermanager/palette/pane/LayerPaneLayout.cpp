#include "layermanager/palette/pane/LayerPaneLayout.h"

#include <algorithm>

using namespace layer_pane;

namespace {

void placeTopRow(const LayerPaneSizes& sizes, LayerPaneRects& rects)
{
    const int searching = sizes.searchBoxWidth + sizes.searchButtonWidth;
    const int line = std::max(0, sizes.client.width() - searching);
    rects.currentLayer = {0, 0, line, sizes.topHeight};
    rects.searchBox = {line, 0, sizes.searchBoxWidth, sizes.topHeight};
    rects.searchButton = {line + sizes.searchBoxWidth, 0, sizes.searchButtonWidth, sizes.topHeight};
}

void placeToolbars(const LayerPaneSizes& sizes, int top, LayerPaneRects& rects)
{
    const int listLeft = sizes.treeShown ? sizes.treeWidth + kListGap : 0;
    const int least = sizes.leftTools + kToolbarGap;
    const int right = std::max(0, sizes.client.width() - sizes.rightTools);
    const int middle = std::max(least, std::min(listLeft, right - sizes.middleTools));
    const int room = std::clamp(right - middle, 0, sizes.middleTools);
    rects.leftTools = {0, top, sizes.leftTools, sizes.toolbarHeight};
    rects.middleTools = {middle, top, room, sizes.toolbarHeight};
    rects.rightTools = {right, top, sizes.rightTools, sizes.toolbarHeight};
}

void placeSplitter(const LayerPaneSizes& sizes, int top, LayerPaneRects& rects)
{
    const int status = std::max(kStatusHeight, sizes.statusNeed);
    const int bottom = std::max(top, sizes.client.height() - status);
    rects.statusLine = {0, bottom, sizes.client.width(), status};
    rects.splitter = {0, top, sizes.client.width(), bottom - top};
    if (!sizes.treeShown) {
        rects.list = rects.splitter;
        return;
    }
    const int invert = std::max(kInvertHeight, sizes.invertNeed);
    const int below = kBelowTree - kInvertHeight + invert;
    const int height = std::max(0, rects.splitter.height() - below);
    rects.tree = {0, top, sizes.treeWidth, height};
    rects.invert = {0, top + height, sizes.treeWidth, invert};
    const int left = sizes.treeWidth + kListGap;
    rects.list = {left, top, std::max(0, sizes.client.width() - left), rects.splitter.height()};
}

} // namespace

LayerPaneRects layOutLayerPane(const LayerPaneSizes& sizes)
{
    LayerPaneRects rects;
    placeTopRow(sizes, rects);
    placeToolbars(sizes, sizes.topHeight, rects);
    placeSplitter(sizes, sizes.topHeight + sizes.toolbarHeight, rects);
    return rects;
}
