#include "layermanager/layers/LayerColumn.h"

#include <gtest/gtest.h>

namespace {

struct Expected
{
    const char* header;
    int headerId;
    int identifier;
    int width;
    bool layoutsOnly;
};

/// Identifiers are fixed numbers that do not follow the columns' order.
constexpr Expected kExpected[] = {
    {"Status", 84783, 114, 50, false},       {"Layer Name", 84772, 102, 100, false},
    {"On", 84773, 105, 50, false},           {"Freeze", 84774, 107, 50, false},
    {"Locked", 84775, 106, 50, false},       {"Color", 84776, 103, 50, false},
    {"Linetype", 84777, 104, 50, false},     {"Lineweight", 84778, 108, 50, false},
    {"Plot Style", 84779, 109, 50, false},   {"Plot", 84780, 110, 50, false},
    {"New VPFreeze", 84781, 112, 50, false}, {"Description", 84784, 113, 50, false},
    {"VP Freeze", 84785, 111, 50, true},     {"VP Color", 84786, 115, 50, true},
    {"VP LineType", 84787, 116, 50, true},   {"VP LineWeight", 84788, 117, 50, true},
    {"VP PlotStyle", 84789, 118, 50, true},
};

TEST(LayerColumns, AreTheSeventeenInTheirOrder)
{
    ASSERT_EQ(layerColumns().size(), std::size(kExpected));
    for (std::size_t i = 0; i < std::size(kExpected); ++i) {
        const LayerColumnInfo& column = layerColumns()[i];
        SCOPED_TRACE(kExpected[i].header);
        EXPECT_EQ(static_cast<std::size_t>(column.column), i);
        EXPECT_EQ(column.headerText(), QLatin1String(kExpected[i].header));
        EXPECT_EQ(column.header.id, kExpected[i].headerId);
        EXPECT_EQ(column.identifier, kExpected[i].identifier);
        EXPECT_EQ(column.width, kExpected[i].width);
        EXPECT_EQ(column.layoutsOnly, kExpected[i].layoutsOnly);
    }
}

TEST(LayerColumns, AreFoundByTheirProperty)
{
    for (const LayerColumnInfo& column : layerColumns())
        EXPECT_EQ(&layerColumnInfo(column.column), &column);
}

TEST(LayerColumns, AreDrawnAsWhatTheyHold)
{
    using enum LayerColumn;
    EXPECT_EQ(layerColumnInfo(Status).kind, LayerCellKind::StatusIcon);
    for (const LayerColumn flag : {On, Freeze, Locked, Plot, NewVpFreeze, VpFreeze})
        EXPECT_EQ(layerColumnInfo(flag).kind, LayerCellKind::Flag);
    for (const LayerColumn colour : {Color, VpColor})
        EXPECT_EQ(layerColumnInfo(colour).kind, LayerCellKind::Color);
    for (const LayerColumn weight : {Lineweight, VpLineweight})
        EXPECT_EQ(layerColumnInfo(weight).kind, LayerCellKind::Lineweight);
    for (const LayerColumn text : {Name, Linetype, PlotStyle, Description, VpLinetype, VpPlotStyle})
        EXPECT_EQ(layerColumnInfo(text).kind, LayerCellKind::Text);
}

} // namespace
