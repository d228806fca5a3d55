#include "database/tables/OdDbLayerTable.h"
#include "host/support/CommandFixture.h"
#include "sdk/IKestIOManager.h"
#include "sdk/KestStatus.h"

class CommandQuestions : public CommandFixture
{ };

TEST_F(CommandQuestions, ModulesAreAnsweredFromTheRestOfTheLine)
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

TEST_F(CommandQuestions, AModulesQuestionWithoutAnswerMakesAScriptsCommandFail)
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

TEST_F(CommandQuestions, APersonIsAskedAgainUntilTheAnswerIsAnInteger)
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

TEST_F(CommandQuestions, QueuedStringsStartACommandAndAnswerIt)
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

TEST_F(CommandQuestions, AQueuedCancelEndsTheQuestionAndItsTextRunsAfterwards)
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

TEST_F(CommandQuestions, QueuedStringsWaitForTheRunningCommand)
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

TEST_F(CommandQuestions, AnAnswerThatCallsATransparentCommandRunsItAndAsksAgain)
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

TEST_F(CommandQuestions, APersonIsAskedForTheNewValueAndMayKeepTheOld)
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

TEST_F(CommandQuestions, AValueThatIsRefusedIsToldAndAskedForAgain)
{
    frontEnd.interactive = true;
    frontEnd.answers = {QStringLiteral("7"), QStringLiteral("mm"), QStringLiteral("0")};
    EXPECT_EQ("", run("LWUNITS"));
    EXPECT_EQ(strings({"LWUNITS takes an integer from 0 to 1; 7 is out of range.",
                       "LWUNITS takes an integer from 0 to 1; \"mm\" is none."}),
              frontEnd.printed);
    EXPECT_EQ("0", variable("LWUNITS"));
}

TEST_F(CommandQuestions, ModulesAskForKeywords)
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

TEST_F(CommandQuestions, ModulesReadDrawingsWithoutOpeningThem)
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

TEST_F(CommandQuestions, AQueuedCancelEndsAllThatARunningCommandAsks)
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
