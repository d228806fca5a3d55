#include "database/values/OdCmColor.h"

#include <gtest/gtest.h>

namespace {

TEST(Colors, TheTableHasTheKnownEntries)
{
    const auto& table = aci::table();
    EXPECT_EQ(table[1], 0xFFFF0000u);
    EXPECT_EQ(table[8], 0xFF808080u);
    EXPECT_EQ(table[12], 0xFFCC0000u);
    EXPECT_EQ(table[14], 0xFF990000u);
    EXPECT_EQ(table[144], 0xFF007299u);
    EXPECT_EQ(table[249], 0xFF4C262Fu);
    EXPECT_EQ(table[250], 0xFF333333u);
    EXPECT_EQ(table[255], 0xFFFFFFFFu);
}

TEST(Colors, NearestIndexTakesTheLowestOfEquals)
{
    EXPECT_EQ(aci::nearestIndex(0xFFFF0000u), 1); // also 10
    EXPECT_EQ(aci::nearestIndex(0xFFE29000u), 42);
    EXPECT_EQ(aci::nearestIndex(0xFF2C881Bu), 86);
    EXPECT_EQ(aci::nearestIndex(0xFF803DC2u), 183);
    EXPECT_EQ(aci::nearestIndex(0xFF9B42ECu), 193);
}

TEST(Colors, DisplayNames)
{
    EXPECT_EQ(OdCmColor::fromIndex(1).colorNameForDisplay(), QStringLiteral("red"));
    EXPECT_EQ(OdCmColor::fromIndex(7).colorNameForDisplay(), QStringLiteral("white"));
    EXPECT_EQ(OdCmColor::fromIndex(8).colorNameForDisplay(), QStringLiteral("8"));
    EXPECT_EQ(OdCmColor::fromIndex(256).colorNameForDisplay(), QStringLiteral("ByLayer"));
    EXPECT_EQ(OdCmColor::fromIndex(0).colorNameForDisplay(), QStringLiteral("ByBlock"));
    EXPECT_EQ(OdCmColor::fromRgb(255, 127, 0).colorNameForDisplay(), QStringLiteral("255,127,0"));
    EXPECT_EQ(OdCmColor::fromRgb(1, 2, 3, QStringLiteral("BOOK$Tone 7")).colorNameForDisplay(),
              QStringLiteral("Tone 7"));
}

TEST(Colors, PackedValuesCarryTheMethod)
{
    EXPECT_EQ(OdCmColor::fromIndex(5).color(), 0xC3000005u);
    EXPECT_EQ(OdCmColor::fromRgb(10, 20, 30).color(), 0xC20A141Eu);
    EXPECT_EQ(OdCmColor::fromPacked(0xC20A141Eu), OdCmColor::fromRgb(10, 20, 30));
}

TEST(Colors, SevenIsTheOppositeOfTheBackground)
{
    EXPECT_EQ(OdCmColor::fromIndex(7).rgb(true), 0xFFFFFFFFu);
    EXPECT_EQ(OdCmColor::fromIndex(7).rgb(false), 0xFF000000u);
}

} // namespace
