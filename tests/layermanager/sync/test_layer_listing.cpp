#include "../filters/tree/FilterDrawing.h"
#include "layermanager/filters/LayerFilterTest.h"
#include "layermanager/filters/LayersOfFilter.h"
#include "layermanager/layers/LayerListing.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

RowDecision decided(const FilterDrawing& drawing, const LayerListing& listing, const char* layer)
{
    return listing.decide(layer_drawing::id(*drawing, layer));
}

LayerListing::Filter onlyA(const FilterDrawing& drawing)
{
    return [&drawing](OdDbObjectId id) { return id == layer_drawing::id(*drawing, "A"); };
}

} // namespace

TEST(LayerListing, ListsEveryLayerUnlessToldOtherwise)
{
    const FilterDrawing drawing({{"A"}, {"*SYSTEM"}});
    EXPECT_EQ(decided(drawing, {}, "A"), RowDecision::Listed);
    EXPECT_EQ(decided(drawing, {}, "*SYSTEM"), RowDecision::Hidden);
    EXPECT_EQ(LayerListing().decide({}), RowDecision::Hidden);
}

TEST(LayerListing, AsksTheFilterBeforeTheSearch)
{
    const FilterDrawing drawing;
    const LayerListing listing(onlyA(drawing), false, QStringLiteral("b*"));
    EXPECT_EQ(decided(drawing, listing, "A"), RowDecision::FailsSearch);
    EXPECT_EQ(decided(drawing, listing, "B"), RowDecision::FailsFilter);
}

TEST(LayerListing, InvertedListsWhatTheFilterDoesNotShow)
{
    const FilterDrawing drawing;
    const LayerListing listing(onlyA(drawing), true, {});
    EXPECT_EQ(decided(drawing, listing, "A"), RowDecision::FailsFilter);
    EXPECT_EQ(decided(drawing, listing, "B"), RowDecision::Listed);
}

TEST(LayerListing, TakesAnEmptyPatternAndATildeForEverything)
{
    const FilterDrawing drawing;
    for (const char* pattern : {"", "~", "*"})
        EXPECT_EQ(decided(drawing, {{}, false, QString::fromUtf8(pattern)}, "B"),
                  RowDecision::Listed)
            << pattern;
    EXPECT_EQ(decided(drawing, {{}, false, QStringLiteral("~b")}, "B"), RowDecision::FailsSearch);
}

TEST(LayerFilterTest, TellsOfEachLayerWhatTheWholeFilterTells)
{
    FilterDrawing drawing({{"A"}, {"Bb"}, {"C", 4}, {"D", 1}, {"E", 2}});
    layer_drawing::write(*drawing, "Bb")->setIsLocked(true);
    layer_drawing::write(*drawing, "D")->setColor(OdCmColor::fromIndex(1));
    drawing->layerTable().startReconciledBaseline();
    layer_drawing::write(*drawing, "E")->setIsReconciled(false);
    drawing.property("Locked", "LOCKED==\"True\" ");
    drawing.property("Rows", "NAME==\"b*\" OR COLOR==\"1\" ");
    drawing.property("In viewport", "VPFROZEN==\"True\" OR NAME==\"C\" ");
    drawing.property("Used", "USED==\"True\" ");
    drawing.property("Nothing", "");
    drawing.group("Group", {"A", "D"});
    drawing.group("UnReconciled New Layers", {});
    int asked = 0;
    for (const OdLyLayerFilterPtr& filter : filtersOfTree(FilterTreeEdit(*drawing).root())) {
        LayerIds in;
        LayerIds other;
        GetLayersOfFilter(*drawing, *filter, in, &other);
        const LayerFilterTest test(*drawing, *filter);
        for (const OdDbObjectId layer : drawing->layerTable().records()) {
            EXPECT_EQ(test.shows(layer), std::find(in.begin(), in.end(), layer) != in.end())
                << filter->name().toStdString() << ": " << layer_drawing::name(layer).toStdString();
            ++asked;
        }
    }
    EXPECT_EQ(asked, 9 * 6);
}

TEST(LayerFilterTest, ShowsNoErasedLayer)
{
    FilterDrawing drawing;
    drawing.group("G", {"A"});
    const OdDbObjectId layer = layer_drawing::id(*drawing, "A");
    const LayerFilterTest test(*drawing, *drawing.filter("G"));
    EXPECT_TRUE(test.shows(layer));
    layer_drawing::write(*drawing, "A")->erase();
    EXPECT_FALSE(test.shows(layer));
    EXPECT_FALSE(test.shows({}));
}
