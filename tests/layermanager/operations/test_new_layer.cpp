#include "OperationDrawing.h"
#include "database/objects/OdDbEntity.h"
#include "layermanager/layers/operations/LayerEdits.h"
#include "layermanager/layers/operations/NewLayer.h"

#include <gtest/gtest.h>

namespace {

class NewLayers : public testing::Test
{
protected:
    OdDbObjectId make(NewLayerKind kind = NewLayerKind::Plain, const char* like = nullptr)
    {
        const OdDbObjectId other = like ? m_drawing.id(like) : OdDbObjectId();
        const LayerOutcome outcome =
            m_drawing.changing([&] { return makeNewLayer(*m_drawing, kind, other); });
        EXPECT_EQ(outcome.changed.size(), 1u);
        return outcome.changed.front();
    }
    QString makeAndName() { return layer_drawing::name(make()); }
    void evaluate(int evaluation, int control)
    {
        m_drawing.host.ints[QStringLiteral("LAYEREVAL")] = evaluation;
        m_drawing.host.ints[QStringLiteral("LAYEREVALCTL")] = control;
    }

    OperationDrawing m_drawing;
};

} // namespace

TEST_F(NewLayers, TakeTheFirstFreeNumber)
{
    EXPECT_EQ(makeAndName().toStdString(), "Layer1");
    EXPECT_EQ(makeAndName().toStdString(), "Layer2");
    renameLayer(m_drawing.id("Layer1"), QStringLiteral("Walls"));
    EXPECT_EQ(makeAndName().toStdString(), "Layer1");
    renameLayer(m_drawing.id("Layer2"), QStringLiteral("LAYER3"));
    EXPECT_EQ(makeAndName().toStdString(), "Layer2");
    EXPECT_EQ(makeAndName().toStdString(), "Layer4") << "case does not tell names apart";
}

TEST_F(NewLayers, TakeTheNameOfADeletedOne)
{
    make();
    m_drawing.edited("Layer1")->erase();
    EXPECT_EQ(newLayerName(*m_drawing).toStdString(), "Layer1");
}

TEST_F(NewLayers, HaveTheDefaultPropertiesWhereNoneIsSelected)
{
    make();
    const auto made = m_drawing.layer("Layer1");
    LayerState plain = m_drawing->layerTable().newLayerState(QStringLiteral("Layer1"));
    EXPECT_EQ(made->state(), plain);
    EXPECT_FALSE(made->isOff() || made->isFrozen() || made->isLocked() || made->VPDFLT());
    EXPECT_EQ(made->color(), OdCmColor::fromIndex(7));
    EXPECT_EQ(made->linetypeObjectId(), m_drawing->getLinetypeContinuousId());
}

TEST_F(NewLayers, HaveAllPropertiesOfTheSelectedOne)
{
    {
        const auto other = m_drawing.edited("Locked");
        other->setIsOff(true);
        other->setIsFrozen(true);
        other->setIsPlottable(false);
        other->setVPDFLT(true);
        other->setColor(OdCmColor::fromRgb(1, 2, 3));
        other->setLinetypeObjectId(m_drawing.linetype("DASHED"));
        other->setLineWeight(35);
        other->setPlotStyleName(QStringLiteral("Thin"));
        other->setDescription(QStringLiteral("of stone"));
        other->setTransparency(OdDbLayerTableRecord::transparencyFromPercent(30));
    }
    m_drawing.override_("Locked", 0xA2);
    m_drawing.override_("Locked", 0xB2);
    make(NewLayerKind::Plain, "Locked");
    LayerState wanted = m_drawing.layer("Locked")->state();
    wanted.name = QStringLiteral("Layer1");
    EXPECT_EQ(m_drawing.layer("Layer1")->state(), wanted);

    // What is saved and read again is the same.
    const auto again = readDrawing(drawingBytes(*m_drawing), QStringLiteral("again.dxf"));
    const LayerState& read = layer_drawing::read(*again, "Layer1")->state();
    EXPECT_TRUE(read.off && read.frozen && read.locked && !read.plottable);
    EXPECT_EQ(read.color, OdCmColor::fromRgb(1, 2, 3));
    EXPECT_EQ(read.description.toStdString(), "of stone");
    EXPECT_EQ(read.transparency, wanted.transparency);
    EXPECT_EQ(read.overrides.size(), 2u);
}

TEST_F(NewLayers, BelongToTheDrawingThoughTheSelectedOneIsOfAReference)
{
    m_drawing.edited("x|Far")->setColor(OdCmColor::fromIndex(4));
    make(NewLayerKind::Plain, "x|Far");
    const auto made = m_drawing.layer("Layer1");
    EXPECT_FALSE(made->isDependent());
    EXPECT_EQ(made->color(), OdCmColor::fromIndex(4));
    EXPECT_TRUE(renameLayer(m_drawing.id("Layer1"), QStringLiteral("Near")).changed);
}

TEST_F(NewLayers, FrozenInNewViewportsAreNotFrozenInThoseThatAreThere)
{
    m_drawing.enterSheet();
    make(NewLayerKind::FrozenInNewViewports);
    EXPECT_TRUE(m_drawing.layer("Layer1")->VPDFLT());
    EXPECT_FALSE(m_drawing.isFrozenIn(0xA2, "Layer1"));
}

TEST_F(NewLayers, FrozenInAllViewportsAreFrozenInEveryViewportOfEveryLayout)
{
    m_drawing.enterSheet();
    make(NewLayerKind::FrozenInAllViewports);
    EXPECT_TRUE(m_drawing.layer("Layer1")->VPDFLT());
    for (const quint64 viewport : {0xA1, 0xA2, 0xA3, 0xB1, 0xB2, 0xB3})
        EXPECT_TRUE(m_drawing.isFrozenIn(viewport, "Layer1")) << viewport;
}

TEST_F(NewLayers, FrozenInAllViewportsHaveTheFlagOnlyWhileModelSpaceIsCurrent)
{
    make(NewLayerKind::FrozenInAllViewports);
    EXPECT_TRUE(m_drawing.layer("Layer1")->VPDFLT());
    for (const quint64 viewport : {0xA1, 0xA2, 0xA3, 0xB1, 0xB2, 0xB3})
        EXPECT_FALSE(m_drawing.isFrozenIn(viewport, "Layer1")) << viewport;
}

TEST_F(NewLayers, AreToldOfOnceTheyAreInTheTableAndBeforeTheyAreFrozenInViewports)
{
    m_drawing.enterSheet();
    std::vector<OdDbObjectId> told;
    bool wasInTable = false;
    bool wasFrozen = true;
    makeNewLayer(*m_drawing, NewLayerKind::FrozenInAllViewports, {}, [&](OdDbObjectId id) {
        told.push_back(id);
        wasInTable = m_drawing.id("Layer1") == id;
        wasFrozen = m_drawing.isFrozenIn(0xA2, "Layer1");
    });
    EXPECT_EQ(told, m_drawing.ids({"Layer1"}));
    EXPECT_TRUE(wasInTable);
    EXPECT_FALSE(wasFrozen);
}

TEST_F(NewLayers, WaitToBeReviewedWhileLayersAreEvaluated)
{
    evaluate(1, 1);
    make();
    EXPECT_FALSE(m_drawing.layer("Layer1")->isReconciled());
    for (const char* other : {"Line", "Unused", "x|Far"})
        EXPECT_TRUE(m_drawing.layer(other)->isReconciled()) << other << " was there before";
    make(NewLayerKind::Plain, "Layer1");
    EXPECT_FALSE(m_drawing.layer("Layer2")->isReconciled());
}

TEST_F(NewLayers, AreNothingNewWhereEitherSwitchOfTheEvaluationIsOff)
{
    for (const auto& [evaluation, control] : {std::pair(0, 1), std::pair(2, 0)}) {
        evaluate(evaluation, control);
        make();
    }
    EXPECT_TRUE(m_drawing.layer("Layer1")->isReconciled());
    EXPECT_TRUE(m_drawing.layer("Layer2")->isReconciled());
    EXPECT_FALSE(m_drawing->layerTable().hasReconciledBaseline());
}

TEST_F(NewLayers, DoNotTakeAReviewOverFromTheLayerTheyAreLike)
{
    evaluate(1, 1);
    m_drawing.edited("Line")->setIsReconciled(true);
    make(NewLayerKind::Plain, "Line");
    EXPECT_FALSE(m_drawing.layer("Layer1")->isReconciled());
}
