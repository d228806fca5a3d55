#include "database/drawing/OdDbDatabase.h"
#include "host/support/TestDrawing.h"
#include "host/text/LayerTableText.h"

#include <gtest/gtest.h>

namespace {
TestDrawing house()
{
    TestDrawing drawing;
    drawing.add({.name = "Wall", .flags = 1 | 4, .color = -30, .lineweight = 35, .plots = false});
    drawing.add({.name = "door", .flags = 2, .color = 1, .description = "All doors"});
    return drawing.addLine("door");
}
} // namespace

TEST(LayerTableText, PrintsEveryPropertyInTheOrderOfNames)
{
    EXPECT_EQ(
        "Cur  Use  Name  On   Freeze  Lock  Color  Linetype    Lineweight  Plot Style  Plot  "
        "New VP Freeze  Description\n"
        "---  ---  ----  ---  ------  ----  -----  ----------  ----------  ----------  ----  "
        "-------------  -----------\n"
        "*    x    0     Yes  No      No    white  Continuous  Default     Color_7     Yes   No\n"
        "     x    door  Yes  No      No    red    Continuous  Default     Color_1     Yes   "
        "Yes            All doors\n"
        "          Wall  No   Yes     Yes   30     Continuous  0.35 mm     Color_30    No    No\n"
        "3 layers.\n",
        layerTableText(*house().read(), true).toStdString());
}

TEST(LayerTableText, PrintsLineweightsInInchesWhenAskedTo)
{
    const QString text = layerTableText(*house().read(), false);
    EXPECT_TRUE(text.contains(QStringLiteral(" 0.014\" ")));
    EXPECT_FALSE(text.contains(QStringLiteral("mm")));
}

TEST(LayerTableText, LayersOfProgramsAreCountedAndNotListed)
{
    TestDrawing drawing;
    drawing.add({.name = "*HELPER"});
    const QString text = layerTableText(*drawing.read(), true);
    EXPECT_FALSE(text.contains(QStringLiteral("HELPER")));
    EXPECT_TRUE(text.endsWith(QStringLiteral("2 layers, 1 of them not listed.\n")));
}

TEST(LayerTableText, OneLayerIsCountedInTheSingular)
{
    EXPECT_TRUE(
        layerTableText(*TestDrawing().read(), true).endsWith(QStringLiteral("\n1 layer.\n")));
}
