#include "LayerStatesFixture.h"
#include "database/tables/OdDbLinetypeTableRecord.h"

namespace {

class LayerStateExchanging : public LayerStatesFixture
{
protected:
    std::unique_ptr<OdDbDatabase> m_other = readDrawing(
        DrawingText::withLayers({{"WALLS"}, {"Cellar", 0, 3}}), QStringLiteral("other.dxf"));
    LayerStates m_otherStates{*m_other};

    OdDbLayerTableRecordPtr cellar() const { return read("Cellar"); }
};

TEST_F(LayerStateExchanging, NamesWhatHasHandlesInTheDrawing)
{
    write("Walls")->setColor(OdCmColor::fromRgb(255, 127, 0));
    m_states.add(m_plan, QStringLiteral("ground floor"));
    restore(m_plan);
    const PortableLayerState state = m_states.exported(QStringLiteral("PLAN"));
    EXPECT_EQ(state.name, m_plan) << "as the drawing spells it";
    EXPECT_TRUE(state.groups == (GroupList{{91, "2047"},      {301, "ground floor"},
                                           {290, "0"},        {302, "0"},
                                           {8, "Floor"},      {90, "8"},
                                           {62, "7"},         {370, "-3"},
                                           {6, "Continuous"}, {2, "Color_7"},
                                           {440, "0"}, //
                                           {8, "Roof"},       {90, "8"},
                                           {62, "7"},         {370, "-3"},
                                           {6, "Continuous"}, {2, "Color_7"},
                                           {440, "0"}, //
                                           {8, "Walls"},      {90, "8"},
                                           {62, "30"},        {370, "-3"},
                                           {6, "DASHED"},     {2, "Color_30"},
                                           {440, "0"},        {92, "-1023443200"}, //
                                           {8, "0"},          {90, "8"},
                                           {62, "7"},         {370, "-3"},
                                           {6, "Continuous"}, {2, "Color_7"},
                                           {440, "0"}}))
        << "and the mark of the last restore stays behind";
    ASSERT_EQ(state.linetypes.size(), 2u);
    EXPECT_EQ(state.linetypes[1].name, QStringLiteral("DASHED"));
    EXPECT_EQ(state.linetypes[1].dashes, (std::vector<double>{0.5, -0.25}));
}

TEST_F(LayerStateExchanging, LeavesOutWhatMeansNothingElsewhere)
{
    store(m_plan,
          {{91, "1"},
           {340, "31"},
           {70, "3"},
           {330, "FFF"},
           {90, "1"},
           {330, "31"},
           {90, "9"},
           {331, "FFF"},
           {335, "A1"},
           {309, "note"}});
    EXPECT_TRUE(m_states.exported(m_plan).groups
                == (GroupList{{91, "1"},
                              {301, ""},
                              {290, "0"},
                              {302, ""},
                              {70, "3"},
                              {8, "Walls"},
                              {90, "9"},
                              {309, "note"}}));
}

TEST_F(LayerStateExchanging, MakesLayersThatTheDrawingLacks)
{
    m_other->layerTable()
        .getAt(QStringLiteral("Cellar"))
        .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
        ->setIsLocked(true);
    m_otherStates.add(m_plan, QStringLiteral("below"));
    const LayerState walls = read("Walls")->state();
    expectUndoable([&] { m_states.take(LayerStates(*m_other).exported(m_plan)); });
    ASSERT_FALSE(layer("Cellar").isNull());
    EXPECT_EQ(cellar()->color(), OdCmColor::fromIndex(3)) << "with the settings of the state";
    EXPECT_TRUE(cellar()->isLocked());
    EXPECT_TRUE(read("Walls")->state() == walls) << "a layer that was there is not touched";
    EXPECT_EQ(m_drawing->layerTable().count(), 5);
    EXPECT_EQ(m_states.description(m_plan), QStringLiteral("below"));
    EXPECT_EQ(m_states.layers(m_plan)[1].name, QStringLiteral("Walls"));
    EXPECT_EQ((*std::next(groups(m_plan).begin(), 4)).code, 330) << "by handle again";
}

TEST_F(LayerStateExchanging, BringsLinetypesAlong)
{
    m_drawing = readDrawing(DrawingText::withLayers({{"WALLS"}}).replace("DASHED", "DOTTED"),
                            QStringLiteral("target.dxf"));
    LayerStates states(*m_drawing);
    const OdDbObjectId dashed =
        m_other->table(OdDbTableKind::Linetype).getAt(QStringLiteral("DASHED"));
    m_other->layerTable()
        .getAt(QStringLiteral("Cellar"))
        .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
        ->setLinetypeObjectId(dashed);
    m_otherStates.add(m_plan, {});
    ASSERT_TRUE(linetype("DASHED").isNull());
    expectUndoable([&] { states.take(LayerStates(*m_other).exported(m_plan)); });
    EXPECT_EQ(cellar()->linetypeObjectId(), linetype("DASHED"));
    EXPECT_EQ(linetype("DASHED").safeOpenObject<OdDbLinetypeTableRecord>()->dashes(),
              (std::vector<double>{0.5, -0.25}));
}

TEST_F(LayerStateExchanging, PutsContinuousWhereALinetypeIsMissing)
{
    m_states.take(
        {m_plan,
         {{91, "2047"}, {8, "New"}, {90, "8"}, {6, "ZIGZAG"}, {8, "Walls"}, {6, "zigzag"}}});
    EXPECT_EQ(read("New")->linetypeObjectId(), linetype("Continuous"));
    EXPECT_EQ(m_states.layers(m_plan)[1].linetypeId, linetype("Continuous"));
}

TEST_F(LayerStateExchanging, KeepsALayerByNameThatNoLayerCanHave)
{
    const GroupList odd = {{91, "2047"}, {8, "plan|Walls"}, {90, "9"}, {8, "a<b"},
                           {90, "9"},    {8, "WALLS"},      {90, "9"}};
    m_states.take({m_plan, odd});
    EXPECT_EQ(m_drawing->layerTable().count(), 4);
    EXPECT_TRUE(groups(m_plan)
                == (GroupList{{91, "2047"},
                              {8, "plan|Walls"},
                              {90, "9"},
                              {8, "a<b"},
                              {90, "9"},
                              {330, "31"},
                              {90, "9"}}));
}

TEST_F(LayerStateExchanging, RefusesANameThatIsThere)
{
    m_states.add(m_plan, {});
    m_otherStates.add(QStringLiteral("PLAN"), {});
    const LayerLook before = LayerLook::of(*m_drawing);
    EXPECT_EQ(failureOf([&] { m_states.take(LayerStates(*m_other).exported(m_plan)); }),
              OdResult::DuplicateKey);
    EXPECT_TRUE(LayerLook::of(*m_drawing) == before) << "no layer was made";
}

TEST_F(LayerStateExchanging, GivesTheSameStateBack)
{
    write("Roof")->setIsOff(true);
    m_states.add(m_plan, QStringLiteral("d"));
    const GroupList before = groups(m_plan);
    const PortableLayerState state = m_states.exported(m_plan);
    m_states.remove(m_plan);
    m_states.take(state);
    EXPECT_TRUE(groups(m_plan) == before);
}

} // namespace
