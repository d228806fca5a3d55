#include "LayerDrawing.h"
#include "layermanager/layers/LayerSort.h"
#include "support/FakeHost.h"

#include <gtest/gtest.h>

using enum LayerColumn;

namespace {

using layer_drawing::id;
using layer_drawing::write;

std::string joined(const std::vector<OdDbObjectId>& layers)
{
    return layer_drawing::names(layers).join(QLatin1Char(' ')).toStdString();
}

class LayerSorting : public testing::Test
{
protected:
    LayerSorting()
        : m_database(
            m_host.open(layer_drawing::make({{"delta"}, {"Alpha"}, {"charlie"}, {"Bravo"}})))
    { }

    std::string sorted(LayerColumn column, bool ascending = true) const
    {
        auto layers = m_database.layerTable().records();
        sortLayers(layers, {column, ascending}, LayerCellContext::of(m_database));
        return joined(layers);
    }

    FakeHost m_host;
    OdDbDatabase& m_database;
};

TEST_F(LayerSorting, ByNameIgnoresCase)
{
    EXPECT_EQ(sorted(Name), "0 Alpha Bravo charlie delta");
    EXPECT_EQ(sorted(Name, false), "delta charlie Bravo Alpha 0");
}

TEST_F(LayerSorting, ByNameKeepsListsOfAFewLayersOrdered)
{
    std::vector<OdDbObjectId> layers{id(m_database, "delta"), id(m_database, "Bravo"),
                                     id(m_database, "delta")};
    sortLayers(layers, {Name, true}, LayerCellContext::of(m_database));
    EXPECT_EQ(joined(layers), "Bravo delta delta");
}

TEST_F(LayerSorting, ByStatusPutsTheCurrentLayerFirstThenTheUnusedThenTheUsed)
{
    m_host.ints[QStringLiteral("SHOWLAYERUSAGE")] = 1;
    m_database.layerTable().generateUsageData();
    m_database.setCLAYER(id(m_database, "charlie"));
    // Lines lie on all layers but the last; viewports lie on layer 0.
    EXPECT_EQ(sorted(Status), "charlie Bravo 0 Alpha delta");
    EXPECT_EQ(sorted(Status, false), "0 Alpha delta Bravo charlie");
}

TEST_F(LayerSorting, ByAFlagPutsFalseFirst)
{
    const struct
    {
        LayerColumn column;
        void (OdDbLayerTableRecord::*set)(bool);
        bool initially;
    } flags[] = {
        {On, &OdDbLayerTableRecord::setIsOff, false},
        {Freeze, &OdDbLayerTableRecord::setIsFrozen, false},
        {Locked, &OdDbLayerTableRecord::setIsLocked, false},
        {Plot, &OdDbLayerTableRecord::setIsPlottable, true},
        {NewVpFreeze, &OdDbLayerTableRecord::setVPDFLT, false},
    };
    for (const auto& flag : flags) {
        SCOPED_TRACE(static_cast<int>(flag.column));
        ((*write(m_database, "Bravo")).*flag.set)(!flag.initially);
        const bool oddFirst = flag.initially;
        EXPECT_EQ(sorted(flag.column),
                  oddFirst ? "Bravo 0 Alpha charlie delta" : "0 Alpha charlie delta Bravo");
        EXPECT_EQ(sorted(flag.column, false),
                  oddFirst ? "0 Alpha charlie delta Bravo" : "Bravo 0 Alpha charlie delta");
    }
}

TEST_F(LayerSorting, ByViewportFreezePutsThawedFirst)
{
    m_database.setCTAB(QStringLiteral("Sheet A"));
    m_database.setActiveViewport(
        m_database.getOdDbObjectId(OdDbHandle(DrawingText::kFirstViewport)));
    // The drawing's first layer is frozen in that viewport.
    EXPECT_EQ(sorted(VpFreeze), "0 Alpha Bravo charlie delta");
    EXPECT_EQ(sorted(VpFreeze, false), "delta 0 Alpha Bravo charlie");
}

TEST_F(LayerSorting, ByColorGoesByThePackedValueUnsigned)
{
    write(m_database, "Alpha")->setColor(OdCmColor::fromIndex(200));
    write(m_database, "Bravo")->setColor(OdCmColor::fromIndex(1));
    write(m_database, "charlie")->setColor(OdCmColor::fromRgb(255, 0, 0));
    // RGB values carry a smaller method byte than indices.
    EXPECT_EQ(sorted(Color), "charlie Bravo 0 delta Alpha");
    EXPECT_EQ(sorted(Color, false), "Alpha 0 delta Bravo charlie");
}

TEST_F(LayerSorting, ByViewportColorGoesByTheLayersOwnColors)
{
    m_database.setCTAB(QStringLiteral("Sheet A"));
    write(m_database, "Alpha")->setColor(OdCmColor::fromIndex(200));
    write(m_database, "delta")->setColor(OdCmColor::fromIndex(1));
    EXPECT_EQ(sorted(VpColor), sorted(Color));
    EXPECT_EQ(sorted(VpColor), "delta 0 Bravo charlie Alpha");
}

TEST_F(LayerSorting, ByTextGoesByWhatTheCellsShow)
{
    write(m_database, "Bravo")
        ->setLinetypeObjectId(
            m_database.table(OdDbTableKind::Linetype).getAt(QStringLiteral("DASHED")));
    EXPECT_EQ(sorted(Linetype), "0 Alpha charlie delta Bravo");
    // "0.05 mm" < "1.00 mm" < "Default"
    write(m_database, "charlie")->setLineWeight(100);
    write(m_database, "delta")->setLineWeight(5);
    EXPECT_EQ(sorted(Lineweight), "delta charlie 0 Alpha Bravo");
    EXPECT_EQ(sorted(Lineweight, false), "0 Alpha Bravo charlie delta");
}

TEST_F(LayerSorting, ByDescriptionIgnoresCase)
{
    write(m_database, "Alpha")->setDescription(QStringLiteral("zone"));
    write(m_database, "Bravo")->setDescription(QStringLiteral("Yard"));
    write(m_database, "charlie")->setDescription(QStringLiteral("ZONE"));
    EXPECT_EQ(sorted(Description), "0 delta Bravo Alpha charlie");
}

TEST_F(LayerSorting, ByPlotStyleGoesByItsName)
{
    write(m_database, "Alpha")->setColor(OdCmColor::fromIndex(9));
    write(m_database, "Bravo")->setColor(OdCmColor::fromIndex(10));
    // As texts: Color_10 < Color_7 < Color_9.
    EXPECT_EQ(sorted(PlotStyle), "Bravo 0 charlie delta Alpha");
}

TEST_F(LayerSorting, OfManyLayersByNameIsRight)
{
    OdDbDatabase& large = m_host.open(layer_drawing::numbered(3000));
    auto layers = large.layerTable().records();
    std::reverse(layers.begin(), layers.end());
    sortLayers(layers, {Name, true}, LayerCellContext::of(large));
    const QStringList names = layer_drawing::names(layers);
    EXPECT_EQ(names.size(), 3001);
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
}

} // namespace
