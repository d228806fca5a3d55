#include "host/support/HostFixture.h"

#include <QDir>

namespace {
using CloseAnswer = HostFrontEnd::CloseAnswer;

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
} // namespace

class FileCommands : public HostFixture
{
protected:
    CommandOutcome::Kind kind(const QString& line) { return core.commands().run(line).kind; }
    HostDocument* current() { return core.documents().curDocument(); }
    QString quoted(const char* name) const
    {
        return QLatin1Char('"') + path(name) + QLatin1Char('"');
    }

    using Kind = CommandOutcome::Kind;
};

TEST_F(FileCommands, OpenTakesItsFileFromTheLine)
{
    TestDrawing().writeTo(folder.path(), QStringLiteral("a plan.dxf"));
    EXPECT_EQ(Kind::Done, kind(QStringLiteral("OPEN ") + quoted("a plan.dxf")));
    ASSERT_TRUE(current());
    EXPECT_EQ(path("a plan.dxf"), current()->fileName());
    EXPECT_EQ(QStringList{path("a plan.dxf")}, frontEnd.used);
}

TEST_F(FileCommands, OpenIsBadInputWhenTheFileCannotBeRead)
{
    EXPECT_EQ(Kind::BadInput, kind(QStringLiteral("OPEN ") + quoted("absent.dxf")));
    EXPECT_EQ(Kind::BadInput,
              kind(QStringLiteral("OPEN ") + QLatin1Char('"') + folder.path() + QLatin1Char('"')));
    EXPECT_EQ(Kind::BadInput, kind(QStringLiteral("OPEN \"\"")));
    EXPECT_EQ(Kind::Failed, kind(QStringLiteral("OPEN")));
    EXPECT_EQ(nullptr, current());
}

TEST_F(FileCommands, APersonPicksTheFileInADialog)
{
    frontEnd.interactive = true;
    EXPECT_EQ(Kind::Cancelled, kind(QStringLiteral("OPEN")));
    frontEnd.chosenFile = TestDrawing().writeTo(folder.path(), QStringLiteral("plan.dxf"));
    EXPECT_EQ(Kind::Done, kind(QStringLiteral("OPEN")));
    EXPECT_EQ(frontEnd.chosenFile, current()->fileName());
    EXPECT_TRUE(frontEnd.prompts.isEmpty());
}

TEST_F(FileCommands, WithoutFileDialogsThePathIsAskedForInTheCommandLine)
{
    frontEnd.interactive = true;
    frontEnd.answers = {TestDrawing().writeTo(folder.path(), QStringLiteral("plan.dxf"))};
    EXPECT_EQ(Kind::Done, kind(QStringLiteral("FILEDIA 0")));
    EXPECT_EQ(Kind::Done, kind(QStringLiteral("OPEN")));
    EXPECT_EQ(QStringList{QStringLiteral("File to open:")}, frontEnd.prompts);
}

TEST_F(FileCommands, NewDrawingsAreNumbered)
{
    EXPECT_EQ(Kind::Done, kind(QStringLiteral("NEW")));
    EXPECT_EQ("Drawing1", current()->displayName().toStdString());
    EXPECT_EQ(Kind::Done, kind(QStringLiteral("NEW")));
    EXPECT_EQ("Drawing2", current()->displayName().toStdString());
    EXPECT_FALSE(current()->hasFile());
}

TEST_F(FileCommands, SavingAnUntouchedDrawingGivesTheSameBytes)
{
    HostDocument& document = open(TestDrawing().add({.name = "Wall"}));
    const QByteArray before = contents(document.fileName());
    EXPECT_EQ("", run("SAVE"));
    EXPECT_EQ(before, contents(document.fileName()));
}

TEST_F(FileCommands, SaveAsGivesTheDrawingItsNewFileAndLeavesTheOld)
{
    HostDocument& document = open(TestDrawing().add({.name = "Wall"}));
    const QByteArray before = contents(path("plan.dxf"));
    EXPECT_EQ("", run("CLAYER Wall"));
    EXPECT_EQ(Kind::Done, kind(QStringLiteral("SAVEAS ") + quoted("other")));
    EXPECT_EQ(path("other.dxf"), document.fileName());
    EXPECT_FALSE(document.isModified());
    EXPECT_EQ(before, contents(path("plan.dxf")));
    const auto written = frontEnd.readDrawingFile(path("other.dxf"));
    EXPECT_NE(written->getLayerZeroId(), written->getCLAYER());
}

TEST_F(FileCommands, SavingANewDrawingAsksForItsFile)
{
    kind(QStringLiteral("NEW"));
    EXPECT_EQ("\"File to save to:\" is asked, and the line holds no answer.", run("SAVE"));
    EXPECT_EQ(Kind::Done, kind(QStringLiteral("SAVE ") + quoted("first.dxf")));
    EXPECT_TRUE(current()->hasFile());
    frontEnd.interactive = true;
    EXPECT_EQ(Kind::Cancelled, kind(QStringLiteral("SAVEAS")));
    EXPECT_EQ(QStringList{path("first.dxf")}, frontEnd.suggestions);
}

TEST_F(FileCommands, AFileThatCannotBeWrittenIsToldAndTheDrawingStaysModified)
{
    HostDocument& document = open(TestDrawing().add({.name = "Wall"}));
    EXPECT_EQ("", run("CLAYER Wall"));
    EXPECT_EQ(Kind::CannotWrite, kind(QStringLiteral("SAVEAS ") + quoted("no/such/folder.dxf")));
    EXPECT_EQ(path("plan.dxf"), document.fileName());
    EXPECT_TRUE(document.isModified());
}

TEST_F(FileCommands, AFileThatIsOpenAsAnotherDrawingIsNotOverwritten)
{
    open(TestDrawing());
    kind(QStringLiteral("NEW"));
    const CommandOutcome outcome =
        core.commands().run(QStringLiteral("SAVEAS ") + quoted("plan.dxf"));
    EXPECT_EQ(Kind::CannotWrite, outcome.kind);
    EXPECT_EQ(path("plan.dxf")
                  + QStringLiteral(" is open as another drawing; close that one first."),
              outcome.sentence);
}

TEST_F(FileCommands, CloseDropsADrawingWithoutChangesAtOnce)
{
    open(TestDrawing());
    EXPECT_EQ("", run("CLOSE"));
    EXPECT_EQ(nullptr, current());
}

TEST_F(FileCommands, CloseAsksAboutChangesAndDoesAsAnswered)
{
    open(TestDrawing().add({.name = "Wall"}));
    run("CLAYER Wall");
    EXPECT_EQ("\"Save the changes to plan.dxf? [Yes/No/Cancel]:\" is asked, and the line holds no "
              "answer.",
              run("CLOSE"));
    EXPECT_EQ("One of Yes, No, Cancel is needed; \"maybe\" is none.", run("CLOSE maybe"));
    EXPECT_EQ("*Cancel*", run("CLOSE Cancel"));
    ASSERT_TRUE(current());
    EXPECT_EQ("", run("CLOSE y"));
    EXPECT_EQ(nullptr, current());
    const auto written = frontEnd.readDrawingFile(path("plan.dxf"));
    EXPECT_NE(written->getLayerZeroId(), written->getCLAYER());
}

TEST_F(FileCommands, CloseMayDropTheChanges)
{
    open(TestDrawing().add({.name = "Wall"}));
    const QByteArray before = contents(path("plan.dxf"));
    run("CLAYER Wall");
    EXPECT_EQ("", run("CLOSE No"));
    EXPECT_EQ(nullptr, current());
    EXPECT_EQ(before, contents(path("plan.dxf")));
}

TEST_F(FileCommands, ACloseWhoseSavingFailsKeepsTheDrawing)
{
    kind(QStringLiteral("NEW"));
    run("LWDISPLAY 1");
    EXPECT_EQ(Kind::CannotWrite, kind(QStringLiteral("CLOSE Yes ") + quoted("no/such/folder.dxf")));
    EXPECT_TRUE(current());
}

TEST_F(FileCommands, QuitAsksForEveryChangedDrawingAndEndsTheProgram)
{
    frontEnd.interactive = true;
    frontEnd.closeAnswer = CloseAnswer::Cancel;
    open(TestDrawing(), QStringLiteral("one.dxf"));
    run("LWDISPLAY 1");
    open(TestDrawing(), QStringLiteral("two.dxf"));
    EXPECT_EQ("*Cancel*", run("QUIT"));
    EXPECT_TRUE(frontEnd.calls.empty());
    EXPECT_EQ(QStringList{QStringLiteral("one.dxf")}, frontEnd.askedToSave);
    EXPECT_EQ(path("one.dxf"), current()->fileName());
    frontEnd.closeAnswer = CloseAnswer::Discard;
    EXPECT_EQ("", run("QUIT"));
    EXPECT_EQ(std::vector<std::string>{"quit"}, frontEnd.calls);
}

TEST_F(FileCommands, ACommandThatWaitsBehindACancelIsNoAnswerToClose)
{
    frontEnd.interactive = true;
    frontEnd.closeAnswer = CloseAnswer::Discard;
    open(TestDrawing());
    run("LWDISPLAY 1");
    core.documents().sendStringToExecute(QStringLiteral("^C^CNEW"));
    EXPECT_EQ("", run("CLOSE"));
    EXPECT_EQ(QStringList{QStringLiteral("plan.dxf")}, frontEnd.askedToSave);
    EXPECT_EQ(nullptr, current());
    EXPECT_EQ(std::size_t(1), core.commands().drainQueue().size());
    EXPECT_TRUE(current());
}
