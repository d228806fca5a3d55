#include "layermanager/palette/pane/LayerPaneLayout.h"

#include <gtest/gtest.h>

namespace {

/// A palette of 800 x 500 with a tree 170 wide.
LayerPaneSizes usual()
{
    LayerPaneSizes sizes;
    sizes.client = {800, 500};
    sizes.searchBoxWidth = 140;
    sizes.searchButtonWidth = 24;
    sizes.topHeight = 26;
    sizes.toolbarHeight = 30;
    sizes.leftTools = 80;
    sizes.middleTools = 105;
    sizes.rightTools = 81;
    sizes.statusNeed = 15;
    sizes.invertNeed = 17;
    sizes.treeWidth = 170;
    return sizes;
}

} // namespace

TEST(LayerPaneLayout, TheTopRowIsTheLineTheBoxAndTheButtonAllAsTallAsTheButton)
{
    const LayerPaneRects rects = layOutLayerPane(usual());
    EXPECT_EQ(rects.currentLayer, QRect(0, 0, 800 - 140 - 24, 26));
    EXPECT_EQ(rects.searchBox, QRect(636, 0, 140, 26));
    EXPECT_EQ(rects.searchButton, QRect(776, 0, 24, 26));
}

TEST(LayerPaneLayout, TheToolbarsStandDirectlyUnderTheTopRow)
{
    const LayerPaneRects rects = layOutLayerPane(usual());
    EXPECT_EQ(rects.leftTools, QRect(0, 26, 80, 30));
    EXPECT_EQ(rects.middleTools, QRect(177, 26, 105, 30));
    EXPECT_EQ(rects.rightTools, QRect(719, 26, 81, 30));
}

TEST(LayerPaneLayout, TheMiddleToolbarBeginsWhereTheListDoes)
{
    const LayerPaneRects rects = layOutLayerPane(usual());
    EXPECT_EQ(rects.middleTools.left(), rects.list.left());
}

TEST(LayerPaneLayout, TheMiddleToolbarKeepsTenPixelsFromTheLeftOne)
{
    LayerPaneSizes sizes = usual();
    sizes.treeWidth = 60;
    EXPECT_EQ(layOutLayerPane(sizes).middleTools.left(), 80 + 10);
    sizes = usual();
    sizes.treeShown = false;
    EXPECT_EQ(layOutLayerPane(sizes).middleTools.left(), 80 + 10);
}

TEST(LayerPaneLayout, TheMiddleToolbarGivesWayToTheRightOne)
{
    LayerPaneSizes sizes = usual();
    sizes.client.setWidth(355);
    LayerPaneRects rects = layOutLayerPane(sizes);
    EXPECT_EQ(rects.middleTools, QRect(355 - 81 - 105, 26, 105, 30));
    // Where no room is left it gets narrower, and still does not come near the left one.
    sizes.client.setWidth(240);
    rects = layOutLayerPane(sizes);
    EXPECT_EQ(rects.middleTools, QRect(90, 26, 240 - 81 - 90, 30));
    EXPECT_EQ(rects.rightTools.right(), 239);
}

TEST(LayerPaneLayout, TheStatusLineIsTheBottom25PixelsAndTheSplitterReachesDownToIt)
{
    const LayerPaneRects rects = layOutLayerPane(usual());
    EXPECT_EQ(rects.statusLine, QRect(0, 475, 800, 25));
    EXPECT_EQ(rects.splitter, QRect(0, 56, 800, 475 - 56));
}

TEST(LayerPaneLayout, TheTreeIs52PixelsShorterThanTheSplitterWithTheBoxDirectlyUnderIt)
{
    const LayerPaneRects rects = layOutLayerPane(usual());
    EXPECT_EQ(rects.tree, QRect(0, 56, 170, 475 - 56 - 52));
    EXPECT_EQ(rects.invert, QRect(0, rects.tree.bottom() + 1, 170, 20));
}

TEST(LayerPaneLayout, TheListStandsSevenPixelsRightOfTheTree)
{
    const LayerPaneRects rects = layOutLayerPane(usual());
    EXPECT_EQ(rects.list, QRect(177, 56, 800 - 177, 475 - 56));
}

TEST(LayerPaneLayout, WithoutTheTreeTheListTakesTheWholeWidth)
{
    LayerPaneSizes sizes = usual();
    sizes.treeShown = false;
    const LayerPaneRects rects = layOutLayerPane(sizes);
    EXPECT_EQ(rects.list, rects.splitter);
    EXPECT_TRUE(rects.tree.isEmpty());
    EXPECT_TRUE(rects.invert.isEmpty());
}

TEST(LayerPaneLayout, FixedHeightsGrowWithAFontThatNeedsMore)
{
    LayerPaneSizes sizes = usual();
    sizes.statusNeed = 40;
    sizes.invertNeed = 36;
    const LayerPaneRects rects = layOutLayerPane(sizes);
    EXPECT_EQ(rects.statusLine, QRect(0, 460, 800, 40));
    EXPECT_EQ(rects.invert.height(), 36);
    EXPECT_EQ(rects.tree.height(), rects.splitter.height() - 52 - 16);
    EXPECT_LE(rects.invert.bottom(), rects.splitter.bottom());
}

TEST(LayerPaneLayout, NothingTurnsInsideOutInAPaletteThatIsTooSmall)
{
    LayerPaneSizes sizes = usual();
    sizes.client = {50, 40};
    const LayerPaneRects rects = layOutLayerPane(sizes);
    for (const QRect& rect :
         {rects.currentLayer, rects.middleTools, rects.splitter, rects.tree, rects.list})
    {
        EXPECT_GE(rect.width(), 0);
        EXPECT_GE(rect.height(), 0);
    }
}
