#include "database/OdDbLayerTable.h"
#include "database/OdDbLayerTableRecord.h"
#include "host/support/HostFixture.h"
#include "sdk/IKestIOManager.h"
#include "sdk/IKestServicesManager.h"
#include "sdk/KestStatus.h"
#include "sdk/OdEdCommandStack.h"

#include <functional>

namespace {
/// A module's command made of a function.
class FunctionCommand : public OdEdCommand
{
public:
    FunctionCommand(const char* name, int flags, std::function<void(OdEdCommandContext*)> function)
        : m_name(QLatin1String(name))
        , m_flags(flags)
        , m_function(std::move(function))
    { }
    QString groupName() const override { return QStringLiteral("TEST"); }
    QString globalName() const override { return QLatin1Char('_') + m_name; }
    QString localName() const override { return m_name; }
    void execute(OdEdCommandContext* context) override { m_function(context); }
    int flags() const override { return m_flags; }
    void undefine(bool) override { }

private:
    QString m_name;
    int m_flags;
    std::function<void(OdEdCommandContext*)> m_function;
};
} // namespace

class Commands : public HostFixture
{
protected:
    ~Commands() override { odedRegCmds()->removeGroup(QStringLiteral("TEST")); }

    void addCommand(const char* name, std::function<void(OdEdCommandContext*)> function,
                    int flags = 0)
    {
        ASSERT_TRUE(odedRegCmds()->addCommand(
            odrxCreate<FunctionCommand>(name, flags, std::move(function))));
    }
    std::string variable(const char* name)
    {
        return core.sysvars().text(QLatin1String(name)).toStdString();
    }
    QStringList strings(std::initializer_list<const char*> texts)
    {
        QStringList result;
        for (const char* text : texts)
            result << QString::fromUtf8(text);
        return result;
    }
};

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

TEST_F(Commands, ACommandThatFailsLeavesNothingRunning)
{
    addCommand("FALL", [](OdEdCommandContext*) { throw OdError_InvalidIndex(); });
    addCommand("CRASH", [](OdEdCommandContext*) { throw std::runtime_error("no luck"); });
    EXPECT_EQ("The index is out of range.", run("FALL"));
    EXPECT_EQ("CRASH failed: no luck", run("CRASH"));
    EXPECT_EQ("", variable("CMDNAMES"));
    EXPECT_FALSE(core.commands().isRunning());
}

TEST_F(Commands, ModulesAreAnsweredFromTheRestOfTheLine)
{
    int number = 0;
    QString word;
    int status = 0;
    addCommand("ASK", [&](OdEdCommandContext*) {
        EXPECT_EQ(kest::kNormal, getIOManagerInterface()->getInt(QStringLiteral("n"), number));
        EXPECT_EQ(kest::kNormal, getIOManagerInterface()->getString(QStringLiteral("s"), word));
        status = getIOManagerInterface()->getString(QStringLiteral("last"), word);
    });
    EXPECT_EQ("", run("ASK 42 \"two words\" \"\""));
    EXPECT_EQ(42, number);
    EXPECT_EQ("two words", word.toStdString());
    EXPECT_EQ(kest::kNone, status);
}

TEST_F(Commands, AModulesQuestionWithoutAnswerMakesAScriptsCommandFail)
{
    int number = 5;
    int status = 0;
    addCommand("ASK", [&](OdEdCommandContext*) {
        status = getIOManagerInterface()->getInt(QStringLiteral("How many:"), number);
    });
    EXPECT_EQ("\"How many:\" is asked, and the line holds no answer.", run("ASK"));
    EXPECT_EQ(kest::kCancel, status);
    EXPECT_EQ("An integer is needed; \"x\" is none.", run("ASK x"));
    EXPECT_EQ(kest::kError, status);
    EXPECT_EQ(5, number);
}

TEST_F(Commands, APersonIsAskedAgainUntilTheAnswerIsAnInteger)
{
    frontEnd.interactive = true;
    frontEnd.answers = {QStringLiteral("many"), QStringLiteral("7")};
    int number = 0;
    addCommand("ASK", [&](OdEdCommandContext*) {
        EXPECT_EQ(kest::kNormal, getIOManagerInterface()->getInt(QStringLiteral("n:"), number));
    });
    EXPECT_EQ("", run("ASK"));
    EXPECT_EQ(7, number);
    EXPECT_EQ(strings({"n:", "n:"}), frontEnd.prompts);
    EXPECT_EQ(strings({"An integer is needed; \"many\" is none."}), frontEnd.printed);
}

TEST_F(Commands, QueuedStringsStartACommandAndAnswerIt)
{
    int number = -1;
    addCommand("MARKER", [&](OdEdCommandContext*) {
        EXPECT_EQ(kest::kNormal, getIOManagerInterface()->getInt(QString(), number));
    });
    for (const char* text : {"^C^C^C^P", "MARKER", "1", "^P"})
        core.documents().sendStringToExecute(QLatin1String(text));
    const auto outcomes = core.commands().drainQueue();
    ASSERT_EQ(1u, outcomes.size());
    EXPECT_TRUE(outcomes[0].isDone());
    EXPECT_EQ(1, number);
    EXPECT_TRUE(core.queue().isEmpty());
}

TEST_F(Commands, AQueuedCancelEndsTheQuestionAndItsTextRunsAfterwards)
{
    open(TestDrawing());
    int status = 0;
    addCommand("ASK", [&](OdEdCommandContext*) {
        core.documents().sendStringToExecute(QStringLiteral("^C^CREGEN "));
        int number = 0;
        frontEnd.interactive = true;
        status = getIOManagerInterface()->getInt(QStringLiteral("n"), number);
    });
    EXPECT_EQ("", run("ASK"));
    EXPECT_EQ(kest::kCancel, status);
    EXPECT_TRUE(frontEnd.calls.empty());
    EXPECT_EQ(1u, core.commands().drainQueue().size());
    EXPECT_EQ(std::vector<std::string>{"regen"}, frontEnd.calls);
}

TEST_F(Commands, QueuedStringsWaitForTheRunningCommand)
{
    open(TestDrawing());
    addCommand("QUEUE", [&](OdEdCommandContext*) {
        core.documents().sendStringToExecute(QStringLiteral("REGEN"));
        EXPECT_TRUE(core.commands().drainQueue().empty());
        EXPECT_TRUE(frontEnd.calls.empty());
    });
    EXPECT_EQ("", run("QUEUE"));
    EXPECT_EQ(1u, core.commands().drainQueue().size());
    EXPECT_EQ(std::vector<std::string>{"regen"}, frontEnd.calls);
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

TEST_F(Commands, AnAnswerThatCallsATransparentCommandRunsItAndAsksAgain)
{
    frontEnd.interactive = true;
    frontEnd.answers = {QStringLiteral("'LWUNITS 0"), QStringLiteral("'tis")};
    QString word;
    addCommand("ASK", [&](OdEdCommandContext*) {
        EXPECT_EQ(kest::kNormal, getIOManagerInterface()->getString(QStringLiteral("s"), word));
    });
    EXPECT_EQ("", run("ASK"));
    EXPECT_EQ("'tis", word.toStdString());
    EXPECT_EQ("0", variable("LWUNITS"));
}

TEST_F(Commands, OneUndoTakesBackAWholeCommand)
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

TEST_F(Commands, PaletteCommandsOpenNoUndoRecord)
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

TEST_F(Commands, UndoAndRedoTakeCounts)
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

TEST_F(Commands, APersonIsAskedForTheNewValueAndMayKeepTheOld)
{
    frontEnd.interactive = true;
    frontEnd.answers = {QString(), QStringLiteral("0")};
    EXPECT_EQ("", run("LWUNITS"));
    EXPECT_EQ("1", variable("LWUNITS"));
    EXPECT_EQ("", run("LWUNITS"));
    EXPECT_EQ("0", variable("LWUNITS"));
    EXPECT_EQ(strings({"New value for LWUNITS <1>:", "New value for LWUNITS <1>:"}),
              frontEnd.prompts);
    EXPECT_EQ("*Cancel*", run("LWUNITS"));
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
    EXPECT_EQ("LAYOUT knows Set and ?; \"New\" is not known.", run("LAYOUT New"));
}

TEST_F(Commands, ZoomKnowsTheExtents)
{
    open(TestDrawing());
    EXPECT_EQ("", run("ZOOM E"));
    EXPECT_EQ("", run("ZOOM"));
    EXPECT_EQ("ZOOM knows Extents; \"W\" is not known.", run("ZOOM W"));
    EXPECT_EQ((std::vector<std::string>{"zoom extents", "zoom extents"}), frontEnd.calls);
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

TEST_F(Commands, AValueThatIsRefusedIsToldAndAskedForAgain)
{
    frontEnd.interactive = true;
    frontEnd.answers = {QStringLiteral("7"), QStringLiteral("mm"), QStringLiteral("0")};
    EXPECT_EQ("", run("LWUNITS"));
    EXPECT_EQ(strings({"LWUNITS takes an integer from 0 to 1; 7 is out of range.",
                       "LWUNITS takes an integer from 0 to 1; \"mm\" is none."}),
              frontEnd.printed);
    EXPECT_EQ("0", variable("LWUNITS"));
}

TEST_F(Commands, VariablesAreFoundWithAnUnderscoreToo)
{
    EXPECT_EQ("", run("_LWUNITS 0"));
    EXPECT_EQ("0", variable("LWUNITS"));
    EXPECT_EQ("There is no command \"__LWUNITS\".", run("__LWUNITS 0"));
}

TEST_F(Commands, ModulesAskForKeywords)
{
    int index = -1;
    int status = 0;
    addCommand("CHOOSE", [&](OdEdCommandContext*) {
        status = getIOManagerInterface()->getKeyword(QStringLiteral("Side"),
                                                     strings({"Left", "Right", "NOne"}), index);
    });
    EXPECT_EQ("", run("CHOOSE no"));
    EXPECT_EQ(kest::kNormal, status);
    EXPECT_EQ(2, index);
    EXPECT_EQ("", run("CHOOSE \"\""));
    EXPECT_EQ(kest::kNone, status);
    EXPECT_EQ("One of Left, Right, NOne is needed; \"up\" is none.", run("CHOOSE up"));
    EXPECT_EQ(kest::kError, status);
    frontEnd.interactive = true;
    frontEnd.answers = {QStringLiteral("up"), QStringLiteral("_L"), std::nullopt};
    EXPECT_EQ("", run("CHOOSE"));
    EXPECT_EQ(0, index);
    EXPECT_EQ("", run("CHOOSE"));
    EXPECT_EQ(kest::kCancel, status);
    EXPECT_EQ(
        strings({"Side [Left/Right/NOne]:", "Side [Left/Right/NOne]:", "Side [Left/Right/NOne]:"}),
        frontEnd.prompts);
}

TEST_F(Commands, ModulesReadDrawingsWithoutOpeningThem)
{
    const QString file =
        TestDrawing().add({.name = "Other"}).writeTo(folder.path(), QStringLiteral("o.dxf"));
    std::unique_ptr<OdDbDatabase> drawing;
    QString why;
    EXPECT_EQ(kest::kNormal, getIOManagerInterface()->openDrawing(file, drawing, why));
    ASSERT_TRUE(drawing);
    EXPECT_TRUE(drawing->layerTable().has(QStringLiteral("Other")));
    EXPECT_EQ(0, core.documents().documentCount());
    std::unique_ptr<OdDbDatabase> none;
    EXPECT_EQ(kest::kError, getIOManagerInterface()->openDrawing(path("absent.dxf"), none, why));
    EXPECT_FALSE(none);
    EXPECT_TRUE(why.contains(QStringLiteral("absent.dxf"))) << why.toStdString();
}

TEST_F(Commands, AQueuedCancelEndsAllThatARunningCommandAsks)
{
    std::vector<int> statuses;
    int answer = -1;
    addCommand("MARKER", [&](OdEdCommandContext*) {
        EXPECT_EQ(kest::kNormal, getIOManagerInterface()->getInt(QString(), answer));
    });
    addCommand("STUBBORN", [&](OdEdCommandContext*) {
        frontEnd.interactive = true;
        for (const char* text : {"^C^C^C^P", "MARKER", "0", "^P"})
            core.documents().sendStringToExecute(QLatin1String(text));
        QString word;
        for (int i = 0; i < 3; ++i)
            statuses.push_back(getIOManagerInterface()->getString(QStringLiteral("more"), word));
    });
    EXPECT_EQ("", run("STUBBORN rest"));
    // What stood on its line is answered first; the cancel holds for the rest.
    EXPECT_EQ((std::vector<int>{kest::kNormal, kest::kCancel, kest::kCancel}), statuses);
    EXPECT_EQ(1u, core.commands().drainQueue().size());
    EXPECT_EQ(0, answer);
    EXPECT_TRUE(frontEnd.prompts.isEmpty());
}

TEST_F(Commands, WhatModulesRaiseIsAFailureWhateverItIs)
{
    addCommand("ODD", [](OdEdCommandContext*) { throw 42; });
    EXPECT_EQ("ODD failed.", run("ODD"));
    EXPECT_FALSE(core.commands().isRunning());
}

TEST_F(Commands, WhatAFailedCommandDidIsOneUndoStep)
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

TEST_F(Commands, UndoGoesBackToMarks)
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

TEST_F(Commands, UndoneMarksAreGone)
{
    open(TestDrawing().add({.name = "A"}));
    for (const char* line :
         {"CLAYER A", "LWDISPLAY 1", "UNDO Mark", "UNDO 2", "LTSCALE 2", "LTSCALE 3", "LTSCALE 4"})
        EXPECT_EQ("", run(line)) << line;
    EXPECT_EQ("0", variable("UNDOMARKS"));
}

TEST_F(Commands, UndoCannotBeSwitchedOff)
{
    open(TestDrawing());
    EXPECT_EQ("", run("UNDO Control All"));
    EXPECT_EQ("All changes can be undone; that cannot be switched off.", run("UNDO C None"));
    EXPECT_EQ("5", variable("UNDOCTL"));
}

TEST_F(Commands, AGroupIsOneStepNamedGroupAndUndoctlTellsItWhileCommandsRun)
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
