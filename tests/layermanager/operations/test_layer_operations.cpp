#include "layermanager/LayerDrawing.h"
#include "layermanager/layers/operations/LayerOperations.h"
#include "sdk/CKestPreferenceManager.h"
#include "support/FakeHost.h"

#include <QScopedValueRollback>

#include <gtest/gtest.h>

using enum LayerColumn;

namespace {

using layer_drawing::id;
using layer_drawing::read;
using layer_drawing::write;

int count(const LayerOutcome& outcome)
{
    return static_cast<int>(outcome.changed.size());
}

class LayerEdits : public testing::Test
{
protected:
    LayerEdits()
        : m_database(
            m_host.open(layer_drawing::make({{"Walls"}, {"Doors"}, {"Roof"}, {"x|Far", 16}})))
    { }
    LayerVerdict verdict(const char* layer, LayerColumn column) const
    {
        return mayEditLayerCell(*read(m_database, layer), column, m_database.getCLAYER());
    }
    int toggle(LayerColumn column, const char* layer, std::vector<OdDbObjectId> others = {})
    {
        return count(toggleLayerFlag(m_database, column, id(m_database, layer), others));
    }

    FakeHost m_host;
    OdDbDatabase& m_database;
    QScopedValueRollback<bool> m_combine{
        CKestPreferenceManager::instance().CombineLayerPropPreference, false};
};

TEST_F(LayerEdits, RefuseToRenameLayerZeroAndDependentLayers)
{
    EXPECT_EQ(verdict("0", Name), LayerVerdict::CannotRename);
    EXPECT_EQ(verdict("x|Far", Name), LayerVerdict::CannotRename);
    EXPECT_EQ(verdict("Walls", Name), LayerVerdict::Allowed);
}

TEST_F(LayerEdits, AskBeforeTheCurrentLayerIsTurnedOffButNotOn)
{
    EXPECT_EQ(verdict("0", On), LayerVerdict::AskTurnOffCurrent);
    EXPECT_EQ(verdict("Walls", On), LayerVerdict::Allowed);
    write(m_database, "0")->setIsOff(true);
    EXPECT_EQ(verdict("0", On), LayerVerdict::Allowed);
}

TEST_F(LayerEdits, RefuseToFreezeTheCurrentLayer)
{
    EXPECT_EQ(verdict("0", Freeze), LayerVerdict::CannotFreezeCurrent);
    EXPECT_EQ(verdict("Walls", Freeze), LayerVerdict::Allowed);
}

TEST_F(LayerEdits, AllowEverythingWhereTheCurrentLayerCannotBeRead)
{
    for (const LayerColumn column : {On, Freeze})
        EXPECT_EQ(mayEditLayerCell(*read(m_database, "0"), column, std::nullopt),
                  LayerVerdict::Allowed);
}

TEST_F(LayerEdits, AllowTheOtherColumnsForAnyLayer)
{
    for (const LayerColumn column :
         {Locked, Color, Linetype, Lineweight, PlotStyle, Plot, NewVpFreeze, VpFreeze, VpColor,
          VpLinetype, VpLineweight, VpPlotStyle})
        EXPECT_EQ(verdict("0", column), LayerVerdict::Allowed);
    EXPECT_EQ(verdict("Walls", Status), LayerVerdict::NotByClick);
    EXPECT_EQ(verdict("Walls", Description), LayerVerdict::NotByClick);
}

TEST_F(LayerEdits, ToggleEachFlagThereAndBackAsOneUndoStepEach)
{
    const struct
    {
        LayerColumn column;
        bool (OdDbLayerTableRecord::*get)() const;
    } flags[] = {
        {On, &OdDbLayerTableRecord::isOff},           {Freeze, &OdDbLayerTableRecord::isFrozen},
        {Locked, &OdDbLayerTableRecord::isLocked},    {Plot, &OdDbLayerTableRecord::isPlottable},
        {NewVpFreeze, &OdDbLayerTableRecord::VPDFLT},
    };
    for (const auto& flag : flags) {
        SCOPED_TRACE(static_cast<int>(flag.column));
        const auto value = [&] { return ((*read(m_database, "Walls")).*flag.get)(); };
        const bool before = value();
        EXPECT_EQ(toggle(flag.column, "Walls"), 1);
        EXPECT_EQ(value(), !before);
        EXPECT_EQ(toggle(flag.column, "Walls"), 1);
        EXPECT_EQ(value(), before);
        ASSERT_TRUE(m_database.undo());
        EXPECT_EQ(value(), !before);
        ASSERT_TRUE(m_database.undo());
        EXPECT_EQ(value(), before);
        EXPECT_FALSE(m_database.hasUndo());
    }
    EXPECT_TRUE(m_database.audit().isEmpty());
}

TEST_F(LayerEdits, SpreadTheNewValueToTheOtherLayersInTheSameUndoStep)
{
    write(m_database, "Roof")->setIsLocked(true);
    m_database.endUndoRecord();
    EXPECT_EQ(toggle(Locked, "Walls", {id(m_database, "Doors"), id(m_database, "Roof")}), 2);
    for (const char* layer : {"Walls", "Doors", "Roof"})
        EXPECT_TRUE(read(m_database, layer)->isLocked());
    m_database.undo();
    EXPECT_FALSE(read(m_database, "Walls")->isLocked());
    EXPECT_FALSE(read(m_database, "Doors")->isLocked());
    EXPECT_TRUE(read(m_database, "Roof")->isLocked());
}

TEST_F(LayerEdits, OfThePlotFlagStayWithTheClickedLayer)
{
    write(m_database, "Roof")->setIsPlottable(false);
    EXPECT_EQ(toggle(Plot, "Walls", {id(m_database, "Doors"), id(m_database, "Roof")}), 1);
    EXPECT_FALSE(read(m_database, "Walls")->isPlottable());
    EXPECT_TRUE(read(m_database, "Doors")->isPlottable());
    EXPECT_FALSE(read(m_database, "Roof")->isPlottable());
}

TEST_F(LayerEdits, NeverFreezeTheCurrentLayerAlongWithOthers)
{
    EXPECT_EQ(toggle(Freeze, "Walls", {id(m_database, "0"), id(m_database, "Doors")}), 2);
    EXPECT_FALSE(read(m_database, "0")->isFrozen());
    EXPECT_TRUE(read(m_database, "Doors")->isFrozen());
}

TEST_F(LayerEdits, SkipLayersThatCannotBeOpened)
{
    const OdDbObjectId doors = id(m_database, "Doors");
    write(m_database, "Doors")->erase();
    EXPECT_EQ(toggle(On, "Walls", {doors}), 1);
    EXPECT_TRUE(toggleLayerFlag(m_database, On, doors, {}).isEmpty());
    EXPECT_TRUE(toggleLayerFlag(m_database, On, OdDbObjectId(), {}).isEmpty());
}

TEST_F(LayerEdits, LeaveColumnsWithoutAFlagAlone)
{
    for (const LayerColumn column : {Status, Name, Description})
        EXPECT_EQ(toggle(column, "Walls"), 0);
    EXPECT_FALSE(m_database.hasUndo());
}

class LayerUndoRecords : public LayerEdits
{
protected:
    bool undoTurnsOnAgain(const char* layer)
    {
        m_database.undo();
        return !read(m_database, layer)->isOff();
    }
};

TEST_F(LayerUndoRecords, AreNamedInTheHistory)
{
    toggle(On, "Walls");
    EXPECT_EQ(m_host.historyNames, QStringList{QStringLiteral("_LAYER")});
}

TEST_F(LayerUndoRecords, JoinTheRecordOfARunningCommand)
{
    m_database.startUndoRecord();
    m_host.ints[QStringLiteral("CMDACTIVE")] = 1;
    toggle(On, "Walls");
    toggle(On, "Doors");
    EXPECT_TRUE(m_host.historyNames.isEmpty());
    EXPECT_TRUE(undoTurnsOnAgain("Doors"));
    EXPECT_FALSE(read(m_database, "Walls")->isOff());
}

TEST_F(LayerUndoRecords, CombineSuccessiveEditsWhereTheUserPrefersThat)
{
    CKestPreferenceManager::instance().CombineLayerPropPreference = true;
    toggle(On, "Walls");
    toggle(On, "Doors");
    EXPECT_EQ(m_host.historyNames.size(), 1);
    EXPECT_TRUE(undoTurnsOnAgain("Doors"));
    EXPECT_FALSE(read(m_database, "Walls")->isOff());
    EXPECT_FALSE(m_database.hasUndo());
}

TEST_F(LayerUndoRecords, StandOnTheirOwnWhereTheUserPrefersThat)
{
    toggle(On, "Walls");
    toggle(On, "Doors");
    EXPECT_EQ(m_host.historyNames.size(), 2);
    EXPECT_TRUE(undoTurnsOnAgain("Doors"));
    EXPECT_TRUE(read(m_database, "Walls")->isOff());
}

TEST_F(LayerUndoRecords, JoinAnOpenUndoGroupOnlyWhereEditsCombine)
{
    m_host.ints[QStringLiteral("UNDOCTL")] = 5 | 8;
    CKestPreferenceManager::instance().CombineLayerPropPreference = true;
    toggle(On, "Walls");
    EXPECT_TRUE(m_host.historyNames.isEmpty());
    m_database.endUndoRecord();
    CKestPreferenceManager::instance().CombineLayerPropPreference = false;
    toggle(On, "Doors");
    EXPECT_EQ(m_host.historyNames.size(), 1);
}

TEST_F(LayerUndoRecords, NeedNoHost)
{
    ksSetHost({});
    EXPECT_EQ(toggle(On, "Walls"), 1);
    EXPECT_TRUE(undoTurnsOnAgain("Walls"));
    ksSetHost(m_host.parts());
}

} // namespace
