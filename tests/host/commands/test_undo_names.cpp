#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/support/HostFixture.h"
#include "sdk/commands/CKsUndoRedoCommandHistory.h"

class UndoNamesTest : public HostFixture
{
protected:
    UndoNamesTest()
        : document(open(TestDrawing().add({.name = "Wall"}).add({.name = "Door"})))
    { }
    /// Edits as a palette does: outside of any command, in a record that it names itself.
    void lockFromPalette(const char* layer)
    {
        ksUndoRedoHistory()->AddCommand(QStringLiteral("_LAYER"));
        document.database()->startUndoRecord();
        lock(layer);
    }
    void lock(const char* layer)
    {
        const auto id = document.database()->layerTable().getAt(QLatin1String(layer));
        id.safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)->setIsLocked(true);
    }
    std::string undoName() { return document.undoNames().undoName().toStdString(); }
    std::string redoName() { return document.undoNames().redoName().toStdString(); }

    HostDocument& document;
};

TEST_F(UndoNamesTest, WithoutEditsThereIsNothingToName)
{
    EXPECT_EQ("", undoName());
    EXPECT_EQ("", redoName());
}

TEST_F(UndoNamesTest, ARecordHasTheNameOfItsCommand)
{
    run("CLAYER Wall");
    EXPECT_EQ("CLAYER", undoName());
    lockFromPalette("Wall");
    EXPECT_EQ("LAYER", undoName());
}

TEST_F(UndoNamesTest, NamesMoveBetweenUndoAndRedoWithTheirRecords)
{
    run("CLAYER Wall");
    lockFromPalette("Wall");
    EXPECT_TRUE(document.undo());
    EXPECT_EQ("CLAYER", undoName());
    EXPECT_EQ("LAYER", redoName());
    EXPECT_TRUE(document.undo());
    EXPECT_EQ("", undoName());
    EXPECT_EQ("CLAYER", redoName());
    EXPECT_TRUE(document.redo());
    EXPECT_EQ("CLAYER", undoName());
    EXPECT_EQ("LAYER", redoName());
    EXPECT_FALSE(document.undo() && document.undo());
}

TEST_F(UndoNamesTest, ACommandThatChangesNothingLeavesNoName)
{
    run("CLAYER Wall");
    document.undo();
    EXPECT_EQ("", run("MODEL"));
    EXPECT_EQ("", undoName());
    EXPECT_EQ("CLAYER", redoName());
}

TEST_F(UndoNamesTest, ANewEditForgetsTheNamesThatWereUndone)
{
    run("CLAYER Wall");
    run("LWDISPLAY 1");
    document.undo();
    lockFromPalette("Door");
    EXPECT_EQ("LAYER", undoName());
    EXPECT_EQ("", redoName());
    document.undo();
    EXPECT_EQ("CLAYER", undoName());
    EXPECT_EQ("LAYER", redoName());
}

TEST_F(UndoNamesTest, SeveralPaletteEditsInOneRecordAreOneStep)
{
    lockFromPalette("Wall");
    lock("Door");
    EXPECT_EQ("LAYER", undoName());
    EXPECT_TRUE(document.undo());
    EXPECT_EQ("", undoName());
}

TEST_F(UndoNamesTest, AnEditThatNobodyNamedHasAGeneralName)
{
    lock("Wall");
    EXPECT_EQ("Edit", undoName());
}

TEST_F(UndoNamesTest, AGroupMakesOneStepOfItsCommands)
{
    EXPECT_EQ("", run("UNDO Begin"));
    run("CLAYER Wall");
    run("LWDISPLAY 1");
    EXPECT_EQ("", run("UNDO End"));
    EXPECT_EQ("Group", undoName());
    EXPECT_EQ("", run("U"));
    EXPECT_EQ("", undoName());
    EXPECT_EQ("0", core.sysvars().text(QStringLiteral("CLAYER")).toStdString());
    EXPECT_EQ("0", core.sysvars().text(QStringLiteral("LWDISPLAY")).toStdString());
}
