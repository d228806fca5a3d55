#include "FilterDrawing.h"
#include "database/objects/OdDbEntity.h"
#include "database/store/ObjectStore.h"
#include "layermanager/filters/tree/GroupLayers.h"

#include <gtest/gtest.h>

namespace {

/// One entity on each of these layers, in their order.
KestSelectionSet picked(const OdDbDatabase& database, std::initializer_list<const char*> layers)
{
    KestSelectionSet selection;
    const ObjectStore& store = database.store();
    for (const char* layer : layers) {
        const quint32 wanted = layer_drawing::id(database, layer).slot();
        for (quint32 slot = 0; slot < store.size(); ++slot) {
            if (store.type(slot) == RecordType::Line && store.layer(slot) == wanted) {
                selection.entities.push_back(database.idOfSlot(slot));
                break;
            }
        }
    }
    EXPECT_EQ(selection.entities.size(), layers.size());
    return selection;
}

} // namespace

TEST(FillGroup, AddsTheLayerOfThreeObjectsOnItOnce)
{
    FilterDrawing drawing;
    drawing.group("G", {});
    const KestSelectionSet selection = picked(*drawing, {"B", "A", "B", "B"});
    EXPECT_TRUE(FillGroupFromSelection(*drawing, FilterDrawing::key("G"), selection, 1));
    EXPECT_EQ(drawing.layersOf("G"), texts({"B", "A"})) << "in the order of the selection";
}

TEST(FillGroup, InModeOneKeepsWhatIsThereAndAddsNothingTwice)
{
    FilterDrawing drawing;
    drawing.group("G", {"A"});
    EXPECT_TRUE(
        FillGroupFromSelection(*drawing, FilterDrawing::key("g"), picked(*drawing, {"A", "B"}), 1));
    EXPECT_EQ(drawing.layersOf("G"), texts({"A", "B"}));
    drawing->endUndoRecord();
    const auto stamp = drawing->editStamp();
    EXPECT_TRUE(FillGroupFromSelection(*drawing, FilterDrawing::key("G"), {}, 1));
    EXPECT_EQ(drawing.layersOf("G"), texts({"A", "B"})) << "an empty selection";
    EXPECT_EQ(drawing->editStamp(), stamp);
    EXPECT_FALSE(drawing->isUndoRecordOpen()) << "a step in which nothing happened";
}

TEST(FillGroup, InModeZeroReplacesWhatIsThere)
{
    FilterDrawing drawing;
    drawing.group("G", {"A", "C"});
    EXPECT_TRUE(
        FillGroupFromSelection(*drawing, FilterDrawing::key("G"), picked(*drawing, {"B", "A"}), 0));
    EXPECT_EQ(drawing.layersOf("G"), texts({"B", "A"}));
    EXPECT_TRUE(drawing->undo());
    EXPECT_EQ(drawing.layersOf("G"), texts({"A", "C"}));
    EXPECT_TRUE(FillGroupFromSelection(*drawing, FilterDrawing::key("G"), {}, 0));
    EXPECT_EQ(drawing.layersOf("G"), QStringList());
}

TEST(FillGroup, FindsANestedGroupAndLeavesItsParentAlone)
{
    FilterDrawing drawing;
    drawing.group("Inner", {}, drawing.group("Outer", {"C"}));
    EXPECT_TRUE(
        FillGroupFromSelection(*drawing, FilterDrawing::key("Inner"), picked(*drawing, {"A"}), 1));
    EXPECT_EQ(drawing.layersOf("Inner"), texts({"A"}));
    EXPECT_EQ(drawing.layersOf("Outer"), texts({"C"}));
}

TEST(FillGroup, WithoutSuchAGroupChangesNothing)
{
    FilterDrawing drawing;
    drawing.property("P", "COLOR==\"1\" ");
    const auto stamp = drawing->editStamp();
    EXPECT_FALSE(
        FillGroupFromSelection(*drawing, FilterDrawing::key("nobody"), picked(*drawing, {"A"}), 1));
    EXPECT_FALSE(
        FillGroupFromSelection(*drawing, FilterDrawing::key("P"), picked(*drawing, {"A"}), 1));
    EXPECT_EQ(drawing->editStamp(), stamp);
}

TEST(RemoveLayerFromGroups, TakesItOutOfEveryGroupHoweverDeep)
{
    FilterDrawing drawing;
    const FilterKey outer = drawing.group("Outer", {"A", "B", "A"});
    const FilterKey property = drawing.property("P", "NAME==\"*\" ", outer);
    drawing.group("Inner", {"A"}, outer);
    drawing.group("Other", {"C"});
    drawing->startUndoRecord();
    EXPECT_TRUE(RemoveLayerFromGroups(*drawing, layer_drawing::id(*drawing, "A")));
    EXPECT_EQ(drawing.layersOf("Outer"), texts({"B"}));
    EXPECT_EQ(drawing.layersOf("Inner"), QStringList());
    EXPECT_EQ(drawing.layersOf("Other"), texts({"C"}));
    EXPECT_TRUE(drawing.filter("P")) << property.name.toStdString();
    EXPECT_TRUE(drawing->undo());
    EXPECT_EQ(drawing.layersOf("Inner"), texts({"A"}));
}

TEST(RemoveLayerFromGroups, TakesManyOutInOneWalk)
{
    FilterDrawing drawing;
    drawing.group("Outer", {"A", "B", "C"});
    drawing.group("Other", {"C"});
    const std::vector<OdDbObjectId> layers = {layer_drawing::id(*drawing, "C"),
                                              layer_drawing::id(*drawing, "A")};
    EXPECT_TRUE(removeLayersFromGroups(*drawing, layers));
    EXPECT_EQ(drawing.layersOf("Outer"), texts({"B"}));
    EXPECT_EQ(drawing.layersOf("Other"), QStringList());
}

TEST(RemoveLayerFromGroups, KnowsGroupsThatProgramsMade)
{
    FilterDrawing drawing;
    const auto group = odrxCreate<OdLyLayerGroup>(QStringLiteral("Session"));
    group->addLayerId(layer_drawing::id(*drawing, "A"));
    group->setDynamicallyGenerated(true);
    drawing->setSessionFilters({group});
    const auto stamp = drawing->editStamp();
    layer_drawing::write(*drawing, "A")->erase();
    EXPECT_TRUE(RemoveLayerFromGroups(*drawing, group->layerIds().front()));
    EXPECT_EQ(drawing.layersOf("Session"), QStringList());
    EXPECT_TRUE(drawing->undo()) << "the erasure is the only edit";
    EXPECT_EQ(drawing->editStamp(), stamp);
}

TEST(RemoveLayerFromGroups, WritesNothingWhereNoGroupHoldsTheLayer)
{
    FilterDrawing drawing;
    drawing.group("G", {"B"});
    const auto stamp = drawing->editStamp();
    EXPECT_TRUE(RemoveLayerFromGroups(*drawing, layer_drawing::id(*drawing, "A")));
    EXPECT_EQ(drawing->editStamp(), stamp);
}

TEST(AddLayersToGroup, TakesLayersAsTheyAre)
{
    FilterDrawing drawing;
    drawing.group("G", {"B"});
    const std::vector<OdDbObjectId> layers = {layer_drawing::id(*drawing, "A"), OdDbObjectId(),
                                              layer_drawing::id(*drawing, "B")};
    EXPECT_TRUE(addLayersToGroup(*drawing, FilterDrawing::key("G"), layers));
    EXPECT_EQ(drawing.layersOf("G"), texts({"B", "A"}));
}

TEST(MoveLayersToGroup, TakesThemOutOfTheOtherGroupInOneStep)
{
    FilterDrawing drawing;
    const FilterKey from = drawing.group("From", {"A", "B"});
    const FilterKey to = drawing.group("To", {"B"});
    drawing->endUndoRecord();
    const std::vector<OdDbObjectId> layers = {layer_drawing::id(*drawing, "A"),
                                              layer_drawing::id(*drawing, "B")};
    EXPECT_TRUE(moveLayersToGroup(*drawing, &from, to, layers));
    EXPECT_EQ(drawing.layersOf("From"), QStringList());
    EXPECT_EQ(drawing.layersOf("To"), texts({"B", "A"}));
    EXPECT_TRUE(drawing->undo());
    EXPECT_EQ(drawing.layersOf("From"), texts({"A", "B"}));
    EXPECT_EQ(drawing.layersOf("To"), texts({"B"}));
}

TEST(MoveLayersToGroup, ChangesNothingWithinOneGroup)
{
    FilterDrawing drawing;
    const FilterKey group = drawing.group("G", {"A"});
    const std::vector<OdDbObjectId> layers = {layer_drawing::id(*drawing, "A")};
    const auto stamp = drawing->editStamp();
    EXPECT_FALSE(moveLayersToGroup(*drawing, &group, group, layers));
    EXPECT_EQ(drawing->editStamp(), stamp);
    EXPECT_TRUE(drawing.host.historyNames.isEmpty());
}

TEST(MoveLayersToGroup, KnowsNoSuchGroupAndNoErasedLayer)
{
    FilterDrawing drawing;
    const FilterKey property = drawing.property("P", "COLOR==\"1\" ");
    const FilterKey group = drawing.group("G", {});
    const std::vector<OdDbObjectId> layers = {layer_drawing::id(*drawing, "A"), OdDbObjectId()};
    EXPECT_FALSE(moveLayersToGroup(*drawing, nullptr, property, layers));
    EXPECT_FALSE(moveLayersToGroup(*drawing, nullptr, FilterDrawing::key("nobody"), layers));
    layer_drawing::write(*drawing, "A")->erase();
    EXPECT_FALSE(moveLayersToGroup(*drawing, nullptr, group, layers));
    EXPECT_EQ(drawing.layersOf("G"), QStringList());
}
