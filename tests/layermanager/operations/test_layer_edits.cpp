#include "database/objects/OdDbEntity.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layers/operations/LayerEdits.h"
#include "support/FakeHost.h"

#include <gtest/gtest.h>

using enum LayerColumn;

namespace {

using layer_drawing::id;
using layer_drawing::read;
using layer_drawing::write;

class SingleLayerEdits : public testing::Test
{
protected:
    SingleLayerEdits()
        : m_database(
            m_host.open(layer_drawing::make({{"Walls"}, {"Doors"}, {"Cold", 1}, {"x|Far", 16}})))
    { }
    LayerCellContext context() const { return LayerCellContext::of(m_database); }
    LayerEditOutcome give(const char* layer, LayerColumn column, const LayerValue& value) const
    {
        return giveLayerValue(id(m_database, layer), column, value, context());
    }
    OdDbObjectId linetype(const char* name) const
    {
        return m_database.table(OdDbTableKind::Linetype).getAt(QString::fromLatin1(name));
    }

    FakeHost m_host;
    OdDbDatabase& m_database;
};

void expectChanged(const LayerEditOutcome& outcome)
{
    EXPECT_TRUE(outcome.changed);
    EXPECT_EQ("", outcome.refusal.toStdString());
}

void expectAsBefore(const LayerEditOutcome& outcome)
{
    EXPECT_FALSE(outcome.changed);
    EXPECT_EQ("", outcome.refusal.toStdString());
}

void expectRefused(const LayerEditOutcome& outcome, const char* why)
{
    EXPECT_FALSE(outcome.changed);
    EXPECT_EQ(why, outcome.refusal.toStdString());
}

} // namespace

TEST_F(SingleLayerEdits, GiveEveryKindOfValueOnce)
{
    const std::pair<LayerColumn, LayerValue> values[] = {
        {On, true},
        {Freeze, true},
        {Locked, true},
        {Plot, false},
        {NewVpFreeze, true},
        {Color, OdCmColor::fromIndex(3)},
        {Linetype, linetype("DASHED")},
        {Lineweight, qint16(50)},
    };
    for (const auto& [column, value] : values) {
        expectChanged(give("Walls", column, value));
        expectAsBefore(give("Walls", column, value));
    }
    const auto walls = read(m_database, "Walls");
    EXPECT_TRUE(walls->isOff() && walls->isFrozen() && walls->isLocked() && walls->VPDFLT());
    EXPECT_FALSE(walls->isPlottable());
    EXPECT_EQ(OdCmColor::fromIndex(3), walls->color());
    EXPECT_EQ(linetype("DASHED"), walls->linetypeObjectId());
    EXPECT_EQ(50, walls->lineWeight());
}

TEST_F(SingleLayerEdits, RefuseToFreezeTheCurrentLayerUnlessItIsFrozenAlready)
{
    expectRefused(give("0", Freeze, true),
                  "Cannot freeze current layer. Specify a different layer");
    EXPECT_FALSE(read(m_database, "0")->isFrozen());
    m_database.setCLAYER(id(m_database, "Cold"));
    expectAsBefore(give("Cold", Freeze, true));
    expectChanged(give("Cold", Freeze, false));
}

TEST_F(SingleLayerEdits, TurnTheCurrentLayerOffBecauseThatWasAskedBefore)
{
    expectChanged(give("0", On, true));
    EXPECT_TRUE(read(m_database, "0")->isOff());
}

TEST_F(SingleLayerEdits, OverrideInTheActiveViewportOnly)
{
    expectAsBefore(give("Walls", VpColor, OdCmColor::fromIndex(3))); // model space is current
    m_database.setTILEMODE(false);
    const OdDbObjectId viewport = m_database.activeViewportId();
    expectChanged(give("Walls", VpColor, OdCmColor::fromIndex(3)));
    expectChanged(give("Walls", VpLinetype, linetype("DASHED")));
    expectChanged(give("Walls", VpLineweight, qint16(25)));
    expectAsBefore(give("Walls", VpLineweight, qint16(25)));
    const auto walls = read(m_database, "Walls");
    EXPECT_EQ(OdCmColor::fromIndex(3), walls->color(viewport));
    EXPECT_EQ(OdCmColor::fromIndex(7), walls->color());
    EXPECT_EQ(linetype("DASHED"), walls->linetypeObjectId(viewport));
    EXPECT_EQ(25, walls->lineWeight(viewport));
    EXPECT_FALSE(read(m_database, "Doors")->hasAnyOverrides());
}

TEST_F(SingleLayerEdits, TellWhatTheDrawingRefuses)
{
    expectRefused(give("Walls", PlotStyle, QStringLiteral("Normal")),
                  "In this drawing a layer's plot style follows its color.");
    m_database.setTILEMODE(false);
    expectRefused(give("Walls", VpPlotStyle, QStringLiteral("Normal")),
                  "In this drawing a layer's plot style follows its color.");
    m_database.setTILEMODE(true);
    expectRefused(giveLayerValue({}, Color, OdCmColor::fromIndex(3), context()),
                  giveLayerValue({}, On, true, context()).refusal.toUtf8().constData());
    EXPECT_NE("", giveLayerValue({}, On, true, context()).refusal.toStdString());
}

TEST_F(SingleLayerEdits, AreOneUndoStepTogetherWhereOneIsOpen)
{
    m_database.startUndoRecord();
    give("Walls", Locked, true);
    renameLayer(id(m_database, "Walls"), QStringLiteral("Mauern"));
    m_database.endUndoRecord();
    ASSERT_TRUE(m_database.undo());
    EXPECT_FALSE(read(m_database, "Walls")->isLocked());
    EXPECT_FALSE(m_database.hasUndo());
}

TEST_F(SingleLayerEdits, RenameByTheRulesOfTheNameCell)
{
    const char* const cannot = "The selected layer cannot be renamed.\n\n The following layers "
                               "cannot be renamed: \n 1. Layer 0 \n 2. Xref-dependent Layers";
    expectRefused(renameLayer(id(m_database, "0"), QStringLiteral("Null")), cannot);
    expectRefused(renameLayer(id(m_database, "x|Far"), QStringLiteral("Near")), cannot);
    expectRefused(renameLayer(id(m_database, "Walls"), QStringLiteral("DOORS")),
                  "There is a layer \"DOORS\" already.");
    expectAsBefore(renameLayer(id(m_database, "Walls"), QStringLiteral("Walls")));
    expectChanged(renameLayer(id(m_database, "Walls"), QStringLiteral("WALLS")));
    expectChanged(renameLayer(id(m_database, "Walls"), QStringLiteral("It's [new]")));
    EXPECT_TRUE(m_database.layerTable().has(QStringLiteral("it's [new]")));
    EXPECT_EQ(QStringList(), m_database.audit());
}

TEST_F(SingleLayerEdits, RefuseThirteenCharactersAndLongNames)
{
    for (const char16_t c : std::u16string_view(u"<>/\":;?*|,=`\\")) {
        EXPECT_EQ("The following characters are not valid in Layer Names:\n<>/\":;?*|,=`\\",
                  layerNameRefusal(QStringLiteral("a") + QChar(c)).toStdString());
    }
    EXPECT_EQ("", layerNameRefusal(QString(254, QLatin1Char('a'))).toStdString());
    EXPECT_EQ("The name cannot be longer than 255 characters",
              layerNameRefusal(QString(255, QLatin1Char('a'))).toStdString());
    EXPECT_EQ("A name is needed.", layerNameRefusal({}).toStdString());
    EXPECT_EQ("A layer's name holds no control characters.",
              layerNameRefusal(QStringLiteral("a\nb")).toStdString());
    for (const char* good : {"a'b", "a[b]", "a#b", "a@b", "a.b~", "a{b}", "a b", "Wände"})
        EXPECT_EQ("", layerNameRefusal(QString::fromUtf8(good)).toStdString()) << good;
}

TEST_F(SingleLayerEdits, MakeThawedLayersOfTheDrawingCurrent)
{
    const char* const cannot =
        "The following Layers Cannot be made current.\n .Xref dependent layers\n .Frozen layers";
    expectRefused(makeLayerCurrent(id(m_database, "Cold")), cannot);
    expectRefused(makeLayerCurrent(id(m_database, "x|Far")), cannot);
    expectAsBefore(makeLayerCurrent(id(m_database, "0")));
    expectChanged(makeLayerCurrent(id(m_database, "Walls")));
    EXPECT_EQ(id(m_database, "Walls"), m_database.getCLAYER());
    EXPECT_EQ("Multiple layers cannot be made current. please select a single layer.",
              severalCurrentLayersText().toStdString());
}

TEST_F(SingleLayerEdits, DescribeAnyLayerInAnyWords)
{
    expectChanged(describeLayer(id(m_database, "x|Far"), QStringLiteral("a*b, \"c\"")));
    expectAsBefore(describeLayer(id(m_database, "x|Far"), QStringLiteral("a*b, \"c\"")));
    expectChanged(describeLayer(id(m_database, "x|Far"), QString()));
}

TEST_F(SingleLayerEdits, FreezeInAViewportWhatIsNotFrozenThere)
{
    m_database.setTILEMODE(false);
    const OdDbObjectId viewport = m_database.activeViewportId();
    const std::vector<OdDbObjectId> layers{id(m_database, "Walls"), id(m_database, "Doors")};
    EXPECT_EQ(2u, freezeLayersInViewport(viewport, layers, true).size());
    EXPECT_EQ(0u, freezeLayersInViewport(viewport, layers, true).size());
    EXPECT_TRUE(viewport.safeOpenObject<OdDbViewport>()->isLayerFrozenInViewport(layers[1]));
    EXPECT_EQ(std::vector{layers[0]}, freezeLayersInViewport(viewport, {layers.data(), 1}, false));
    EXPECT_EQ(0u, freezeLayersInViewport({}, layers, true).size());
    EXPECT_EQ(0u, freezeLayersInViewport(layers[0], layers, true).size()) << "no viewport";
}

TEST_F(SingleLayerEdits, FreezeInAViewportNothingThatIsNoLayerOfItsDrawing)
{
    const OdDbDatabase& other = m_host.open(layer_drawing::make({{"Walls"}, {"Doors"}}));
    m_database.setTILEMODE(false);
    const OdDbObjectId erased = id(m_database, "Doors");
    write(m_database, "Doors")->erase();
    const std::vector<OdDbObjectId> layers{{}, linetype("DASHED"), erased, id(other, "Doors")};
    EXPECT_EQ(0u, freezeLayersInViewport(m_database.activeViewportId(), layers, true).size());
}

TEST_F(SingleLayerEdits, RefuseErasedLayersAndWhatIsNone)
{
    const OdDbObjectId erased = id(m_database, "Doors");
    write(m_database, "Doors")->erase();
    for (const OdDbObjectId none : {OdDbObjectId(), linetype("DASHED"), erased}) {
        for (const LayerEditOutcome& outcome :
             {giveLayerValue(none, Locked, true, context()), renameLayer(none, QStringLiteral("x")),
              describeLayer(none, QStringLiteral("x")), makeLayerCurrent(none)})
        {
            EXPECT_FALSE(outcome.changed);
            EXPECT_NE("", outcome.refusal.toStdString());
        }
        const std::vector<OdDbObjectId> layers{none};
        EXPECT_EQ(0u, markLayersReconciled(m_database, layers, false).size());
    }
    EXPECT_EQ(id(m_database, "0"), m_database.getCLAYER());
}

TEST_F(SingleLayerEdits, MarkNewLayersAndNoOthers)
{
    const std::vector<OdDbObjectId> layers{id(m_database, "Walls"), id(m_database, "Doors")};
    EXPECT_EQ(0u, markLayersReconciled(m_database, layers, true).size())
        << "nothing is new in a drawing that was never reviewed";
    EXPECT_FALSE(m_database.layerTable().hasReconciledBaseline());
    EXPECT_EQ(layers, markLayersReconciled(m_database, layers, false));
    for (const char* name : {"0", "Cold", "x|Far"})
        EXPECT_TRUE(read(m_database, name)->isReconciled()) << name;
    EXPECT_FALSE(read(m_database, "Doors")->isReconciled());
    EXPECT_EQ(layers, markLayersReconciled(m_database, layers, true));
    EXPECT_TRUE(read(m_database, "Doors")->isReconciled());
}
