#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/support/CommandFixture.h"
#include "sdk/IKestServicesManager.h"

class Commands : public CommandFixture
{ };

TEST_F(Commands, NamesAreFoundWhateverTheirCaseAndWithAnUnderscore)
{
    open(TestDrawing());
    EXPECT_EQ("", run("regen"));
    EXPECT_EQ("", run("_REGEN"));
    EXPECT_EQ("", run("_RegenAll"));
    EXPECT_EQ((std::vector<std::string>{"regen", "regen", "regen all"}), frontEnd.calls);
}

TEST_F(Commands, AnUnknownNameIsASentence)
{
    EXPECT_EQ("There is no command \"FROB\".", run("FROB 1"));
}

TEST_F(Commands, AnEmptyLineDoesNothing)
{
    EXPECT_EQ("", run("   ; nothing"));
    EXPECT_TRUE(frontEnd.printed.isEmpty());
}

TEST_F(Commands, AnswersThatNobodyAskedForMakeTheCommandFail)
{
    open(TestDrawing());
    EXPECT_EQ("REGEN has no use for the answer \"now\".", run("REGEN now"));
}

TEST_F(Commands, ARunningCommandIsInCmdnamesAndItsContextIsTheDrawing)
{
    HostDocument& document = open(TestDrawing());
    std::string names;
    std::string active;
    addCommand("PROBE", [&](OdEdCommandContext* context) {
        names = variable("CMDNAMES");
        active = variable("CMDACTIVE");
        EXPECT_EQ(document.database(), dynamic_cast<OdDbCommandContext*>(context)->database());
    });
    EXPECT_EQ("", run("probe"));
    EXPECT_EQ("PROBE", names);
    EXPECT_EQ("1", active);
    EXPECT_EQ("", variable("CMDNAMES"));
}

namespace {
/// Raises something whenever a layer changes, or a drawing is closed.
class TroubledReactor : public OdDbDatabaseReactor, public KsApDocManagerReactor
{
public:
    void objectModified(const OdDbDatabase*, const OdDbObject*) override
    {
        throw std::runtime_error("no luck");
    }
    void documentToBeDestroyed(KsApDocument*) override { throw OdError_InvalidIndex(); }
};

class CountingReactor : public OdDbDatabaseReactor
{
public:
    void objectModified(const OdDbDatabase*, const OdDbObject*) override { ++count; }
    int count = 0;
};
} // namespace

TEST_F(Commands, WhatAReactorRaisesIsToldOnceAndTheEditStands)
{
    OdDbDatabase& drawing =
        *open(TestDrawing().add({.name = "Wall"}).add({.name = "Door"})).database();
    TroubledReactor troubled;
    CountingReactor next;
    drawing.addReactor(&troubled);
    drawing.addReactor(&next);
    EXPECT_EQ("", run("-LAYER OFF Wall,Door"));
    EXPECT_EQ("A change could not be followed: no luck",
              frontEnd.printed.join(QLatin1Char('|')).toStdString());
    EXPECT_EQ(2, next.count);
    EXPECT_EQ("", run("U"));
    EXPECT_EQ(4, next.count);
    drawing.removeReactor(&troubled);
    drawing.removeReactor(&next);
    EXPECT_TRUE(drawing.audit().isEmpty());
}

TEST_F(Commands, ADrawingIsClosedWhateverAReactorRaises)
{
    open(TestDrawing());
    TroubledReactor troubled;
    core.documents().addReactor(&troubled);
    EXPECT_EQ("", run("CLOSE"));
    core.documents().removeReactor(&troubled);
    EXPECT_EQ(0, core.documents().documentCount());
    EXPECT_EQ("A change could not be followed: The index is out of range.",
              frontEnd.printed.join(QLatin1Char('|')).toStdString());
}

TEST_F(Commands, ACommandThatFailsLeavesNothingRunning)
{
    addCommand("FALL", [](OdEdCommandContext*) { throw OdError_InvalidIndex(); });
    addCommand("CRASH", [](OdEdCommandContext*) { throw std::runtime_error("no luck"); });
    EXPECT_EQ("The index is out of range.", run("FALL"));
    EXPECT_EQ("CRASH failed: no luck", run("CRASH"));
    EXPECT_EQ("", variable("CMDNAMES"));
    EXPECT_FALSE(core.commands().isRunning());
}

TEST_F(Commands, OnlyTransparentCommandsRunInsideAnother)
{
    open(TestDrawing());
    std::string inside;
    std::string refused;
    addCommand("OUTER", [&](OdEdCommandContext*) {
        refused = run("MODEL");
        inside = run("'LWUNITS 0");
    });
    EXPECT_EQ("", run("OUTER"));
    EXPECT_EQ("MODEL cannot run while another command is running.", refused);
    EXPECT_EQ("", inside);
    EXPECT_EQ("0", variable("LWUNITS"));
}

TEST_F(Commands, AVariablesNameAlonePrintsItAndWithAValueSetsIt)
{
    open(TestDrawing());
    EXPECT_EQ("", run("clayer"));
    EXPECT_EQ("", run("LWUNITS"));
    EXPECT_EQ("", run("CMDNAMES"));
    EXPECT_EQ("", run("SETVAR lwunits 0"));
    EXPECT_EQ("", run("SETVAR LWUNITS"));
    EXPECT_EQ(strings({"CLAYER = \"0\"", "LWUNITS = 1", "CMDNAMES = \"SETVAR\" (cannot be set)",
                       "LWUNITS = 0"}),
              frontEnd.printed);
    EXPECT_EQ("LWUNITS takes an integer from 0 to 1; 3 is out of range.", run("LWUNITS 3"));
    EXPECT_EQ("There is no system variable \"NOSUCH\".", run("SETVAR NOSUCH 1"));
    EXPECT_EQ("CMDNAMES cannot be set.", run("CMDNAMES x"));
}

TEST_F(Commands, AQuestionMarkListsTheVariables)
{
    EXPECT_EQ("", run("SETVAR ?"));
    EXPECT_TRUE(frontEnd.printed.contains(QStringLiteral("LAYERMANAGERSTATE = 1")));
    EXPECT_TRUE(frontEnd.printed.filter(QStringLiteral("CLAYER")).isEmpty());
    open(TestDrawing());
    EXPECT_EQ("", run("SETVAR ?"));
    EXPECT_TRUE(frontEnd.printed.contains(QStringLiteral("CLAYER = \"0\"")));
}

TEST_F(Commands, LayoutsAreListedAndSet)
{
    open(TestDrawing());
    EXPECT_EQ("", run("LAYOUT Set layout1"));
    EXPECT_EQ("Layout1", variable("CTAB"));
    EXPECT_EQ("", run("LAYOUT ?"));
    EXPECT_EQ(strings({"  Model", "* Layout1"}), frontEnd.printed);
    EXPECT_EQ("", run("MODEL"));
    EXPECT_EQ("Model", variable("CTAB"));
    EXPECT_EQ("There is no layout \"Nowhere\".", run("LAYOUT S Nowhere"));
    EXPECT_EQ("One of Set, ? is needed; \"New\" is none.", run("LAYOUT New"));
}

TEST_F(Commands, LayersPrintsTheTableInTheUnitOfLwunits)
{
    open(TestDrawing().add({.name = "Wall", .lineweight = 35}));
    EXPECT_EQ("", run("LAYERS"));
    EXPECT_EQ("", run("LWUNITS 0"));
    EXPECT_EQ("", run("LAYERS"));
    ASSERT_EQ(2, frontEnd.printed.size());
    EXPECT_TRUE(frontEnd.printed[0].contains(QStringLiteral("0.35 mm")));
    EXPECT_TRUE(frontEnd.printed[1].contains(QStringLiteral("0.014\"")));
    EXPECT_TRUE(frontEnd.printed[0].endsWith(QStringLiteral("2 layers.")));
}

TEST_F(Commands, CommandsThatNeedADrawingSaySo)
{
    for (const char* line : {"LAYERS", "SAVE", "SAVEAS x.dxf", "CLOSE", "U", "REDO", "UNDO",
                             "REGEN", "ZOOM E", "MODEL", "LAYOUT ?", "CLAYER"})
        EXPECT_EQ("There is no drawing open.", run(line)) << line;
}

TEST_F(Commands, LineweightTextsForModulesFollowLwunits)
{
    EXPECT_EQ("0.25 mm", getServicesManagerInterface()->lineWeightText(25).toStdString());
    run("LWUNITS 0");
    EXPECT_EQ("0.010\"", getServicesManagerInterface()->lineWeightText(25).toStdString());
    EXPECT_EQ("Default", getServicesManagerInterface()->lineWeightText(-3).toStdString());
}

TEST_F(Commands, HostCommandsCannotBeUndefined)
{
    EXPECT_THROW(odedRegCmds()->lookup(QStringLiteral("OPEN"))->undefine(true), OdError);
}

TEST_F(Commands, VariablesAreFoundWithAnUnderscoreToo)
{
    EXPECT_EQ("", run("_LWUNITS 0"));
    EXPECT_EQ("0", variable("LWUNITS"));
    EXPECT_EQ("There is no command \"__LWUNITS\".", run("__LWUNITS 0"));
}

TEST_F(Commands, WhatModulesRaiseIsAFailureWhateverItIs)
{
    addCommand("ODD", [](OdEdCommandContext*) { throw 42; });
    EXPECT_EQ("ODD failed.", run("ODD"));
    EXPECT_FALSE(core.commands().isRunning());
}
