#include "LayerStatesFixture.h"
#include "database/states/stored/LayerStateHead.h"

namespace {

using LayerStatesOf = LayerStatesFixture;
using LayerStateList = LayerStatesFixture;

TEST_F(LayerStatesOf, ADrawingWithoutAnyAreNone)
{
    EXPECT_TRUE(m_states.list().empty());
    EXPECT_FALSE(m_states.has(m_plan));
    EXPECT_EQ(failureOf([&] { m_states.save(m_plan, 1); }), OdResult::KeyNotFound);
    EXPECT_EQ(failureOf([&] { restore(m_plan); }), OdResult::KeyNotFound);
    EXPECT_EQ(failureOf([&] { m_states.remove(m_plan); }), OdResult::KeyNotFound);
    EXPECT_EQ(failureOf([&] { m_states.rename(m_plan, QStringLiteral("B")); }),
              OdResult::KeyNotFound);
    EXPECT_FALSE(
        m_drawing->extensionDictionary(m_drawing->getLayerTableId()).openObject<OdDbDictionary>())
        << "asking makes no dictionary";
}

TEST_F(LayerStatesOf, ADrawingAreAdded)
{
    expectUndoable([&] { m_states.add(m_plan, QStringLiteral("ground floor")); });
    EXPECT_EQ(m_states.list(),
              (std::vector<LayerStateSummary>{
                  {m_plan, QStringLiteral("ground floor"), false, true, false}}));
    EXPECT_EQ(m_states.restoreMask(m_plan), 2047);
    EXPECT_EQ(failureOf([&] { m_states.add(QStringLiteral("PLAN"), {}); }), OdResult::DuplicateKey);
    EXPECT_EQ(failureOf([&] { m_states.add({}, {}); }), OdResult::InvalidKey);
}

TEST_F(LayerStatesOf, ADrawingLieWhereOtherProgramsLookForThem)
{
    m_states.add(m_plan, {});
    const auto extension = m_drawing->extensionDictionary(m_drawing->getLayerTableId())
                               .safeOpenObject<OdDbDictionary>();
    const auto states =
        extension->getAt(QStringLiteral("ACAD_LAYERSTATES")).safeOpenObject<OdDbDictionary>();
    EXPECT_EQ(states->ownerId(), extension->objectId());
    EXPECT_FALSE(states->state().treatElementsAsHard);
    EXPECT_EQ(states->getAt(m_plan).safeOpenObject<OdDbXrecord>()->ownerId(), states->objectId());
}

TEST_F(LayerStatesOf, ADrawingHoldEveryPropertyOfEveryLayer)
{
    write("Walls")->setColor(OdCmColor::fromRgb(255, 127, 0));
    write("Walls")->setLineWeight(35);
    write("Walls")->setTransparency(33554559);
    write("Roof")->setIsOff(true);
    write("Roof")->setIsPlottable(false);
    write("Floor")->setIsFrozen(true);
    write("Floor")->setIsLocked(true);
    write("Floor")->setVPDFLT(true);
    write("Floor")->setColor(OdCmColor::fromRgb(255, 0, 0, QStringLiteral("BOOK$RED")));
    m_drawing->setCLAYER(layer("Walls"));
    m_states.add(m_plan, QStringLiteral("ducts only"));
    const GroupList expected = {
        {91, "2047"},        {301, "ducts only"}, {290, "0"},        {302, "Walls"}, // the head
        {330, "33"},         {90, "30"},          {62, "1"},         {370, "-3"}, // Floor
        {331, "22"},         {1, "Color_1"},      {440, "0"},        {92, "-1023475712"},
        {300, "BOOK$RED"}, //
        {330, "32"},         {90, "1"},           {62, "7"},         {370, "-3"}, // Roof
        {331, "22"},         {1, "Color_7"},      {440, "0"}, //
        {330, "31"},         {90, "8"},           {62, "30"},        {370, "35"}, // Walls
        {331, "23"},         {1, "Color_30"},     {440, "33554559"}, //
        {92, "-1023443200"}, //
        {330, "30"},         {90, "8"},           {62, "7"},         {370, "-3"}, // 0
        {331, "22"},         {1, "Color_7"},      {440, "0"}};
    EXPECT_TRUE(groups(m_plan) == expected);
}

TEST_F(LayerStatesOf, ALayoutSayWhichLayersItsActiveViewportFreezes)
{
    m_drawing->setCTAB(QStringLiteral("Sheet A"));
    m_drawing->setActiveViewport(viewport(DrawingText::kFirstViewport)); // it freezes Walls
    m_states.add(m_plan, {});
    EXPECT_TRUE(m_states.list().front().inLayout);
    for (const LayerInfoInLS& info : m_states.layers(m_plan))
        EXPECT_EQ(info.has(LayerInfoInLS::kFrozenInViewport), info.name == QStringLiteral("Walls"));
    EXPECT_TRUE(isSame(m_plan));
    m_drawing->setActiveViewport(viewport(DrawingText::kSecondViewport));
    EXPECT_FALSE(isSame(m_plan)) << "Walls is thawed there";
    m_drawing->startUndoRecord();
    m_states.save(m_plan, LayerStateMask::kAll & ~LayerStateMask::kViewportFrozen);
    m_drawing->setActiveViewport(viewport(DrawingText::kFirstViewport));
    EXPECT_TRUE(isSame(m_plan)) << "the mask does not name it";
    m_drawing->undo();
    m_drawing->setTILEMODE(true);
    EXPECT_TRUE(isSame(m_plan)) << "model space has no such thing";
}

TEST_F(LayerStatesOf, ADrawingAreSavedAnewAndKeepTheirDescription)
{
    m_states.add(m_plan, QStringLiteral("first"));
    write("Roof")->setIsOff(true);
    EXPECT_FALSE(isSame(m_plan));
    expectUndoable([&] { m_states.save(QStringLiteral("plan"), 3); });
    EXPECT_TRUE(isSame(m_plan));
    EXPECT_EQ(m_states.restoreMask(m_plan), 3);
    EXPECT_EQ(m_states.description(m_plan), QStringLiteral("first"));
}

TEST_F(LayerStatesOf, ADrawingKeepOtherBitsOfTheMaskWhenSaved)
{
    m_states.add(m_plan, {});
    restore(m_plan);
    m_states.save(m_plan, 0x40000 | 5);
    EXPECT_EQ((*groups(m_plan).begin()).value, "65541");
}

TEST_F(LayerStatesOf, ADrawingKeepUnknownGroupsOfTheHeadWhenSaved)
{
    store(m_plan, {{91, "34816"}, {70, "5"}, {301, "d"}, {330, "FFF"}, {90, "1"}});
    m_drawing->setCLAYER(layer("Roof"));
    m_drawing->setCTAB(QStringLiteral("Sheet A"));
    expectUndoable([&] { m_states.save(m_plan, 3); });
    const GroupList expected = {{91, "34819"}, {70, "5"}, {301, "d"}, {290, "1"}, {302, "Roof"}};
    const GroupList saved = groups(m_plan);
    auto group = saved.begin();
    GroupList head;
    for (qsizetype i = 0; i < expected.size(); ++i, ++group)
        head.append(*group);
    EXPECT_TRUE(head == expected);
    EXPECT_EQ(m_states.layers(m_plan).size(), 4u);
}

TEST_F(LayerStatesOf, ADrawingAreRenamedToAnyName)
{
    m_states.add(m_plan, {});
    m_states.add(QStringLiteral("Other"), {});
    const GroupList before = groups(m_plan);
    const QString odd = QStringLiteral("a<b>:*?/\\|\"=; ,` \u00e4\u4e2d");
    expectUndoable([&] { m_states.rename(m_plan, odd); });
    EXPECT_TRUE(groups(odd) == before);
    EXPECT_EQ(m_states.list().front().name, odd) << "the place in the list stays";
    expectUndoable([&] { m_states.rename(QStringLiteral("other"), QStringLiteral("OTHER")); });
    EXPECT_EQ(m_states.list().back().name, QStringLiteral("OTHER"));
    EXPECT_EQ(failureOf([&] { m_states.rename(odd, QStringLiteral("other")); }),
              OdResult::DuplicateKey);
    EXPECT_EQ(failureOf([&] { m_states.rename(odd, {}); }), OdResult::InvalidKey);
    EXPECT_EQ(m_states.list().size(), 2u);
}

TEST_F(LayerStatesOf, ADrawingAreDeletedWithWhatHangsOnThem)
{
    m_states.add(m_plan, {});
    const OdDbObjectId record = LayerStateDictionary(*m_drawing).state(m_plan)->objectId();
    const OdDbObjectId extension = m_drawing->createExtensionDictionary(record);
    const OdDbObjectId scale =
        m_drawing->createXrecord(extension, QStringLiteral("AcadLayerStateAnnoScale"));
    expectUndoable([&] { m_states.remove(QStringLiteral("PLAN")); });
    EXPECT_FALSE(m_states.has(m_plan));
    EXPECT_TRUE(record.isErased());
    EXPECT_TRUE(extension.isErased());
    EXPECT_TRUE(scale.isErased());
    EXPECT_TRUE(m_drawing->undo());
    EXPECT_FALSE(scale.isErased());
}

TEST_F(LayerStatesOf, ADrawingTakeAnotherDescription)
{
    m_states.add(m_plan, {});
    expectUndoable([&] { m_states.setDescription(m_plan, QStringLiteral("Gr\u00fcn\nzwei")); });
    EXPECT_EQ(m_states.description(m_plan), QStringLiteral("Gr\u00fcn\nzwei"));
}

TEST_F(LayerStatesOf, TheOldestKindHaveAMaskOnly)
{
    store(m_plan, {{91, "243"}, {330, "31"}, {90, "9"}, {62, "3"}});
    EXPECT_EQ(m_states.restoreMask(m_plan), 243);
    EXPECT_EQ(m_states.description(m_plan), QString());
    expectUndoable([&] { m_states.setDescription(m_plan, QStringLiteral("old")); });
    EXPECT_TRUE(groups(m_plan)
                == (GroupList{{91, "243"}, {301, "old"}, {330, "31"}, {90, "9"}, {62, "3"}}));
    restore(m_plan, LayerStateMask::kAll);
    EXPECT_TRUE(read("Walls")->isOff());
    EXPECT_EQ(read("Walls")->color(), OdCmColor::fromIndex(3));
    EXPECT_EQ(read("Walls")->linetypeObjectId(), linetype("DASHED")) << "not in the state";
}

TEST_F(LayerStateList, LeavesOutWhatProgramsKeepForThemselves)
{
    store(QStringLiteral("ACAD_VIEWS_view"), {{91, "512"}});
    store(QStringLiteral("_LAYISO_STATE"), {{91, "535"}});
    store(QStringLiteral("ARGON_LAYERP_25"), {{91, "1023"}});
    store(QStringLiteral("mine"), {{91, "34815"}});
    store(QStringLiteral("LMAN_state"), {{91, "2047"}});
    ASSERT_EQ(m_states.list().size(), 1u);
    EXPECT_EQ(m_states.list().front().name, QStringLiteral("LMAN_state"));
    EXPECT_EQ(failureOf([&] { m_states.add(QStringLiteral("_layiso_state"), {}); }),
              OdResult::DuplicateKey)
        << "they are there all the same";
}

TEST_F(LayerStateList, NamesThoseOfExternalReferencesWhenAsked)
{
    m_states.add(m_plan, {});
    LayerStateDictionary(*m_drawing)
        .open(OdDb::kForWrite)
        ->setAt(QStringLiteral("walls__night"), OdDbObjectId());
    ASSERT_EQ(m_states.list(true).size(), 2u);
    EXPECT_EQ(m_states.list(true).back(),
              (LayerStateSummary{QStringLiteral("walls__night"), {}, false, false, true}));
    EXPECT_EQ(m_states.list(false).size(), 1u);
    EXPECT_EQ(failureOf([&] { restore(QStringLiteral("walls__night")); }), OdResult::NotApplicable);
}

TEST_F(LayerStateList, ComparesWhatTheMaskNames)
{
    m_states.add(m_plan, {});
    struct Change
    {
        int bit;
        std::function<void(OdDbLayerTableRecord&)> make;
    };
    const Change changes[] = {
        {LayerStateMask::kOn, [](auto& l) { l.setIsOff(true); }},
        {LayerStateMask::kFrozen, [](auto& l) { l.setIsFrozen(true); }},
        {LayerStateMask::kLocked, [](auto& l) { l.setIsLocked(true); }},
        {LayerStateMask::kPlot, [](auto& l) { l.setIsPlottable(false); }},
        {LayerStateMask::kNewViewportFrozen, [](auto& l) { l.setVPDFLT(true); }},
        {LayerStateMask::kColor, [](auto& l) { l.setColor(OdCmColor::fromRgb(1, 2, 3)); }},
        {LayerStateMask::kLinetype, [&](auto& l) { l.setLinetypeObjectId(linetype("DASHED")); }},
        {LayerStateMask::kLineWeight, [](auto& l) { l.setLineWeight(13); }},
        {LayerStateMask::kTransparency, [](auto& l) { l.setTransparency(33554559); }},
    };
    for (const Change& change : changes) {
        m_drawing->startUndoRecord();
        change.make(*write("Roof"));
        EXPECT_FALSE(isSame(m_plan)) << "bit " << change.bit;
        LayerStateDictionary(*m_drawing)
            .state(m_plan, OdDb::kForWrite)
            ->setGroups(
                LayerStateHead::with(groups(m_plan), 91, QByteArray::number(2047 & ~change.bit)));
        EXPECT_TRUE(isSame(m_plan)) << "without bit " << change.bit;
        m_drawing->undo();
        EXPECT_TRUE(isSame(m_plan));
    }
}

TEST_F(LayerStateList, CallsAStateDifferentWhenLayersCame)
{
    m_states.add(m_plan, {});
    EXPECT_TRUE(isSame(m_plan));
    m_drawing->startUndoRecord();
    m_drawing->layerTable().add(QStringLiteral("*RESERVED"));
    EXPECT_TRUE(isSame(m_plan)) << "nobody sees that layer";
    m_drawing->layerTable().add(QStringLiteral("New"));
    EXPECT_FALSE(isSame(m_plan));
    m_drawing->undo();
    EXPECT_TRUE(isSame(m_plan));
    write("Floor")->erase();
    EXPECT_TRUE(isSame(m_plan)) << "saving takes the entries of erased layers out of states";
}

TEST_F(LayerStateList, TakesBothWordsForOpaqueAsOne)
{
    m_states.add(m_plan, {});
    write("Roof")->setTransparency(0x020000FF);
    EXPECT_TRUE(isSame(m_plan));
}

} // namespace
