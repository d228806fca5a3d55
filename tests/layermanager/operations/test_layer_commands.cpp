#include "OperationDrawing.h"
#include "layermanager/layers/operations/LayerCommandRun.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace {

using Ids = std::vector<int>;

constexpr int kGridCommands[] = {40028, 40029, 40030, 40031, 40032, 40033, 40034, 40035, 40036,
                                 40038, 40040, 40043, 40046, 40049, 40052, 40055, 40059, 40061,
                                 40071, 40075, 40078, 40081, 40083, 40092, 40094};
constexpr int kWithDialogOrGrid[] = {40031, 40036, 40059, 40061, 40078, 40081, 40083};

bool isIn(int id, std::span<const int> ids)
{
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

/// The commands of the grid that are not enabled.
Ids disabled(const LayerCommandState& state)
{
    Ids found;
    for (const int id : kGridCommands) {
        if (!isLayerCommandEnabled(id, state))
            found.push_back(id);
    }
    return found;
}

LayerCommandState everything()
{
    return {false, 3, 2, true, true, true, true, true, true};
}

class LayerCommands : public testing::Test
{
protected:
    std::optional<LayerOutcome> run(int id, std::initializer_list<const char*> selected = {})
    {
        return runLayerCommand(*m_drawing, id, rows(selected));
    }
    LayerRows rows(std::initializer_list<const char*> selected) const
    {
        return {m_drawing.ids(selected), m_drawing->layerTable().records()};
    }
    QStringList changedBy(int id, std::initializer_list<const char*> selected)
    {
        return changedNames(m_drawing.changing([&] { return run(id, selected).value(); }));
    }
    void overrideBoth() const
    {
        for (const char* layer : {"Line", "Unused"}) {
            for (const quint64 viewport : {0xA2, 0xA3, 0xB2})
                m_drawing.override_(layer, viewport);
        }
        m_drawing.enterSheet();
    }
    bool differs(const char* layer, quint64 viewport) const
    {
        return m_drawing.layer(layer)->hasOverrides(m_drawing.viewport(viewport));
    }

    OperationDrawing m_drawing;
};

} // namespace

TEST(LayerCommandTable, HasTheCommandsOfTheGridAndItsToolbarOnceEach)
{
    Ids ids;
    for (const LayerGridCommand& command : layerGridCommands())
        ids.push_back(command.id);
    std::sort(ids.begin(), ids.end());
    Ids wanted(std::begin(kGridCommands), std::end(kGridCommands));
    wanted.insert(wanted.begin(), {40001, 40002, 40003, 40010});
    EXPECT_EQ(ids, wanted);
    EXPECT_EQ(kFirstLayerCommand, 40028);
    EXPECT_EQ(kLastLayerCommand, 40094);
}

TEST(LayerCommandTable, NamesEveryCommandOfAMenuAndNoTwoAlikeInOne)
{
    std::set<std::pair<LayerMenu, QString>> seen;
    for (const LayerGridCommand& command : layerGridCommands()) {
        const QString text = layerGridCommandText(command);
        EXPECT_EQ(text.isEmpty(), command.menu == LayerMenu::None) << command.id;
        EXPECT_TRUE(text.isEmpty() || seen.emplace(command.menu, text).second)
            << text.toStdString();
    }
    std::set<QString> menus;
    for (const LayerMenu menu : {LayerMenu::OverridesOfSelected, LayerMenu::OverridesOfListed,
                                 LayerMenu::Viewports, LayerMenu::Select})
        menus.insert(layerGridMenuText(menu));
    EXPECT_EQ(menus.size(), 4u);
    EXPECT_FALSE(menus.contains(QString()));
}

TEST(LayerCommandTable, GivesNoTwoItemsOfAMenuTheSameMnemonic)
{
    const auto mnemonic = [](const QString& text) {
        return text.mid(text.indexOf(QLatin1Char('&')) + 1, 1).toLower();
    };
    std::set<std::pair<LayerMenu, QString>> seen;
    for (const LayerMenu menu : {LayerMenu::OverridesOfSelected, LayerMenu::OverridesOfListed,
                                 LayerMenu::Viewports, LayerMenu::Select})
        EXPECT_TRUE(seen.emplace(LayerMenu::Top, mnemonic(layerGridMenuText(menu))).second)
            << layerGridMenuText(menu).toStdString();
    for (const LayerGridCommand& command : layerGridCommands()) {
        EXPECT_TRUE(!command.text
                    || seen.emplace(command.menu, mnemonic(layerGridCommandText(command))).second)
            << command.text;
    }
}

TEST(LayerCommandState, EnablesEverythingWhereEverythingIsThere)
{
    EXPECT_EQ(disabled(everything()), Ids());
}

TEST(LayerCommandState, DisablesWhatNeedsASelectionWithoutOne)
{
    LayerCommandState state = everything();
    state.selected = 0;
    EXPECT_EQ(disabled(state),
              (Ids{40028, 40031, 40033, 40034, 40035, 40036, 40038, 40046, 40049, 40052, 40059,
                   40092, 40094}));
}

TEST(LayerCommandState, DisablesWhatIsAboutViewportsInModelSpace)
{
    LayerCommandState state = everything();
    state.inLayout = false;
    EXPECT_EQ(disabled(state), (Ids{40030, 40038, 40046, 40049, 40092}));
    state.inLayout = true;
    state.hasViewport = false;
    EXPECT_EQ(disabled(state), (Ids{40030, 40038, 40092})) << "in a layout never opened";
}

TEST(LayerCommandState, DisablesRemovingOverridesWhereThereAreNone)
{
    LayerCommandState state = everything();
    state.selectedHaveOverrides = false;
    EXPECT_EQ(disabled(state), (Ids{40035, 40038, 40092, 40094}));
    state.listedHaveOverrides = false;
    EXPECT_EQ(disabled(state), (Ids{40030, 40032, 40035, 40038, 40092, 40094}));
}

TEST(LayerCommandState, DisablesReconcilingWhereNothingWaits)
{
    LayerCommandState state = everything();
    state.selectedWaitForReview = false;
    EXPECT_EQ(disabled(state), (Ids{40034}));
}

TEST(LayerCommandState, DisablesLayerStatesWhereNobodyHasDialogsForThem)
{
    LayerCommandState state = everything();
    state.hasStateDialogs = false;
    EXPECT_EQ(disabled(state), (Ids{40078, 40081}));
}

TEST(LayerCommandState, LeavesNewLayersAndLayerStatesInAnEmptyList)
{
    LayerCommandState empty;
    empty.hasStateDialogs = true;
    for (const int id : {40029, 40043, 40078, 40081, 40002, 40010})
        EXPECT_TRUE(isLayerCommandEnabled(id, empty)) << id;
    for (const int id : {40001, 40003, 40061, 40083})
        EXPECT_FALSE(isLayerCommandEnabled(id, empty)) << id;
}

TEST(LayerCommandState, EnablesNothingWhileTheGridIsSwitchedOffAndNoUnknownCommand)
{
    LayerCommandState state = everything();
    EXPECT_FALSE(isLayerCommandEnabled(40037, state));
    EXPECT_FALSE(isLayerCommandEnabled(0, state));
    state.switchedOff = true;
    for (const LayerGridCommand& command : layerGridCommands())
        EXPECT_FALSE(isLayerCommandEnabled(command.id, state)) << command.id;
}

TEST_F(LayerCommands, ReadTheirStateFromTheDrawing)
{
    LayerCommandState state = layerCommandState(*m_drawing, rows({"Line", "Spare"}));
    EXPECT_EQ(state.rows, 14);
    EXPECT_EQ(state.selected, 2);
    EXPECT_FALSE(state.inLayout || state.hasViewport || state.selectedHaveOverrides
                 || state.listedHaveOverrides || state.selectedWaitForReview);
    m_drawing.enterSheet();
    m_drawing.override_("Unused", 0xB2);
    m_drawing.edited("0")->setIsReconciled(true);
    state = layerCommandState(*m_drawing, rows({"Line"}));
    EXPECT_TRUE(state.inLayout && state.hasViewport && state.listedHaveOverrides
                && state.selectedWaitForReview);
    EXPECT_FALSE(state.selectedHaveOverrides);
    EXPECT_TRUE(layerCommandState(*m_drawing, rows({"Unused"})).selectedHaveOverrides);
    EXPECT_FALSE(layerCommandState(*m_drawing, rows({"0"})).selectedWaitForReview);
}

TEST_F(LayerCommands, DoNothingForUnknownIdentifiersAndThoseThatNeedTheGrid)
{
    for (int id = 40000; id <= 40100; ++id) {
        const bool isKnown = layerGridCommand(id) != nullptr;
        const bool isRun = isKnown && !isIn(id, kWithDialogOrGrid);
        EXPECT_TRUE(isRun || !run(id, {"Line"})) << id;
    }
    EXPECT_FALSE(m_drawing->hasUndo());
}

TEST_F(LayerCommands, SayThatThreeAreNotSupportedAndDoNothingOnAnother)
{
    for (const int id : {40040, 40071, 40075}) {
        const LayerOutcome outcome = m_drawing.idle([&] { return run(id, {"Line"}).value(); });
        EXPECT_EQ(outcome.message.toStdString(), "Not yet supported");
    }
    EXPECT_EQ(m_drawing.idle([&] { return run(40055, {"Line"}).value(); }).message, QString());
}

TEST_F(LayerCommands, MakeTheFirstSelectedLayerCurrentButByTheToolbarOnlyASingleOne)
{
    EXPECT_EQ(changedBy(40028, {"Line", "Unused"}), texts({"Line"}));
    m_drawing.idle([&] { return run(40003, {"Unused", "Line"}).value(); });
    EXPECT_EQ(changedBy(40003, {"Unused"}), texts({"Unused"}));
    m_drawing.idle([&] { return run(40028).value(); });
}

TEST_F(LayerCommands, MakeNewLayersLikeTheFirstSelectedOne)
{
    m_drawing.enterSheet();
    m_drawing.edited("Unused")->setColor(OdCmColor::fromIndex(5));
    EXPECT_EQ(changedBy(40029, {"Unused", "Line"}), texts({"Layer1"}));
    EXPECT_EQ(m_drawing.layer("Layer1")->color(), OdCmColor::fromIndex(5));
    EXPECT_EQ(changedBy(40002, {}), texts({"Layer2"}));
    EXPECT_EQ(m_drawing.layer("Layer2")->color(), OdCmColor::fromIndex(7));
    EXPECT_EQ(changedBy(40010, {}), texts({"Layer3"}));
    EXPECT_EQ(changedBy(40043, {}), texts({"Layer4"}));
    EXPECT_FALSE(m_drawing.layer("Layer2")->VPDFLT());
    EXPECT_TRUE(m_drawing.layer("Layer3")->VPDFLT());
    EXPECT_TRUE(m_drawing.layer("Layer4")->VPDFLT());
    EXPECT_FALSE(m_drawing.isFrozenIn(0xB3, "Layer3"));
    EXPECT_TRUE(m_drawing.isFrozenIn(0xB3, "Layer4"));
}

TEST_F(LayerCommands, DeleteReconcileIsolateAndFreezeTheSelectedLayers)
{
    m_drawing.edited("0")->setIsReconciled(true);
    EXPECT_EQ(changedBy(40034, {"Line"}), texts({"Line"}));
    EXPECT_EQ(changedBy(40033, {"Unused", "Line"}), texts({"Unused"}));
    EXPECT_EQ(changedBy(40001, {"Spare"}), texts({"Spare"}));
    m_drawing.enterSheet();
    EXPECT_EQ(changedBy(40046, {"Line"}), texts({"Line"}));
    EXPECT_TRUE(m_drawing.isFrozenIn(0xB3, "Line"));
    EXPECT_EQ(changedBy(40049, {"Line"}), texts({"Line"}));
    EXPECT_FALSE(m_drawing.isFrozenIn(0xB3, "Line"));
    changedBy(40052, {"Line"});
    EXPECT_TRUE(m_drawing.layer("Border")->isOff());
    EXPECT_EQ(m_drawing->getCLAYER(), m_drawing.id("Line"));
}

TEST_F(LayerCommands, TakeOverridesFromAllListedLayersWhateverIsSelected)
{
    overrideBoth();
    EXPECT_EQ(changedBy(40030, {"Spare"}), texts({"Line", "Unused"}));
    EXPECT_FALSE(differs("Line", 0xA2) || differs("Unused", 0xA2));
    EXPECT_TRUE(differs("Line", 0xA3) && differs("Unused", 0xB2));
    EXPECT_EQ(changedBy(40032, {}), texts({"Line", "Unused"}));
    EXPECT_FALSE(m_drawing.layer("Line")->hasAnyOverrides());
}

TEST_F(LayerCommands, TakeOverridesFromTheSelectedLayersOnly)
{
    overrideBoth();
    EXPECT_EQ(changedBy(40038, {"Line", "Spare"}), texts({"Line"}));
    EXPECT_TRUE(differs("Unused", 0xA2));
    EXPECT_EQ(changedBy(40035, {"Line"}), texts({"Line"}));
    EXPECT_TRUE(m_drawing.layer("Unused")->hasAnyOverrides());
    EXPECT_EQ(changedBy(40092, {"Unused"}), texts({"Unused"}));
    EXPECT_EQ(changedBy(40094, {"Unused"}), texts({"Unused"}));
    const auto layer = m_drawing.layer("Unused");
    EXPECT_EQ(layer->color(m_drawing.viewport(0xB2)), layer->color());
    EXPECT_NE(layer->color(m_drawing.viewport(0xA3)), layer->color());
    EXPECT_NE(layer->transparency(m_drawing.viewport(0xB2)), layer->transparency());
}
