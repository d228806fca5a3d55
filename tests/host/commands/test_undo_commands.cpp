#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/support/CommandFixture.h"

class UndoCommands : public CommandFixture
{ };

TEST_F(UndoCommands, OneUndoTakesBackAWholeCommand)
{
    OdDbDatabase& drawing = *open(TestDrawing().add({.name = "A"}).add({.name = "B"})).database();
    addCommand("BOTH", [&](OdEdCommandContext* context) {
        OdDbDatabase& db = *dynamic_cast<OdDbCommandContext*>(context)->database();
        for (const char* name : {"A", "B"}) {
            const auto id = db.layerTable().getAt(QLatin1String(name));
            id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsOff(true);
        }
    });
    EXPECT_EQ("", run("BOTH"));
    EXPECT_FALSE(drawing.isUndoRecordOpen());
    EXPECT_EQ("", run("U"));
    for (const char* name : {"A", "B"}) {
        const auto id = drawing.layerTable().getAt(QLatin1String(name));
        EXPECT_FALSE(id.safeOpenObject<OdDbLayerTableRecord>()->isOff()) << name;
    }
    EXPECT_EQ("There is nothing to undo.", run("U"));
}

TEST_F(UndoCommands, PaletteCommandsOpenNoUndoRecord)
{
    open(TestDrawing());
    bool recording = true;
    addCommand(
        "PALETTE",
        [&](OdEdCommandContext*) {
            recording = core.documents().curDocument()->database()->isUndoRecordOpen();
        },
        OdEd::kPalette | OdEd::kUsePickSet);
    EXPECT_EQ("", run("PALETTE"));
    EXPECT_FALSE(recording);
}

TEST_F(UndoCommands, UndoAndRedoTakeCounts)
{
    open(TestDrawing().add({.name = "A"}));
    run("CLAYER A");
    run("LWDISPLAY 1");
    EXPECT_EQ("", run("UNDO 2"));
    EXPECT_EQ("0", variable("CLAYER"));
    EXPECT_EQ("", run("REDO 2"));
    EXPECT_EQ("A", variable("CLAYER"));
    EXPECT_EQ("1", variable("LWDISPLAY"));
    EXPECT_EQ("There is nothing to redo.", run("REDO"));
    EXPECT_EQ("", run("UNDO 99"));
    EXPECT_EQ("0", variable("CLAYER"));
    EXPECT_EQ("A number of steps is needed; \"all\" is none.", run("UNDO all"));
    EXPECT_EQ("A number of steps is needed; \"0\" is none.", run("UNDO 0"));
}

TEST_F(UndoCommands, WhatAFailedCommandDidIsOneUndoStep)
{
    OdDbDatabase& drawing = *open(TestDrawing().add({.name = "A"})).database();
    addCommand("HALF", [&](OdEdCommandContext*) {
        const auto id = drawing.layerTable().getAt(QStringLiteral("A"));
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsOff(true);
        throw OdError_InvalidIndex();
    });
    EXPECT_EQ("The index is out of range.", run("HALF"));
    const auto layer =
        drawing.layerTable().getAt(QStringLiteral("A")).openObject<OdDbLayerTableRecord>();
    EXPECT_TRUE(layer->isOff());
    EXPECT_FALSE(drawing.isUndoRecordOpen());
    EXPECT_EQ("HALF", core.documents().curDocument()->undoNames().undoName().toStdString());
    EXPECT_EQ("", run("U"));
    EXPECT_FALSE(layer->isOff());
    EXPECT_EQ("There is nothing to undo.", run("U"));
}

TEST_F(UndoCommands, UndoGoesBackToMarks)
{
    open(TestDrawing().add({.name = "A"}));
    for (const char* line :
         {"CLAYER A", "UNDO Mark", "LWDISPLAY 1", "UNDO M", "LTSCALE 3", "LTSCALE 4"})
        EXPECT_EQ("", run(line)) << line;
    EXPECT_EQ("2", variable("UNDOMARKS"));
    EXPECT_EQ("", run("UNDO Back"));
    EXPECT_EQ("1", variable("LTSCALE"));
    EXPECT_EQ("1", variable("LWDISPLAY"));
    EXPECT_EQ("", run("UNDO _B"));
    EXPECT_EQ("0", variable("LWDISPLAY"));
    EXPECT_EQ("A", variable("CLAYER"));
    EXPECT_EQ("0", variable("UNDOMARKS"));
    EXPECT_EQ("There is no mark to go back to.", run("UNDO Back"));
    EXPECT_EQ("A", variable("CLAYER"));
    EXPECT_EQ("", run("UNDO Back Yes"));
    EXPECT_EQ("0", variable("CLAYER"));
}

TEST_F(UndoCommands, UndoneMarksAreGone)
{
    open(TestDrawing().add({.name = "A"}));
    for (const char* line :
         {"CLAYER A", "LWDISPLAY 1", "UNDO Mark", "UNDO 2", "LTSCALE 2", "LTSCALE 3", "LTSCALE 4"})
        EXPECT_EQ("", run(line)) << line;
    EXPECT_EQ("0", variable("UNDOMARKS"));
}

TEST_F(UndoCommands, UndoCannotBeSwitchedOff)
{
    open(TestDrawing());
    EXPECT_EQ("", run("UNDO Control All"));
    EXPECT_EQ("All changes can be undone; that cannot be switched off.", run("UNDO C None"));
    EXPECT_EQ("5", variable("UNDOCTL"));
}

TEST_F(UndoCommands, AGroupIsOneStepNamedGroupAndUndoctlTellsItWhileCommandsRun)
{
    open(TestDrawing().add({.name = "A"}));
    std::string control;
    addCommand("PROBE", [&](OdEdCommandContext*) { control = variable("UNDOCTL"); });
    EXPECT_EQ("", run("PROBE"));
    EXPECT_EQ("5", control);
    for (const char* line : {"UNDO BEgin", "CLAYER A", "LTSCALE 2", "PROBE", "UNDO End"})
        EXPECT_EQ("", run(line)) << line;
    EXPECT_EQ("13", control);
    EXPECT_EQ("Group", core.documents().curDocument()->undoNames().undoName().toStdString());
    EXPECT_EQ("", run("U"));
    EXPECT_EQ("0", variable("CLAYER"));
    EXPECT_EQ("1", variable("LTSCALE"));
}
