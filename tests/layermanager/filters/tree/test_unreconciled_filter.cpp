#include "FilterDrawing.h"
#include "layermanager/filters/tree/UnreconciledFilter.h"

#include <gtest/gtest.h>

namespace {

const QString kName = QStringLiteral("UnReconciled New Layers");

/// The layers were reviewed once, those named came later.
void review(FilterDrawing& drawing, std::initializer_list<const char*> newLayers)
{
    for (const OdDbObjectId id : drawing->layerTable().records())
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsReconciled(true);
    for (const char* name : newLayers)
        layer_drawing::write(*drawing, name)->setIsReconciled(false);
}

void evaluate(FilterDrawing& drawing, int layerEval, int control = 1)
{
    drawing->setDictionaryVariable(QStringLiteral("LAYEREVAL"), QString::number(layerEval));
    drawing.host.ints[QStringLiteral("LAYEREVAL")] = layerEval;
    drawing.host.ints[QStringLiteral("LAYEREVALCTL")] = control;
}

bool hasNode(const FilterDrawing& drawing)
{
    return drawing.filter("UnReconciled New Layers").get() != nullptr;
}

} // namespace

TEST(UnreconciledFilter, HoldsTheLayersThatCameSinceTheLastReview)
{
    FilterDrawing drawing;
    review(drawing, {"C", "A"});
    evaluate(drawing, 1);
    EXPECT_TRUE(updateUnreconciledFilter(*drawing));
    EXPECT_EQ(drawing.layersOf("UnReconciled New Layers"), texts({"A", "C"}))
        << "in the order of the layer table";
    EXPECT_TRUE(drawing.tree().contains(QStringLiteral(".UnReconciled New Layers")))
        << "below the root";
    EXPECT_FALSE(updateUnreconciledFilter(*drawing)) << "nothing else is new";
}

TEST(UnreconciledFilter, IsNotThereWhereOnlyLayerZeroIsNew)
{
    FilterDrawing drawing;
    review(drawing, {"0"});
    evaluate(drawing, 1);
    EXPECT_FALSE(updateUnreconciledFilter(*drawing));
    EXPECT_FALSE(hasNode(drawing));
}

TEST(UnreconciledFilter, LeavesOutLayersOfProgramsAndInModeOneThoseOfReferences)
{
    FilterDrawing drawing({{"*ADI"}, {"plan|Walls", 48}, {"Own"}});
    review(drawing, {"*ADI", "plan|Walls", "Own"});
    evaluate(drawing, 1);
    updateUnreconciledFilter(*drawing);
    EXPECT_EQ(drawing.layersOf("UnReconciled New Layers"), texts({"Own"}));
    evaluate(drawing, 2);
    EXPECT_TRUE(updateUnreconciledFilter(*drawing));
    EXPECT_EQ(drawing.layersOf("UnReconciled New Layers"), texts({"plan|Walls", "Own"}));
}

TEST(UnreconciledFilter, GoesWhenEitherVariableIsZero)
{
    for (const auto& [evaluation, control] : {std::pair{0, 1}, std::pair{1, 0}}) {
        FilterDrawing drawing;
        review(drawing, {"A"});
        evaluate(drawing, 1);
        updateUnreconciledFilter(*drawing);
        ASSERT_TRUE(hasNode(drawing));
        setCurrentFilter(*drawing, FilterDrawing::key("UnReconciled New Layers"));
        evaluate(drawing, evaluation, control);
        EXPECT_TRUE(updateUnreconciledFilter(*drawing));
        EXPECT_FALSE(hasNode(drawing));
        EXPECT_EQ(drawing.current(), QStringLiteral("All"));
    }
}

TEST(UnreconciledFilter, StaysAsItIsWhileTheVariableCannotBeRead)
{
    FilterDrawing drawing;
    review(drawing, {"A"});
    evaluate(drawing, 1);
    updateUnreconciledFilter(*drawing);
    review(drawing, {"A", "B"});
    drawing.host.unreadable.insert(QStringLiteral("LAYEREVAL"));
    EXPECT_FALSE(updateUnreconciledFilter(*drawing));
    EXPECT_EQ(drawing.layersOf("UnReconciled New Layers"), texts({"A"}));
}

TEST(UnreconciledFilter, FollowsReviewsAndGoesWithTheLastNewLayer)
{
    FilterDrawing drawing;
    review(drawing, {"A", "B"});
    evaluate(drawing, 1);
    updateUnreconciledFilter(*drawing);
    setCurrentFilter(*drawing, FilterDrawing::key("UnReconciled New Layers"));
    layer_drawing::write(*drawing, "A")->setIsReconciled(true);
    EXPECT_TRUE(updateUnreconciledFilter(*drawing));
    EXPECT_EQ(drawing.layersOf("UnReconciled New Layers"), texts({"B"}));
    EXPECT_EQ(drawing.current(), kName);
    layer_drawing::write(*drawing, "B")->setIsReconciled(true);
    EXPECT_TRUE(updateUnreconciledFilter(*drawing));
    EXPECT_FALSE(hasNode(drawing));
}

TEST(UnreconciledFilter, IsNoPartOfTheFile)
{
    FilterDrawing drawing;
    review(drawing, {"A"});
    evaluate(drawing, 1);
    const QByteArray before = drawingBytes(*drawing);
    updateUnreconciledFilter(*drawing);
    ASSERT_TRUE(hasNode(drawing));
    EXPECT_EQ(drawingBytes(*drawing), before);
}
