#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/documents/ChangedFiles.h"
#include "host/support/HostFixture.h"
#include "host/support/OtherProcess.h"
#include "io/files/DrawingLock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
using Kind = CommandOutcome::Kind;
using ChangeAnswer = HostFrontEnd::ChangeAnswer;
using LockAnswer = HostFrontEnd::LockAnswer;

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

void put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}
} // namespace

class DocumentSafety : public HostFixture
{
protected:
    Kind kind(const char* line) { return core.commands().run(QString::fromUtf8(line)).kind; }
    HostDocument& openPlan() { return open(TestDrawing().add({.name = "Wall"})); }
    HostDocument* current() { return core.documents().curDocument(); }
    std::string plan() const { return path("plan.dxf").toStdString(); }
    /// As another program would: a new file under the old name.
    void changeOutside()
    {
        put(path("theirs.dxf"), TestDrawing().add({.name = "Theirs"}).bytes());
        ASSERT_TRUE(QFile::remove(path("plan.dxf")));
        ASSERT_TRUE(QFile::rename(path("theirs.dxf"), path("plan.dxf")));
    }
    static bool hasLayer(const HostDocument& document, const char* name)
    {
        return document.database()->layerTable().has(QString::fromLatin1(name));
    }
    void check() { ChangedFiles(core.documents(), core.files(), frontEnd).check(); }
};

// Backups

TEST_F(DocumentSafety, TheFirstSaveOfASessionKeepsTheOldFile)
{
    openPlan();
    const QByteArray before = contents(path("plan.dxf"));
    run("CLAYER Wall");
    EXPECT_EQ("", run("SAVE"));
    EXPECT_EQ(before, contents(path("plan.dxf~")));
    EXPECT_NE(before, contents(path("plan.dxf")));
    run("LWDISPLAY 1");
    EXPECT_EQ("", run("SAVE"));
    EXPECT_EQ(before, contents(path("plan.dxf~")));
}

TEST_F(DocumentSafety, TheBackupIsKeptOncePerFileThatIsSavedTo)
{
    openPlan();
    put(path("other.dxf"), "other");
    EXPECT_EQ("", run("SAVE"));
    EXPECT_EQ(Kind::Done,
              core.commands().run(QStringLiteral("SAVEAS \"%1\"").arg(path("other.dxf"))).kind);
    EXPECT_EQ("other", contents(path("other.dxf~")));
    EXPECT_EQ("", run("SAVE"));
    EXPECT_EQ("other", contents(path("other.dxf~")));
}

TEST_F(DocumentSafety, AFileThatTheSessionMadeHasNoBackup)
{
    openPlan();
    EXPECT_EQ(Kind::Done,
              core.commands().run(QStringLiteral("SAVEAS \"%1\"").arg(path("new.dxf"))).kind);
    EXPECT_EQ("", run("SAVE"));
    EXPECT_FALSE(QFileInfo::exists(path("new.dxf~")));
}

TEST_F(DocumentSafety, TheUserMayDoWithoutBackups)
{
    openPlan();
    EXPECT_EQ("", run("ISAVEBAK 0"));
    EXPECT_EQ("", run("SAVE"));
    EXPECT_FALSE(QFileInfo::exists(path("plan.dxf~")));
    EXPECT_EQ("", run("ISAVEBAK 1"));
    EXPECT_EQ("", run("SAVE"));
    EXPECT_FALSE(QFileInfo::exists(path("plan.dxf~")))
        << "What is on the disk is of this session already.";
}

// Reports

TEST_F(DocumentSafety, ASaveTellsWhatChangedOnTheLineAndInTheStatusBar)
{
    frontEnd.interactive = true;
    HostDocument& document = openPlan();
    document.database()->startUndoRecord();
    document.database()
        ->getLayerZeroId()
        .safeOpenObject<OdDbLayerTableRecord>(OdDb::kForWrite)
        ->setIsLocked(true);
    EXPECT_EQ("", run("SAVE"));
    EXPECT_TRUE(frontEnd.status.startsWith(QStringLiteral("1 layer record changed, all other ")))
        << frontEnd.status.toStdString();
    EXPECT_TRUE(frontEnd.printed.contains(frontEnd.status));
    EXPECT_EQ("", run("SAVE"));
    EXPECT_TRUE(frontEnd.status.startsWith(
        QStringLiteral("1 layer record changed since the drawing was opened, ")))
        << frontEnd.status.toStdString();
}

TEST_F(DocumentSafety, ScriptsAreToldOfWhatWentWrongOnly)
{
    openPlan();
    EXPECT_EQ("", run("SAVE"));
    EXPECT_EQ(QStringList(), frontEnd.printed);
    ASSERT_TRUE(QFile::remove(path("plan.dxf")));
    EXPECT_EQ("", run("SAVE"));
    EXPECT_EQ(QStringList{path("plan.dxf")
                          + QStringLiteral(" was deleted or moved meanwhile; it is written anew.")},
              frontEnd.printed);
}

// Locks

TEST_F(DocumentSafety, AnOpenDrawingIsLockedUntilItIsClosed)
{
    const QString lock = path(".plan.dxf.lock");
    openPlan();
    EXPECT_TRUE(QFileInfo::exists(lock));
    EXPECT_EQ("", run("SAVE"));
    EXPECT_TRUE(QFileInfo::exists(lock));
    EXPECT_EQ("", run("CLOSE"));
    EXPECT_FALSE(QFileInfo::exists(lock));
}

TEST_F(DocumentSafety, SaveAsMovesTheLockToTheNewFile)
{
    openPlan();
    EXPECT_EQ(Kind::Done,
              core.commands().run(QStringLiteral("SAVEAS \"%1\"").arg(path("new.dxf"))).kind);
    EXPECT_FALSE(QFileInfo::exists(path(".plan.dxf.lock")));
    EXPECT_TRUE(QFileInfo::exists(path(".new.dxf.lock")));
    core.shutDown();
    EXPECT_FALSE(QFileInfo::exists(path(".new.dxf.lock")));
}

TEST_F(DocumentSafety, ASaveAsThatFailsKeepsTheLockAndMakesNoOther)
{
    openPlan();
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("taken.dxf")));
    EXPECT_EQ(Kind::CannotWrite,
              core.commands().run(QStringLiteral("SAVEAS \"%1\"").arg(path("taken.dxf"))).kind);
    EXPECT_TRUE(QFileInfo::exists(path(".plan.dxf.lock")));
    EXPECT_FALSE(QFileInfo::exists(path(".taken.dxf.lock")));
}

TEST_F(DocumentSafety, ADrawingInUseMayBeOpenedReadOnly)
{
    frontEnd.interactive = true;
    frontEnd.lockAnswer = LockAnswer::ReadOnly;
    TestDrawing().writeTo(folder.path(), QStringLiteral("plan.dxf"));
    const OtherProcess other(path("plan.dxf"));
    ASSERT_TRUE(other.holds());
    HostDocument& document = core.files().open(path("plan.dxf"));
    ASSERT_EQ(1, frontEnd.lockQuestions.size());
    EXPECT_TRUE(frontEnd.lockQuestions[0].startsWith(
        path("plan.dxf") + QStringLiteral(" process %1 on ").arg(other.id())));
    EXPECT_TRUE(document.isReadOnly());
    const QByteArray before = contents(path("plan.dxf"));
    run("LWDISPLAY 1");
    EXPECT_EQ(plan() + " is open read-only. SAVEAS writes the drawing to another file.",
              run("SAVE"));
    EXPECT_EQ(before, contents(path("plan.dxf")));
    frontEnd.chosenFile = path("copy.dxf");
    EXPECT_EQ("", run("SAVEAS"));
    EXPECT_FALSE(document.isReadOnly());
    EXPECT_EQ("", run("SAVE"));
}

TEST_F(DocumentSafety, AReadOnlyDrawingIsNotSavedAsItself)
{
    frontEnd.interactive = true;
    frontEnd.lockAnswer = LockAnswer::ReadOnly;
    TestDrawing().writeTo(folder.path(), QStringLiteral("plan.dxf"));
    const OtherProcess other(path("plan.dxf"));
    ASSERT_TRUE(other.holds());
    core.files().open(path("plan.dxf"));
    frontEnd.chosenFile = path("plan.dxf");
    const CommandOutcome outcome = core.commands().run(QStringLiteral("SAVEAS"));
    EXPECT_EQ(Kind::CannotWrite, outcome.kind);
    EXPECT_TRUE(outcome.sentence.startsWith(
        path("plan.dxf") + QStringLiteral(" is being edited by process %1 on ").arg(other.id())))
        << outcome.sentence.toStdString();
}

TEST_F(DocumentSafety, ADrawingInUseMayBeOpenedAndSavedAllTheSame)
{
    frontEnd.interactive = true;
    frontEnd.lockAnswer = LockAnswer::OpenAnyway;
    TestDrawing().writeTo(folder.path(), QStringLiteral("plan.dxf"));
    const OtherProcess other(path("plan.dxf"));
    ASSERT_TRUE(other.holds());
    EXPECT_FALSE(core.files().open(path("plan.dxf")).isReadOnly());
    EXPECT_EQ("", run("SAVE"));
}

TEST_F(DocumentSafety, ADrawingInUseMayBeLeftAlone)
{
    frontEnd.interactive = true;
    TestDrawing().writeTo(folder.path(), QStringLiteral("plan.dxf"));
    const OtherProcess other(path("plan.dxf"));
    ASSERT_TRUE(other.holds());
    frontEnd.chosenFile = path("plan.dxf");
    EXPECT_EQ("*Cancel*", run("OPEN"));
    EXPECT_EQ(nullptr, current());
}

TEST_F(DocumentSafety, AScriptOpensADrawingInUseAndDoesNotSaveOverIt)
{
    TestDrawing().writeTo(folder.path(), QStringLiteral("plan.dxf"));
    {
        const OtherProcess other(path("plan.dxf"));
        ASSERT_TRUE(other.holds());
        core.files().open(path("plan.dxf"));
        const CommandOutcome outcome = core.commands().run(QStringLiteral("SAVE"));
        EXPECT_EQ(Kind::CannotWrite, outcome.kind);
        EXPECT_TRUE(outcome.sentence.endsWith(QStringLiteral("; it is not overwritten.")))
            << outcome.sentence.toStdString();
    }
    EXPECT_EQ("", run("SAVE")) << "The other process has ended.";
}

// Files that somebody else changed

TEST_F(DocumentSafety, AScriptDoesNotOverwriteWhatChangedUnlessItSaysSo)
{
    openPlan();
    run("CLAYER Wall");
    changeOutside();
    const QByteArray theirs = contents(path("plan.dxf"));
    EXPECT_EQ(plan()
                  + " was changed by another program since it was opened. SAVE Overwrite replaces "
                    "it, SAVEAS writes to another file.",
              run("SAVE"));
    EXPECT_EQ(theirs, contents(path("plan.dxf")));
    EXPECT_TRUE(current()->isModified());
    EXPECT_EQ("", run("SAVE overwrite"));
    EXPECT_EQ(theirs, contents(path("plan.dxf~")));
    EXPECT_FALSE(current()->isModified());
    EXPECT_EQ("", run("SAVE Overwrite")) << "Scripts need not know whether it changed.";
    EXPECT_EQ("SAVE has no use for the answer \"Replace\".", run("SAVE Replace"));
}

TEST_F(DocumentSafety, RewritingTheFileInPlaceIsAChangeToo)
{
    HostDocument& document = openPlan();
    EXPECT_EQ(DocumentFiles::Change::None, DocumentFiles::changeOf(document));
    QFile file(path("plan.dxf"));
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write(" ");
    file.close();
    EXPECT_EQ(DocumentFiles::Change::Changed, DocumentFiles::changeOf(document));
}

TEST_F(DocumentSafety, APersonIsAskedBeforeASaveOverAChangedFile)
{
    frontEnd.interactive = true;
    openPlan();
    run("CLAYER Wall");
    changeOutside();
    const QByteArray theirs = contents(path("plan.dxf"));
    EXPECT_EQ("*Cancel*", run("SAVE"));
    EXPECT_EQ(QStringList{QStringLiteral("plan.dxf")}, frontEnd.changeQuestions);
    EXPECT_EQ(theirs, contents(path("plan.dxf")));
    frontEnd.changeAnswer = ChangeAnswer::SaveAs;
    frontEnd.chosenFile = path("mine.dxf");
    EXPECT_EQ("", run("SAVE"));
    EXPECT_EQ(path("mine.dxf"), current()->fileName());
    EXPECT_EQ(theirs, contents(path("plan.dxf")));
}

TEST_F(DocumentSafety, APersonMayOverwriteAChangedFile)
{
    frontEnd.interactive = true;
    frontEnd.changeAnswer = ChangeAnswer::Overwrite;
    openPlan();
    run("CLAYER Wall");
    changeOutside();
    const QByteArray theirs = contents(path("plan.dxf"));
    EXPECT_EQ("", run("SAVE"));
    EXPECT_NE(theirs, contents(path("plan.dxf")));
    EXPECT_EQ("", run("SAVE"));
    EXPECT_EQ(1, frontEnd.changeQuestions.size());
}

TEST_F(DocumentSafety, ADrawingWithoutChangesIsReadAgainWhereTheUserSaysSo)
{
    frontEnd.interactive = true;
    openPlan();
    check();
    EXPECT_TRUE(frontEnd.reloadQuestions.isEmpty());
    changeOutside();
    frontEnd.reloads = true;
    check();
    EXPECT_EQ(QStringList{QStringLiteral("plan.dxf")}, frontEnd.reloadQuestions);
    ASSERT_EQ(1, core.documents().documentCount());
    EXPECT_TRUE(hasLayer(*current(), "Theirs"));
    EXPECT_FALSE(current()->isModified());
    EXPECT_TRUE(QFileInfo::exists(path(".plan.dxf.lock")));
    check();
    EXPECT_EQ(1, frontEnd.reloadQuestions.size());
    EXPECT_EQ("", run("SAVE"));
}

TEST_F(DocumentSafety, ADrawingThatIsKeptIsAskedAboutOncePerChange)
{
    frontEnd.interactive = true;
    openPlan();
    changeOutside();
    check();
    check();
    EXPECT_EQ(1, frontEnd.reloadQuestions.size());
    EXPECT_TRUE(hasLayer(*current(), "Wall"));
    changeOutside();
    check();
    EXPECT_EQ(2, frontEnd.reloadQuestions.size());
}

TEST_F(DocumentSafety, ADrawingWithChangesIsNoticedAndNotReadAgain)
{
    frontEnd.interactive = true;
    openPlan();
    run("CLAYER Wall");
    changeOutside();
    check();
    check();
    EXPECT_TRUE(frontEnd.reloadQuestions.isEmpty());
    EXPECT_EQ(QStringList{path("plan.dxf")
                          + QStringLiteral(" was changed by another program, and the drawing has "
                                           "unsaved changes. SAVE asks which of them to keep.")},
              frontEnd.notices);
}

TEST_F(DocumentSafety, AReloadThatFailsKeepsTheDrawing)
{
    frontEnd.interactive = true;
    frontEnd.reloads = true;
    HostDocument& document = openPlan();
    put(path("plan.dxf"), "no drawing");
    EXPECT_THROW(check(), OdError);
    EXPECT_EQ(&document, current());
    EXPECT_TRUE(QFileInfo::exists(path(".plan.dxf.lock")));
}

TEST_F(DocumentSafety, ADeletedFileIsToldOnceAndWrittenAnew)
{
    frontEnd.interactive = true;
    openPlan();
    frontEnd.printed.clear();
    ASSERT_TRUE(QFile::remove(path("plan.dxf")));
    check();
    check();
    EXPECT_EQ(QStringList{path("plan.dxf")
                          + QStringLiteral(" was deleted or moved by another program. SAVE writes "
                                           "it anew.")},
              frontEnd.printed);
    EXPECT_EQ("", run("SAVE"));
    EXPECT_TRUE(frontEnd.changeQuestions.isEmpty());
    EXPECT_TRUE(QFileInfo::exists(path("plan.dxf")));
}
