#include "LayerStatesFixture.h"
#include "database/store/HeaderVariables.h"

namespace {

using enum LayerStateMask::Bit;

class LayerStateRestoring : public LayerStatesFixture
{
protected:
    /// Changes every property of a layer.
    void change(const char* name)
    {
        const auto record = write(name);
        record->setIsOff(true);
        record->setIsFrozen(true);
        record->setIsLocked(true);
        record->setIsPlottable(false);
        record->setVPDFLT(true);
        record->setColor(OdCmColor::fromRgb(10, 20, 30));
        record->setLinetypeObjectId(linetype("DASHED"));
        record->setLineWeight(50);
        record->setTransparency(33554559);
    }
    void enter(quint64 viewportHandle)
    {
        m_drawing->setCTAB(QStringLiteral("Sheet A"));
        m_drawing->setActiveViewport(viewport(viewportHandle));
    }
    /// A drawing whose layers have plot styles by name.
    void usePlotStyles()
    {
        const OdDbObjectId styles = m_drawing->createDictionary(
            m_drawing->getNamedObjectsDictionaryId(), QStringLiteral("ACAD_PLOTSTYLENAME"));
        for (const char* name : {"Normal", "Thin"})
            m_drawing->createXrecord(styles, QString::fromLatin1(name));
        m_drawing->setHeaderVariable(QStringLiteral("$PSTYLEMODE"), 290, QStringLiteral("0"));
        for (const char* name : {"0", "Walls", "Roof", "Floor"})
            write(name)->setPlotStyleName(QStringLiteral("Normal"));
    }
};

TEST_F(LayerStateRestoring, BringsEverythingBack)
{
    m_states.add(m_plan, {});
    const LayerLook before = LayerLook::of(*m_drawing);
    change("Roof");
    change("Floor");
    expectUndoable([&] { restore(m_plan); });
    EXPECT_TRUE(LayerLook::of(*m_drawing).layers == before.layers);
    EXPECT_TRUE(isSame(m_plan));
}

TEST_F(LayerStateRestoring, BringsBackWhatTheMaskNamesAndNothingElse)
{
    m_states.add(m_plan, {});
    const LayerState saved = read("Roof")->state();
    change("Roof");
    const LayerState changed = read("Roof")->state();
    struct Part
    {
        int bit;
        std::function<void(LayerState&)> bringBack;
    };
    const Part parts[] = {
        {kOn, [&](LayerState& s) { s.off = saved.off; }},
        {kFrozen, [&](LayerState& s) { s.frozen = saved.frozen; }},
        {kLocked, [&](LayerState& s) { s.locked = saved.locked; }},
        {kPlot, [&](LayerState& s) { s.plottable = saved.plottable; }},
        {kNewViewportFrozen,
         [&](LayerState& s) { s.frozenInNewViewports = saved.frozenInNewViewports; }},
        {kColor, [&](LayerState& s) { s.color = saved.color; }},
        {kLinetype, [&](LayerState& s) { s.linetype = saved.linetype; }},
        {kLineWeight, [&](LayerState& s) { s.lineWeight = saved.lineWeight; }},
        {kTransparency, [&](LayerState& s) { s.transparency = saved.transparency; }},
        {kPlotStyle, [](LayerState&) {}},
        {kViewportFrozen, [](LayerState&) {}},
    };
    for (const Part& part : parts) {
        LayerState expected = changed;
        part.bringBack(expected);
        m_drawing->startUndoRecord();
        restore(m_plan, part.bit);
        EXPECT_TRUE(read("Roof")->state() == expected) << "bit " << part.bit;
        m_drawing->undo();
    }
}

TEST_F(LayerStateRestoring, BringsTrueAndBookColorsBack)
{
    write("Roof")->setColor(OdCmColor::fromRgb(1, 2, 3));
    write("Floor")->setColor(OdCmColor::fromRgb(4, 5, 6, QStringLiteral("BOOK$4-5-6")));
    m_states.add(m_plan, {});
    write("Roof")->setColor(OdCmColor::fromIndex(5));
    write("Floor")->setColor(OdCmColor::fromRgb(4, 5, 6));
    EXPECT_FALSE(isSame(m_plan));
    restore(m_plan);
    EXPECT_EQ(read("Roof")->color(), OdCmColor::fromRgb(1, 2, 3));
    EXPECT_EQ(read("Floor")->color().bookName(), QStringLiteral("BOOK$4-5-6"));
    EXPECT_TRUE(isSame(m_plan));
}

TEST_F(LayerStateRestoring, NeverFreezesTheCurrentLayer)
{
    write("Roof")->setIsFrozen(true);
    m_states.add(m_plan, {});
    write("Roof")->setIsFrozen(false);
    m_drawing->setCLAYER(layer("Roof"));
    write("Walls")->setIsOff(true);
    expectUndoable([&] { restore(m_plan); });
    EXPECT_FALSE(read("Roof")->isFrozen());
    EXPECT_FALSE(read("Walls")->isOff()) << "the others follow";
    EXPECT_EQ(m_drawing->getCLAYER(), layer("Roof")) << "and the current layer stays current";
}

TEST_F(LayerStateRestoring, ThawsTheCurrentLayer)
{
    m_drawing->setCLAYER(layer("Roof"));
    m_states.add(m_plan, {});
    write("Roof")->setIsFrozen(true);
    restore(m_plan, kFrozen);
    EXPECT_FALSE(read("Roof")->isFrozen());
}

TEST_F(LayerStateRestoring, LeavesLayersAloneThatTheStateDoesNotHave)
{
    m_states.add(m_plan, {});
    m_drawing->layerTable().add(QStringLiteral("New"));
    restore(m_plan);
    EXPECT_FALSE(read("New")->isOff());
}

TEST_F(LayerStateRestoring, TurnsLayersOffThatTheStateDoesNotHaveWhenAsked)
{
    m_states.add(m_plan, {});
    m_drawing->layerTable().add(QStringLiteral("New"));
    m_drawing->layerTable().add(QStringLiteral("Newer"));
    m_drawing->layerTable().add(QStringLiteral("*RESERVED"));
    m_drawing->setCLAYER(layer("Newer"));
    expectUndoable([&] { restore(m_plan, kAll, true); });
    EXPECT_TRUE(read("New")->isOff());
    EXPECT_FALSE(read("Newer")->isOff()) << "nobody wants to draw on a layer that cannot be seen";
    EXPECT_FALSE(read("*RESERVED")->isOff());
    EXPECT_FALSE(read("Roof")->isOff());
}

TEST_F(LayerStateRestoring, PassesOverLayersThatAreGone)
{
    m_states.add(m_plan, {});
    write("Walls")->setIsOff(true);
    write("Floor")->erase();
    restore(m_plan);
    EXPECT_FALSE(read("Walls")->isOff());
    EXPECT_EQ(m_drawing->audit(), QStringList());
}

TEST_F(LayerStateRestoring, FindsLayersAndLinetypesByNameToo)
{
    store(m_plan, {{91, "2047"}, {8, "WALLS"}, {90, "9"}, {6, "continuous"}});
    restore(m_plan);
    EXPECT_TRUE(read("Walls")->isOff());
    EXPECT_EQ(read("Walls")->linetypeObjectId(), linetype("Continuous"));
}

TEST_F(LayerStateRestoring, LeavesWhatAStateCannotSay)
{
    store(m_plan,
          {{91, "2047"},
           {330, "31"},
           {90, "what"},
           {62, "999"},
           {370, "40000"},
           {331, "FFFFFF"},
           {330, "0"},
           {90, "1"},
           {330, "A1"},
           {90, "1"},
           {8, ""},
           {90, "1"}});
    const LayerLook before = LayerLook::of(*m_drawing);
    restore(m_plan, kAll);
    EXPECT_TRUE(LayerLook::of(*m_drawing).layers == before.layers);
}

TEST_F(LayerStateRestoring, FreezesAndThawsInTheActiveViewport)
{
    enter(DrawingText::kFirstViewport); // it freezes Walls
    m_states.add(m_plan, {});
    enter(DrawingText::kSecondViewport);
    freezeIn(DrawingText::kSecondViewport, "Roof");
    expectUndoable([&] { restore(m_plan, kViewportFrozen); });
    EXPECT_TRUE(isFrozenIn(DrawingText::kSecondViewport, "Walls"));
    EXPECT_FALSE(isFrozenIn(DrawingText::kSecondViewport, "Roof"));
    EXPECT_FALSE(isFrozenIn(DrawingText::kOverallViewport, "Walls"));
}

TEST_F(LayerStateRestoring, KeepsOffAndFrozenApartFromFrozenInTheViewport)
{
    write("Roof")->setIsOff(true);
    write("Floor")->setIsFrozen(true);
    enter(DrawingText::kSecondViewport);
    m_states.add(m_plan, {});
    write("Roof")->setIsOff(false);
    write("Floor")->setIsFrozen(false);
    restore(m_plan);
    EXPECT_TRUE(read("Roof")->isOff());
    EXPECT_TRUE(read("Floor")->isFrozen());
    EXPECT_FALSE(isFrozenIn(DrawingText::kSecondViewport, "Roof"));
    EXPECT_FALSE(isFrozenIn(DrawingText::kSecondViewport, "Floor"));
}

TEST_F(LayerStateRestoring, LeavesViewportsAloneInModelSpace)
{
    m_states.add(m_plan, {});
    restore(m_plan);
    EXPECT_TRUE(isFrozenIn(DrawingText::kFirstViewport, "Walls"));
}

TEST_F(LayerStateRestoring, MakesOverridesInTheActiveViewportAndTouchesNothingElse)
{
    change("Roof");
    write("Floor")->setIsFrozen(true);
    m_states.add(m_plan, {});
    for (const char* name : {"Roof", "Floor"}) {
        const auto record = write(name);
        record->setIsOff(false);
        record->setIsFrozen(false);
        record->setIsLocked(false);
        record->setColor(OdCmColor::fromIndex(2));
        record->setLinetypeObjectId(linetype("Continuous"));
        record->setLineWeight(13);
        record->setTransparency(0);
    }
    enter(DrawingText::kSecondViewport);
    const LayerState roof = read("Roof")->state();
    expectUndoable([&] { restore(m_plan, kAll, false, true); });

    const OdDbObjectId here = viewport(DrawingText::kSecondViewport);
    EXPECT_EQ(read("Roof")->color(here), OdCmColor::fromRgb(10, 20, 30));
    EXPECT_EQ(read("Roof")->linetypeObjectId(here), linetype("DASHED"));
    EXPECT_EQ(read("Roof")->lineWeight(here), 50);
    EXPECT_EQ(read("Roof")->transparency(here), 33554559u);
    EXPECT_TRUE(isFrozenIn(DrawingText::kSecondViewport, "Roof")) << "it was off";
    EXPECT_TRUE(isFrozenIn(DrawingText::kSecondViewport, "Floor")) << "it was frozen";
    EXPECT_FALSE(isFrozenIn(DrawingText::kSecondViewport, "Walls"));
    EXPECT_FALSE(read("Walls")->hasOverrides(here)) << "it looks as it was saved";
    LayerState own = read("Roof")->state();
    own.overrides.clear();
    EXPECT_TRUE(own == roof);
    EXPECT_FALSE(read("Roof")->hasOverrides(viewport(DrawingText::kFirstViewport)));
}

TEST_F(LayerStateRestoring, TakesAnOverrideAwayThatTheSavedValueDoesNotNeed)
{
    m_states.add(m_plan, {});
    enter(DrawingText::kSecondViewport);
    write("Roof")->setColor(OdCmColor::fromIndex(1), viewport(DrawingText::kSecondViewport));
    write("Roof")->setLineWeight(30, viewport(DrawingText::kSecondViewport));
    expectUndoable([&] { restore(m_plan, kColor, false, true); });
    const OdDbObjectId here = viewport(DrawingText::kSecondViewport);
    EXPECT_EQ(read("Roof")->color(here), read("Roof")->color());
    EXPECT_EQ(read("Roof")->lineWeight(here), 30) << "the mask does not name it";
}

TEST_F(LayerStateRestoring, FreezesUnknownLayersInTheViewportWhenItMakesOverrides)
{
    m_states.add(m_plan, {});
    m_drawing->layerTable().add(QStringLiteral("New"));
    enter(DrawingText::kSecondViewport);
    expectUndoable([&] { restore(m_plan, kAll, true, true); });
    EXPECT_TRUE(isFrozenIn(DrawingText::kSecondViewport, "New"));
    EXPECT_FALSE(read("New")->isOff());
}

TEST_F(LayerStateRestoring, RefusesOverridesWhereThereIsNoViewport)
{
    m_states.add(m_plan, {});
    change("Roof");
    const LayerLook before = LayerLook::of(*m_drawing);
    EXPECT_EQ(failureOf([&] { restore(m_plan, kAll, true, true); }), OdResult::NotApplicable);
    EXPECT_TRUE(LayerLook::of(*m_drawing) == before);
}

TEST_F(LayerStateRestoring, MarksTheStateThatWasRestoredLast)
{
    const QString other = QStringLiteral("Other");
    m_states.add(m_plan, {});
    m_states.add(other, {});
    expectUndoable([&] { restore(m_plan, kOn); });
    EXPECT_EQ((*groups(m_plan).begin()).value, "67583");
    EXPECT_EQ((*groups(other).begin()).value, "2047");
    expectUndoable([&] { restore(other, kOn); });
    EXPECT_EQ((*groups(m_plan).begin()).value, "2047");
    EXPECT_EQ((*groups(other).begin()).value, "67583");
    EXPECT_EQ(m_states.restoreMask(other), 2047) << "the mark is no property to restore";
}

TEST_F(LayerStateRestoring, BringsPlotStylesBackWhereLayersHaveThem)
{
    usePlotStyles();
    m_states.add(m_plan, {});
    EXPECT_EQ(m_states.layers(m_plan).front().plotStyleName, QStringLiteral("Normal"));
    write("Roof")->setPlotStyleName(QStringLiteral("Thin"));
    EXPECT_FALSE(isSame(m_plan));
    expectUndoable([&] { restore(m_plan, kPlotStyle); });
    EXPECT_EQ(read("Roof")->plotStyleName(), QStringLiteral("Normal"));
    EXPECT_TRUE(isSame(m_plan));

    enter(DrawingText::kSecondViewport);
    write("Roof")->setPlotStyleName(QStringLiteral("Thin"));
    restore(m_plan, kPlotStyle, false, true);
    EXPECT_EQ(read("Roof")->plotStyleName(), QStringLiteral("Thin"));
    EXPECT_EQ(read("Roof")->plotStyleName(viewport(DrawingText::kSecondViewport)),
              QStringLiteral("Normal"));
}

TEST_F(LayerStateRestoring, LeavesThePlotStyleWhereTheSavedOneIsGone)
{
    usePlotStyles();
    store(m_plan, {{91, "2047"}, {330, "31"}, {1, "Gone"}});
    const LayerLook before = LayerLook::of(*m_drawing);
    restore(m_plan, kPlotStyle);
    EXPECT_TRUE(LayerLook::of(*m_drawing).layers == before.layers);
}

} // namespace
