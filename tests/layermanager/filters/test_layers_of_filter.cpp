#include "../LayerDrawing.h"
#include "layermanager/filters/LayersOfFilter.h"
#include "sdk/IKestSysvarManager.h"
#include "support/FakeHost.h"

#include <gtest/gtest.h>

namespace {

using layer_drawing::id;
using layer_drawing::write;

/// Layers 0, Walls, Doors, Windows in this order; nothing lies on Windows.
class LayersOfFilter : public testing::Test
{
protected:
    LayersOfFilter()
        : m_database(m_host.open(layer_drawing::make({{"Walls"}, {"Doors"}, {"Windows"}})))
    { }

    /// "in | others", and that asking for the one list alone gives the same.
    std::string shown(const OdLyLayerFilter& filter) const
    {
        LayerIds in{m_database.getLayerZeroId()};
        LayerIds others = in;
        GetLayersOfFilter(m_database, filter, in, &others);
        LayerIds inAlone;
        GetLayersOfFilter(m_database, filter, inAlone);
        EXPECT_EQ(in, inAlone);
        return joined(in) + " | " + joined(others);
    }
    std::string shown(const char* name, const char* expression = "") const
    {
        const auto filter = odrxCreate<OdLyLayerFilter>(QString::fromUtf8(name));
        filter->setFilterExpression(QString::fromUtf8(expression));
        return shown(*filter);
    }
    std::string shownByGroup(const char* name, const LayerIds& layers) const
    {
        const auto group = odrxCreate<OdLyLayerGroup>(QString::fromUtf8(name));
        for (const OdDbObjectId layer : layers)
            group->addLayerId(layer);
        return shown(*group);
    }
    OdDbObjectId layer(const char* name) const { return id(m_database, name); }
    void erase(const char* name) { write(m_database, name)->erase(); }

    static std::string joined(const LayerIds& layers)
    {
        return layer_drawing::names(layers).join(QLatin1Char(' ')).toStdString();
    }

    FakeHost m_host;
    OdDbDatabase& m_database;
};

TEST_F(LayersOfFilter, ForAGroupAreItsLayersInTheOrderOfTheTable)
{
    EXPECT_EQ(shownByGroup("Mine", {layer("Windows"), layer("Walls")}), "Walls Windows | 0 Doors");
    EXPECT_EQ(shownByGroup("Mine", {}), " | 0 Walls Doors Windows");
}

TEST_F(LayersOfFilter, ForAGroupComeOnceAndLeaveOutWhatIsNoLayerOfTheDrawing)
{
    const OdDbDatabase& other = m_host.open(layer_drawing::make({{"Walls"}, {"Doors"}}));
    const OdDbObjectId foreign = id(other, "Doors");
    const OdDbObjectId erased = layer("Doors");
    erase("Doors");
    EXPECT_EQ(shownByGroup("Mine",
                           {layer("Walls"), erased, layer("Walls"), OdDbObjectId(), foreign,
                            m_database.getLinetypeContinuousId()}),
              "Walls | 0 Windows");
}

TEST_F(LayersOfFilter, ForAGroupGoByItsLayersUnderNamesThatMeanSomethingElse)
{
    EXPECT_EQ(shownByGroup("All", {layer("Walls")}), "Walls | 0 Doors Windows");
    EXPECT_EQ(shownByGroup("All used layers", {layer("Windows")}), "Windows | 0 Walls Doors");
}

TEST_F(LayersOfFilter, ForUnreconciledOnesGoByTheLayersFlag)
{
    for (const char* name : {"0", "Walls", "Doors"})
        write(m_database, name)->setIsReconciled(true);
    write(m_database, "Doors")->setIsReconciled(false);
    for (const char* name : {"UnReconciled New Layers", "UNRECONCILED new layers"})
        EXPECT_EQ(shownByGroup(name, {layer("Walls")}), "Doors Windows | 0 Walls") << name;
    EXPECT_EQ(shown("UnReconciled New Layers", "NAME==\"Walls\""), "Doors Windows | 0 Walls")
        << "the name alone decides";
}

TEST_F(LayersOfFilter, ForAllAreAll)
{
    for (const char* name : {"All", "ALL", "all"})
        EXPECT_EQ(shown(name, "NAME==\"Walls\""), "0 Walls Doors Windows | ") << name;
    erase("Doors");
    EXPECT_EQ(shown("All"), "0 Walls Windows | ");
}

TEST_F(LayersOfFilter, ForUsedOnesAreCountedFirst)
{
    // The viewports lie on layer 0.
    for (const char* name : {"All used layers", "ALL USED LAYERS"})
        EXPECT_EQ(shown(name), "0 Walls Doors | Windows") << name;
}

TEST_F(LayersOfFilter, ForUsedOnesAreTheSameWhateverTheHostSaysOfUsage)
{
    for (const int showsUsage : {0, 1, 2}) {
        m_host.ints[QStringLiteral("SHOWLAYERUSAGE")] = showsUsage;
        EXPECT_EQ(shown("All used layers"), "0 Walls Doors | Windows") << showsUsage;
    }
    m_host.unreadable.insert(QStringLiteral("SHOWLAYERUSAGE"));
    EXPECT_EQ(shown("All used layers"), "0 Walls Doors | Windows");
}

TEST_F(LayersOfFilter, ForAnExpressionPassOneRowAtLeast)
{
    EXPECT_EQ(shown("Mine", "NAME==\"W*\" "), "Walls Windows | 0 Doors");
    EXPECT_EQ(shown("Mine", "NAME==\"Wa*\"  OR NAME==\"D*\" "), "Walls Doors | 0 Windows");
    EXPECT_EQ(shown("Mine", "NAME==\"W*\"  AND OFF==\"True\" "), " | 0 Walls Doors Windows");
}

TEST_F(LayersOfFilter, ForAnExpressionAboutUseAreCountedFirst)
{
    EXPECT_EQ(shown("Mine", "USED==\"False\" AND VPOVERRIDES==\"False\""),
              "Windows | 0 Walls Doors");
}

TEST_F(LayersOfFilter, ForAnExpressionWithoutRowsAreNone)
{
    for (const char* expression : {"", " ", "nonsense", " OR NAME==\"Walls\" "})
        EXPECT_EQ(shown("Mine", expression), " | 0 Walls Doors Windows") << expression;
}

TEST_F(LayersOfFilter, OfAnotherProgramsExpressionAreThoseOfTheCriteriaThatAreKnown)
{
    struct Foreign
    {
        const char* expression;
        const char* shown;
    };
    constexpr Foreign kForeign[] = {
        {"PLOTSTYLE==\"Normal\"", ""},
        {"NAME!=\"Walls\"", ""},
        {"LINETYPE==\"CONT*\"", ""},
        {"LINEWEIGHT==\"2.11\"", ""},
        {"( NAME == \"W*\" ) AND ( PLOTSTYLE == \"x\" )", ""},
        {"NAME==\"W*\" AND PLOTSTYLE==\"x\"", "Walls Windows"},
        {"NAME==\"W*\" AND NAME==\"*ls\"", "Walls Windows"},
        {"( NAME==\"Walls\"", "Walls"},
        {"NAME==\"Walls", "Walls"},
        {"OFF==\"maybe\"", "0 Walls Doors Windows"},
        {"COLOR==\"7,34,56\"", "0 Walls Doors Windows"},
        {"NAME==\"A OR B\" OR NAME==\"Doors\"", "Doors"},
    };
    for (const Foreign& foreign : kForeign) {
        const auto filter = odrxCreate<OdLyLayerFilter>(QStringLiteral("Foreign"));
        const QString text = QString::fromLatin1(foreign.expression);
        filter->setOrigin({{}, text, false, false}, text);
        LayerIds in;
        GetLayersOfFilter(m_database, *filter, in);
        EXPECT_EQ(joined(in), foreign.shown) << foreign.expression;
    }
}

TEST_F(LayersOfFilter, InModelSpacePassARowThatAsksOnlyWhatAViewportFreezes)
{
    EXPECT_EQ(shown("Mine", "VPFROZEN==\"True\" "), "0 Walls Doors Windows | ");
    m_database.setCTAB(QStringLiteral("Sheet A"));
    m_database.setActiveViewport(
        m_database.getOdDbObjectId(OdDbHandle(DrawingText::kFirstViewport)));
    EXPECT_EQ(shown("Mine", "VPFROZEN==\"True\" "), "Walls | 0 Doors Windows");
}

TEST_F(LayersOfFilter, OfRowsAreThoseOfTheSameExpression)
{
    LayerFilterRow row;
    row.m_strName = QStringLiteral("D*");
    LayerIds in;
    LayerIds others;
    getLayersOfRows(m_database, {row}, in, &others);
    EXPECT_EQ(joined(in) + " | " + joined(others), "Doors | 0 Walls Windows");
    getLayersOfRows(m_database, {}, in, &others);
    EXPECT_EQ(joined(in) + " | " + joined(others), " | 0 Walls Doors Windows");
    getLayersOfRows(m_database, {LayerFilterRow()}, in, &others);
    EXPECT_EQ(joined(in) + " | " + joined(others), "0 Walls Doors Windows | ");
}

} // namespace
