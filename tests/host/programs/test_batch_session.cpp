#include "database/drawing/OdDbDatabase.h"
#include "host/application/HostCore.h"
#include "host/batch/BatchFrontEnd.h"
#include "host/batch/BatchSession.h"
#include "host/support/TestDrawing.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
/// A stream in memory that a session writes to.
class Stream
{
public:
    Stream() = default;
    ~Stream() { std::fclose(m_file); }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    std::FILE* file() const { return m_file; }
    std::string text() const
    {
        std::string result;
        std::fflush(m_file);
        std::rewind(m_file);
        for (int c = std::fgetc(m_file); c != EOF; c = std::fgetc(m_file))
            result.push_back(static_cast<char>(c));
        return result;
    }

private:
    std::FILE* m_file = std::tmpfile();
};
} // namespace

class BatchRun : public testing::Test
{
protected:
    ExitCode run(QByteArray script)
    {
        QBuffer buffer(&script);
        buffer.open(QIODevice::ReadOnly);
        return session.run(buffer, QStringLiteral("night.scr"));
    }

    QTemporaryDir folder;
    Stream output;
    Stream errors;
    BatchFrontEnd frontEnd{output.file()};
    HostCore core{frontEnd, folder.path()};
    BatchSession session{core, frontEnd, errors.file()};
};

TEST_F(BatchRun, PrintsToItsOutputAndEndsWithZero)
{
    EXPECT_EQ(ExitCode::Ok, run("NEW\nCLAYER   ; which one\n\nLWUNITS 0\nLWUNITS\n"));
    EXPECT_EQ("CLAYER = \"0\"\nLWUNITS = 0\n", output.text());
    EXPECT_EQ("", errors.text());
}

TEST_F(BatchRun, GoesOnAfterAFailedCommandAndNamesScriptAndLine)
{
    EXPECT_EQ(ExitCode::CommandFailed, run("FROB\nNEW\nLWDISPLAY 7\nLWDISPLAY 1\nDBMOD\n"));
    EXPECT_EQ("night.scr:1: There is no command \"FROB\".\n"
              "night.scr:3: LWDISPLAY takes an integer from 0 to 1; 7 is out of range.\n",
              errors.text());
    EXPECT_EQ("DBMOD = 1 (cannot be set)\n", output.text());
}

TEST_F(BatchRun, TheWorstThatHappenedIsTheExitCode)
{
    const QByteArray badOpen = "OPEN /no/such/file.dxf\n";
    const QByteArray badSave = "NEW\nSAVEAS /no/such/folder/a.dxf\n";
    EXPECT_EQ(ExitCode::BadInput, run("FROB\n" + badOpen));
    EXPECT_EQ(ExitCode::CannotWrite, run(badSave + badOpen + "FROB\n"));
    EXPECT_EQ(ExitCode::CommandFailed, run("U\nREGEN\n"));
}

TEST_F(BatchRun, ALineThatCannotBeReadEndsTheScript)
{
    EXPECT_EQ(ExitCode::BadInput, run("NEW\nCLAYER \xFF\nCLAYER\n"));
    EXPECT_EQ("night.scr:2: The line is not UTF-8 text. The script ends here.\n", errors.text());
    EXPECT_EQ("", output.text());
}

TEST_F(BatchRun, QuitEndsTheScript)
{
    EXPECT_EQ(ExitCode::Ok, run("NEW\nQUIT\nFROB\n"));
    EXPECT_EQ("", errors.text());
}

TEST_F(BatchRun, ScriptsAreSeenInCmdactiveWhileTheirCommandsRun)
{
    EXPECT_EQ(ExitCode::Ok, run("CMDACTIVE\n"));
    EXPECT_EQ("CMDACTIVE = 5 (cannot be set)\n", output.text());
    EXPECT_FALSE(core.commandState().isScript());
}

TEST_F(BatchRun, AScriptEditsAndSavesADrawing)
{
    const QString plan = TestDrawing()
                             .add({.name = "Wände außen"})
                             .writeTo(folder.path(), QStringLiteral("plan.dxf"));
    EXPECT_EQ(ExitCode::Ok, session.openDrawing(plan));
    EXPECT_EQ(ExitCode::Ok, run("CLAYER \"Wände außen\"\nSAVE\nCLOSE\n"));
    EXPECT_EQ(ExitCode::Ok, session.openDrawing(plan));
    EXPECT_EQ(ExitCode::Ok, run("CLAYER\n"));
    EXPECT_EQ("CLAYER = \"Wände außen\"\n", output.text());
}

TEST_F(BatchRun, UnsavedEditsOfAnEarlierRunAreTold)
{
    const QString journal = folder.filePath(QStringLiteral("recovery/gone-1.journal"));
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("recovery")));
    QFile file(journal);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    session.start();
    EXPECT_EQ("kest: The recovery file " + journal.toStdString()
                  + " holds edits that were not saved; start kest with a window to recover "
                    "them.\n",
              errors.text());
    EXPECT_TRUE(QFile::exists(journal));
}

TEST_F(BatchRun, AScriptThatMayNotSaveSaysWhere)
{
    const QString plan = TestDrawing().writeTo(folder.path(), QStringLiteral("plan.dxf"));
    EXPECT_EQ(ExitCode::Ok, session.openDrawing(plan));
    TestDrawing().add({.name = "Theirs"}).writeTo(folder.path(), QStringLiteral("plan.dxf"));
    EXPECT_EQ(ExitCode::CannotWrite, run("SAVE\n"));
    EXPECT_EQ("night.scr:1: " + plan.toStdString()
                  + " was changed by another program since it was opened. SAVE Overwrite replaces "
                    "it, SAVEAS writes to another file.\n",
              errors.text());
    EXPECT_EQ(ExitCode::Ok, run("SAVE Overwrite\n"));
}

TEST_F(BatchRun, AScriptOrDrawingThatIsNotThereIsBadInput)
{
    EXPECT_EQ(ExitCode::BadInput, session.runFile(folder.filePath(QStringLiteral("no.scr"))));
    EXPECT_EQ(ExitCode::BadInput, session.runFile(folder.path()));
    EXPECT_EQ(ExitCode::BadInput, session.openDrawing(folder.filePath(QStringLiteral("no.dxf"))));
    const std::string text = errors.text();
    const std::string place = folder.path().toStdString();
    EXPECT_NE(std::string::npos,
              text.find("kest: The script " + place
                        + "/no.scr cannot be read: No such file or directory.\n"));
    EXPECT_NE(std::string::npos,
              text.find("kest: The script " + place + " cannot be read: It is a folder.\n"));
}

TEST_F(BatchRun, AScriptIsReadFromAFile)
{
    QFile file(folder.filePath(QStringLiteral("a.scr")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("LWUNITS\nFROB\n");
    file.close();
    EXPECT_EQ(ExitCode::CommandFailed, session.runFile(file.fileName()));
    EXPECT_EQ("LWUNITS = 1\n", output.text());
    EXPECT_EQ(file.fileName().toStdString() + ":2: There is no command \"FROB\".\n", errors.text());
}
