#include "LayerStatesFixture.h"

#include <algorithm>

namespace {

class LayerStateEntries : public LayerStatesFixture
{
protected:
    /// A state with all that other programs are known to write, and a group that nobody knows.
    GroupList foreign() const
    {
        return {{91, "2047"}, {301, "x"},  {70, "5"},       {302, "0"}, // the head
                {330, "31"},  {90, "8"},   {62, "30"},      {370, "35"}, //
                {93, "0"},    {331, "23"}, {1, "Color_30"}, {92, "-1023443200"},
                {440, "0"},   {440, "0"}, // doubled, another order
                {330, "ABC"}, {90, "9"},   {331, "DEF"}, // layer and linetype gone
                {8, "Roof"},  {62, "4"},   {90, "8"},       {6, "Continuous"}, // by name
                {8, "Gone"},  {90, "40"},  {6, "ZIGZAG"},   {309, "a note"}};
    }
    std::vector<LayerInfoInLS> layers() const { return m_states.layers(m_plan); }
    /// The groups after an edit of the layer at that place.
    GroupList edited(std::size_t place, const std::function<void(LayerInfoInLS&)>& edit)
    {
        auto all = layers();
        edit(all[place]);
        m_drawing->startUndoRecord();
        m_states.setLayers(m_plan, all);
        const GroupList result = groups(m_plan);
        m_drawing->undo();
        return result;
    }
    /// The foreign state with the groups of that code in one layer replaced.
    GroupList replaced(std::size_t place, int code, const char* value) const
    {
        GroupList result;
        int at = -1;
        for (const GroupList::Group group : foreign()) {
            at += StateGroup::beginsLayer(group.code) ? 1 : 0;
            const bool hit = at == static_cast<int>(place) && group.code == code;
            if (!hit)
                result.append(group);
            else if (value)
                result.append(code, value);
        }
        return result;
    }
};

TEST_F(LayerStateEntries, AreReadByTheirGroups)
{
    store(m_plan, foreign());
    const auto all = layers();
    ASSERT_EQ(all.size(), 4u);
    EXPECT_EQ(all[0].name, QStringLiteral("Walls"));
    EXPECT_EQ(all[0].layerId, layer("Walls"));
    EXPECT_EQ(all[0].linetypeId, linetype("DASHED"));
    EXPECT_EQ(all[0].plotStyleName, QStringLiteral("Color_30"));
    EXPECT_EQ(all[0].color, 30);
    EXPECT_EQ(all[0].lineWeight, 35);
    EXPECT_EQ(all[0].fullColor(), OdCmColor::fromRgb(255, 127, 0));
    EXPECT_EQ(all[0].flags, LayerInfoInLS::kOn | LayerInfoInLS::kPlottable)
        << "the stored bit 1 means off, the one here means on";
    EXPECT_TRUE(all[1].layerId.isNull());
    EXPECT_TRUE(all[1].linetypeId.isNull());
    EXPECT_FALSE(all[1].has(LayerInfoInLS::kOn));
    EXPECT_FALSE(all[1].transparency.has_value());
    EXPECT_EQ(all[2].layerId, layer("Roof"));
    EXPECT_EQ(all[2].linetypeId, linetype("Continuous"));
    EXPECT_TRUE(all[3].layerId.isNull());
    EXPECT_EQ(all[3].name, QStringLiteral("Gone"));
    EXPECT_TRUE(all[3].has(LayerInfoInLS::kFrozenInViewport));
}

TEST_F(LayerStateEntries, WrittenUneditedGiveTheSameGroups)
{
    store(m_plan, foreign());
    EXPECT_TRUE(edited(0, [](LayerInfoInLS&) {}) == foreign());
    m_states.add(QStringLiteral("Own"), {});
    const GroupList own = groups(QStringLiteral("Own"));
    m_states.setLayers(QStringLiteral("Own"), m_states.layers(QStringLiteral("Own")));
    EXPECT_TRUE(groups(QStringLiteral("Own")) == own);
}

TEST_F(LayerStateEntries, ChangeOnlyTheGroupThatWasEdited)
{
    store(m_plan, foreign());
    EXPECT_TRUE(edited(0, [](LayerInfoInLS& i) { i.flags ^= LayerInfoInLS::kOn; })
                == replaced(0, 90, "9"));
    EXPECT_TRUE(edited(0, [](LayerInfoInLS& i) { i.lineWeight = 50; }) == replaced(0, 370, "50"));
    EXPECT_TRUE(edited(0, [&](LayerInfoInLS& i) { i.linetypeId = linetype("Continuous"); })
                == replaced(0, 331, "22"));
    EXPECT_TRUE(edited(0, [](LayerInfoInLS& i) { i.transparency = 33554559; })
                == replaced(0, 440, "33554559"))
        << "both of the doubled groups";
    EXPECT_TRUE(edited(0, [](LayerInfoInLS& i) { i.plotStyleName = QStringLiteral("Thin"); })
                == replaced(0, 1, "Thin"));
    EXPECT_TRUE(edited(1, [](LayerInfoInLS& i) { i.flags |= LayerInfoInLS::kOn; })
                == replaced(1, 90, "8"))
        << "a layer that is gone keeps its dangling handles";
    EXPECT_TRUE(edited(2, [&](LayerInfoInLS& i) { i.linetypeId = linetype("DASHED"); })
                == replaced(2, 6, "DASHED"))
        << "a state by names stays one";
    EXPECT_TRUE(edited(3, [](LayerInfoInLS& i) { i.flags ^= LayerInfoInLS::kFrozen; })
                == replaced(3, 90, "42"));
}

TEST_F(LayerStateEntries, KeepWhatOtherProgramsWroteWhenTheStateIsSavedAgain)
{
    store(m_plan,
          {{91, "2047"},
           {301, "x"},
           {70, "5"},
           {330, "31"}, // Walls
           {90, "73"}, // off, and a bit that nobody knows
           {62, "30"},
           {93, "0"},
           {331, "23"},
           {92, "-1023443200"},
           {330, "ABC"}, // gone
           {90, "9"},
           {8, "Roof"},
           {309, "a note"},
           {8, "ROOF"}});
    m_states.save(m_plan, LayerStateMask::kColor);
    const GroupList saved = groups(m_plan);
    QByteArrayList texts;
    for (const GroupList::Group group : saved) {
        if (StateGroup::beginsLayer(group.code))
            texts.append("|");
        texts.append(QByteArray::number(group.code) + ' ' + group.value.toByteArray());
    }
    const QByteArrayList entries = texts.join(',').split('|');
    ASSERT_EQ(entries.size(), 5) << "head, Walls, Roof, and the two that were not there";
    EXPECT_EQ(entries[0], "91 32,301 x,70 5,290 0,302 0,");
    EXPECT_EQ(entries[1], ",330 31,90 72,62 7,93 0,331 23,370 -3,1 Color_7,440 0,");
    EXPECT_EQ(entries[2], ",8 Roof,309 a note,90 8,62 7,370 -3,331 22,1 Color_7,440 0,");
    EXPECT_TRUE(isSame(m_plan));
    m_states.save(m_plan, LayerStateMask::kColor);
    EXPECT_TRUE(groups(m_plan) == saved);
}

TEST_F(LayerStateEntries, LoseTheTrueColorWithTheIndexItWentWith)
{
    store(m_plan, foreign());
    const GroupList result = edited(0, [](LayerInfoInLS& i) { i.color = 3; });
    for (const GroupList::Group group : result)
        EXPECT_NE(group.code, 92);
    EXPECT_EQ(result.size(), foreign().size() - 1);
    const auto all =
        edited(0, [](LayerInfoInLS& i) { i.setFullColor(OdCmColor::fromRgb(1, 2, 3)); });
    EXPECT_TRUE(std::any_of(all.begin(), all.end(), [](const GroupList::Group& g) {
        return g.code == 92 && g.value == "-1040121341"; // 0xC2010203
    }));
}

TEST_F(LayerStateEntries, KeepAPackedColorThatRepeatsTheIndexInStep)
{
    store(m_plan, {{91, "1"}, {330, "31"}, {62, "5"}, {92, "-1023410171"}});
    const GroupList result = edited(0, [](LayerInfoInLS& i) { i.color = 250; });
    EXPECT_TRUE(result == (GroupList{{91, "1"}, {330, "31"}, {62, "250"}, {92, "-1023409926"}}));
}

TEST_F(LayerStateEntries, GainGroupsForWhatTheyDidNotHave)
{
    store(m_plan, {{91, "1"}, {330, "31"}});
    const GroupList result = edited(0, [&](LayerInfoInLS& i) {
        i.flags = LayerInfoInLS::kLocked;
        i.lineWeight = 13;
        i.linetypeId = linetype("DASHED");
        i.transparency = 0;
        i.setFullColor(OdCmColor::fromRgb(255, 0, 0, QStringLiteral("B$R")));
    });
    EXPECT_TRUE(result
                == (GroupList{{91, "1"},
                              {330, "31"},
                              {90, "5"},
                              {62, "1"},
                              {370, "13"},
                              {331, "23"},
                              {440, "0"},
                              {92, "-1023475712"},
                              {300, "B$R"}}));
}

TEST_F(LayerStateEntries, AreRemovedAddedAndReordered)
{
    m_states.add(m_plan, {});
    auto all = layers();
    all.erase(all.begin() + 1);
    std::reverse(all.begin(), all.end());
    expectUndoable([&] { m_states.setLayers(m_plan, all); });
    ASSERT_EQ(layers().size(), 3u);
    EXPECT_EQ(layers()[0].name, QStringLiteral("0"));
    EXPECT_FALSE(isSame(m_plan)) << "a layer of the drawing is missing";
    all.push_back(m_states.layerNow(QStringLiteral("roof")));
    EXPECT_EQ(all.back().name, QStringLiteral("Roof"));
    expectUndoable([&] { m_states.setLayers(m_plan, all); });
    EXPECT_TRUE(isSame(m_plan));
    EXPECT_EQ(failureOf([&] { m_states.layerNow(QStringLiteral("none")); }), OdResult::KeyNotFound);
}

TEST_F(LayerStateEntries, AreComparedBeforeTheyAreWritten)
{
    m_states.add(m_plan, {});
    auto all = layers();
    EXPECT_TRUE(m_states.matchesDrawing(all, LayerStateMask::kAll));
    all[0].flags ^= LayerInfoInLS::kLocked;
    EXPECT_FALSE(m_states.matchesDrawing(all, LayerStateMask::kAll));
    EXPECT_TRUE(m_states.matchesDrawing(all, LayerStateMask::kAll & ~LayerStateMask::kLocked));
}

TEST_F(LayerStateEntries, FollowALayerThatIsRenamed)
{
    m_states.add(m_plan, {});
    write("Walls")->setName(QStringLiteral("Outer walls"));
    EXPECT_TRUE(isSame(m_plan));
    EXPECT_EQ(layers()[2].name, QStringLiteral("Outer walls"));
}

} // namespace
