#include "FilterDrawing.h"

#include <gtest/gtest.h>

namespace {

const QStringList kFixed = {QStringLiteral("All"), QStringLiteral(".All used layers")};

QStringList withFixed(std::initializer_list<const char*> names)
{
    QStringList all = kFixed;
    for (const char* name : names)
        all << QString::fromUtf8(name);
    return all;
}

} // namespace

TEST(FilterEdit, MakesGroupsBelowTheRootAndBelowGroupsOnly)
{
    FilterDrawing drawing;
    const FilterKey first = *addGroupFilter(*drawing, FilterDrawing::all());
    EXPECT_EQ(first, FilterDrawing::key("Group Filter1"));
    EXPECT_EQ(*addGroupFilter(*drawing, first), FilterDrawing::key("Group Filter2"));
    const FilterKey property = drawing.property("P", "COLOR==\"1\" ");
    EXPECT_FALSE(addGroupFilter(*drawing, property));
    EXPECT_FALSE(addGroupFilter(*drawing, FilterDrawing::key("All used layers")));
    EXPECT_FALSE(addGroupFilter(*drawing, FilterDrawing::key("nobody")));
    EXPECT_EQ(drawing.tree(), withFixed({".Group Filter1", "..Group Filter2", ".P"}));
}

TEST(FilterEdit, IsOneUndoRecordEach)
{
    FilterDrawing drawing;
    addGroupFilter(*drawing, FilterDrawing::all());
    renameFilter(*drawing, FilterDrawing::key("Group Filter1"), QStringLiteral("Walls"));
    setCurrentFilter(*drawing, FilterDrawing::all());
    deleteFilter(*drawing, FilterDrawing::key("Walls"));
    EXPECT_EQ(drawing.host.historyNames.size(), 4);
    EXPECT_EQ(drawing.tree(), kFixed);
    EXPECT_TRUE(drawing->undo());
    EXPECT_EQ(drawing.tree(), withFixed({".Walls"}));
    EXPECT_EQ(drawing.current(), QStringLiteral("All"));
    EXPECT_TRUE(drawing->undo());
    EXPECT_EQ(drawing.current(), QStringLiteral("Walls")) << "as a new filter is";
    EXPECT_TRUE(drawing->undo());
    EXPECT_EQ(drawing.tree(), withFixed({".Group Filter1"}));
    EXPECT_TRUE(drawing->undo());
    EXPECT_EQ(drawing.tree(), kFixed);
    EXPECT_FALSE(drawing->hasUndo());
}

TEST(FilterEdit, ThatIsRefusedLeavesTheDrawingAsItWas)
{
    FilterDrawing drawing;
    drawing.group("Walls", {"A"});
    drawing.group("Doors", {"B"});
    const auto stamp = drawing->editStamp();
    EXPECT_EQ(renameFilter(*drawing, FilterDrawing::key("Walls"), QStringLiteral("doors")),
              FilterNameVerdict::NotUnique);
    EXPECT_EQ(renameFilter(*drawing, FilterDrawing::key("Walls"), QStringLiteral("a\\b")),
              FilterNameVerdict::InvalidCharacters);
    EXPECT_EQ(renameFilter(*drawing, FilterDrawing::key("Walls"), QStringLiteral("  WALLS ")),
              FilterNameVerdict::Unchanged);
    EXPECT_EQ(renameFilter(*drawing, FilterDrawing::all(), QStringLiteral("Every")),
              FilterNameVerdict::Unchanged);
    EXPECT_FALSE(deleteFilter(*drawing, FilterDrawing::all()));
    EXPECT_FALSE(deleteFilter(*drawing, FilterDrawing::key("All used layers")));
    EXPECT_FALSE(convertToGroup(*drawing, FilterDrawing::key("Walls")));
    EXPECT_FALSE(setCurrentFilter(*drawing, FilterDrawing::key("nobody")));
    EXPECT_EQ(drawing->editStamp(), stamp);
    EXPECT_TRUE(drawing.host.historyNames.isEmpty());
}

TEST(FilterEdit, RenamesWithTheTrimmedText)
{
    FilterDrawing drawing;
    drawing.group("Walls", {"A"});
    EXPECT_EQ(renameFilter(*drawing, FilterDrawing::key("Walls"), QStringLiteral("  Mike's ")),
              FilterNameVerdict::Accepted);
    EXPECT_EQ(drawing.tree(), withFixed({".Mike's"}));
    EXPECT_EQ(drawing.layersOf("Mike's"), texts({"A"}));
}

TEST(FilterEdit, ConvertsAPropertyFilterIntoAGroupOfWhatItShows)
{
    FilterDrawing drawing({{"A-1", 0, 1}, {"A-2"}, {"B", 0, 1}});
    const FilterKey red = drawing.property("Red", "COLOR==\"1\" ");
    drawing.property("Red A", "NAME==\"A*\" ", red);
    setCurrentFilter(*drawing, red);
    const auto group = convertToGroup(*drawing, red);
    ASSERT_TRUE(group);
    EXPECT_EQ(group->name, QStringLiteral("Group Filter1"));
    EXPECT_EQ(drawing.tree(), withFixed({".Group Filter1", "..Red A"}));
    EXPECT_EQ(drawing.layersOf("Group Filter1"), texts({"A-1", "B"}));
    EXPECT_EQ(drawing.current(), QStringLiteral("Group Filter1"));
    EXPECT_TRUE(drawing->undo());
    EXPECT_EQ(drawing.tree(), withFixed({".Red", "..Red A"}));
    EXPECT_EQ(drawing.filter("Red")->filterExpression(), QStringLiteral("COLOR==\"1\" "));
}

TEST(FilterEdit, PutsAConvertedFilterWhereAGroupCanStand)
{
    FilterDrawing drawing;
    const FilterKey group = drawing.group("G", {});
    const FilterKey outer = drawing.property("Outer", "NAME==\"*\" ", group);
    const FilterKey inner = drawing.property("Inner", "NAME==\"A\" ", outer);
    ASSERT_TRUE(convertToGroup(*drawing, inner));
    EXPECT_EQ(drawing.tree(), withFixed({".G", "..Outer", "..Group Filter1"}));
}

TEST(FilterEdit, GivesTheParentTheCurrentPlaceOfADeletedFilter)
{
    FilterDrawing drawing;
    const FilterKey outer = drawing.group("Outer", {});
    const FilterKey middle = drawing.group("Middle", {}, outer);
    const FilterKey inner = drawing.group("Inner", {}, middle);
    setCurrentFilter(*drawing, inner);
    EXPECT_EQ(*deleteFilter(*drawing, middle), outer);
    EXPECT_EQ(drawing.current(), QStringLiteral("Outer"));
    EXPECT_EQ(drawing.tree(), withFixed({".Outer"}));
}

TEST(FilterEdit, TellsFiltersOfOneNameApartByTheirOrder)
{
    FilterDrawing drawing;
    drawing.group("Twin", {"A"});
    drawing.group("TWIN", {"B"});
    EXPECT_EQ(FilterTreeEdit(*drawing).find(FilterDrawing::key("twin", 1))->name(),
              QStringLiteral("TWIN"));
    deleteFilter(*drawing, FilterDrawing::key("Twin", 1));
    EXPECT_EQ(drawing.tree(), withFixed({".Twin"})) << "the second one";
    EXPECT_EQ(drawing.layersOf("Twin"), texts({"A"}));
}

TEST(FilterEdit, SurvivesSavingAndReading)
{
    FilterDrawing drawing;
    const FilterKey group = *addGroupFilter(*drawing, FilterDrawing::all());
    renameFilter(*drawing, group, QStringLiteral("Walls"));
    const auto filter = odrxCreate<OdLyLayerFilter>(QStringLiteral("Red"));
    filter->setFilterExpression(QStringLiteral("COLOR==\"1\" "));
    addFilter(*drawing, FilterDrawing::key("Walls"), filter);
    setCurrentFilter(*drawing, FilterDrawing::key("Red"));
    const FilterDrawing again(drawingBytes(*drawing));
    EXPECT_EQ(again.tree(), withFixed({".Walls", "..Red"}));
    EXPECT_EQ(again.current(), QStringLiteral("Red"));
    EXPECT_EQ(again.filter("Red")->filterExpression(), QStringLiteral("COLOR==\"1\" "));
}
