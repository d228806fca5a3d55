#include "OperationDrawing.h"
#include "database/objects/OdDbEntity.h"
#include "layermanager/layers/operations/LayerActions.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* kNotCurrent =
    "The following Layers Cannot be made current.\n .Xref dependent layers\n .Frozen layers";
constexpr quint64 kViewports[] = {0xA1, 0xA2, 0xA3, 0xB1, 0xB2, 0xB3};

class LayerActions : public testing::Test
{
protected:
    LayerOutcome setCurrent(const char* layer)
    {
        return setCurrentLayer(*m_drawing, m_drawing.id(layer));
    }
    LayerOutcome isolate(std::initializer_list<const char*> selected)
    {
        return isolateLayers(*m_drawing, m_drawing.ids(selected),
                             m_drawing->layerTable().records());
    }
    LayerOutcome freeze(bool frozen, std::initializer_list<const char*> layers)
    {
        return freezeInAllViewports(*m_drawing, m_drawing.ids(layers), frozen);
    }
    QStringList layersThatAreOn() const
    {
        QStringList names;
        for (const OdDbObjectId id : m_drawing->layerTable().records()) {
            const auto layer = id.safeOpenObject<OdDbLayerTableRecord>();
            if (!layer->isOff())
                names << layer->getName();
        }
        return names;
    }

    OperationDrawing m_drawing;
};

} // namespace

TEST_F(LayerActions, MakeThawedLayersOfTheDrawingCurrentWhateverElseTheyAre)
{
    for (const char* layer : {"0", "Defpoints", "Locked", "Off", "Line", "Unused"}) {
        SCOPED_TRACE(layer);
        EXPECT_EQ(changedNames(m_drawing.changing([&] { return setCurrent(layer); })),
                  texts({layer}));
        EXPECT_EQ(m_drawing->getCLAYER(), m_drawing.id(layer));
        m_drawing.idle([&] { return setCurrent(layer); });
    }
}

TEST_F(LayerActions, RefuseToMakeFrozenAndDependentLayersCurrent)
{
    for (const char* layer : {"Frozen", "x|Far"}) {
        SCOPED_TRACE(layer);
        const LayerOutcome outcome = m_drawing.idle([&] { return setCurrent(layer); });
        EXPECT_EQ(outcome.message.toStdString(), kNotCurrent);
        EXPECT_EQ(refusedNames(outcome), texts({layer}));
    }
    m_drawing.idle([&] { return setCurrentLayer(*m_drawing, {}); });
}

TEST_F(LayerActions, IsolateBySwitchingAndThenMakeTheFirstSelectedLayerCurrent)
{
    const LayerOutcome outcome = m_drawing.changing([&] { return isolate({"Off", "Line"}); });
    EXPECT_EQ(layersThatAreOn(), texts({"Off", "Line"}));
    EXPECT_EQ(m_drawing->getCLAYER(), m_drawing.id("Off"));
    EXPECT_EQ(outcome.message, QString());
    EXPECT_EQ(outcome.changed.size(), m_drawing->layerTable().records().size() - 1)
        << "all but the line's layer, which was on";
}

TEST_F(LayerActions, IsolateLayersThatCannotBeCurrentAndSaySo)
{
    const LayerOutcome outcome = m_drawing.changing([&] { return isolate({"Frozen"}); });
    EXPECT_EQ(layersThatAreOn(), texts({"Frozen"}));
    EXPECT_TRUE(m_drawing.layer("Frozen")->isFrozen());
    EXPECT_EQ(m_drawing->getCLAYER(), m_drawing.id("Current"));
    EXPECT_EQ(outcome.message.toStdString(), kNotCurrent);
}

TEST_F(LayerActions, IsolateAmongTheListedLayersOnly)
{
    m_drawing.changing([&] {
        return isolateLayers(*m_drawing, m_drawing.ids({"Line"}),
                             m_drawing.ids({"Line", "Unused"}));
    });
    EXPECT_TRUE(m_drawing.layer("Unused")->isOff());
    EXPECT_FALSE(m_drawing.layer("Spare")->isOff());
}

TEST_F(LayerActions, IsolateNothingWithoutASelection)
{
    m_drawing.idle([&] { return isolate({}); });
}

TEST_F(LayerActions, ReconcileTheLayersThatWaitForAReview)
{
    m_drawing.edited("0")->setIsReconciled(true);
    const LayerOutcome outcome = m_drawing.changing([&] {
        return reconcileLayers(*m_drawing, m_drawing.ids({"0", "Line", "x|Far"}));
    });
    EXPECT_EQ(changedNames(outcome), texts({"Line", "x|Far"}));
    EXPECT_TRUE(m_drawing.layer("Line")->isReconciled());
    EXPECT_FALSE(m_drawing.layer("Unused")->isReconciled());
    m_drawing.idle([&] { return reconcileLayers(*m_drawing, m_drawing.ids({"Line"})); });
}

TEST_F(LayerActions, ReconcileNothingInADrawingThatWasNeverReviewed)
{
    m_drawing.idle([&] { return reconcileLayers(*m_drawing, m_drawing.ids({"Line"})); });
    EXPECT_TRUE(m_drawing.layer("Unused")->isReconciled())
        << "the others do not become new by that";
}

TEST_F(LayerActions, FreezeAndThawInEveryViewportOfEveryLayout)
{
    m_drawing.enterSheet();
    const auto both = {"Line", "Current"};
    EXPECT_EQ(changedNames(m_drawing.changing([&] { return freeze(true, both); })),
              texts({"Line", "Current"}));
    for (const quint64 viewport : kViewports) {
        EXPECT_TRUE(m_drawing.isFrozenIn(viewport, "Line")) << viewport;
        EXPECT_TRUE(m_drawing.isFrozenIn(viewport, "Current")) << viewport;
        EXPECT_FALSE(m_drawing.isFrozenIn(viewport, "Unused")) << viewport;
    }
    EXPECT_FALSE(m_drawing.layer("Line")->isFrozen());
    m_drawing.idle([&] { return freeze(true, both); });
    m_drawing.changing([&] { return freeze(false, {"Line"}); });
    for (const quint64 viewport : kViewports) {
        EXPECT_FALSE(m_drawing.isFrozenIn(viewport, "Line")) << viewport;
        EXPECT_TRUE(m_drawing.isFrozenIn(viewport, "Current")) << viewport;
    }
}

TEST_F(LayerActions, ThawInTheViewportsThatHaveALayerFrozen)
{
    m_drawing.enterSheet();
    ASSERT_TRUE(m_drawing.isFrozenIn(0xA2, "Defpoints")) << "as the drawing has it";
    EXPECT_EQ(changedNames(m_drawing.changing([&] {
                  return freeze(false, {"Unused", "Defpoints", "Defpoints"});
              })),
              texts({"Defpoints"}));
    EXPECT_FALSE(m_drawing.isFrozenIn(0xA2, "Defpoints"));
}

TEST_F(LayerActions, FreezeInViewportsOnlyWhileALayoutIsCurrent)
{
    m_drawing.idle([&] { return freeze(true, {"Line"}); });
    m_drawing.idle([&] { return freeze(false, {"Defpoints"}); });
}
