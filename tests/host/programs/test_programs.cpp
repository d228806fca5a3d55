#include "host/support/TestDrawing.h"
#include "support/ProgramRun.h"
#include "support/drawings/DwgCopy.h"
#include "support/drawings/SharedDrawings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// The programs themselves, each in a process of its own without any display. A program that
/// started the window system would end at once, since there is no such platform.
class Programs : public testing::Test
{
protected:
    Finished kest(QStringList arguments, const QByteArray& input = {})
    {
        arguments << QStringLiteral("--config") << folder.path();
        return runProgram(QStringLiteral(KEST_PROGRAM), arguments, input, environment);
    }
    Finished batch(const QByteArray& script, const QString& drawing = {})
    {
        QStringList arguments{QStringLiteral("--batch"), QStringLiteral("-")};
        if (!drawing.isEmpty())
            arguments << drawing;
        return kest(arguments, script);
    }
    QString house(const char* name = "house.dxf")
    {
        TestDrawing drawing;
        drawing.add({.name = "Wände", .flags = 4, .lineweight = 35});
        return drawing.writeTo(folder.path(), QString::fromUtf8(name));
    }

    QTemporaryDir folder;
    QProcessEnvironment environment;
};

TEST_F(Programs, HelpAndVersionNeedNoDisplay)
{
    const Finished help = kest({QStringLiteral("--help")});
    EXPECT_EQ(0, help.exitCode);
    EXPECT_EQ(0u, help.output.find("Usage: kest "));
    const Finished version = kest({QStringLiteral("--version")});
    EXPECT_EQ("kest " KEST_VERSION "\n", version.output);
    EXPECT_EQ(0, version.exitCode);
}

TEST_F(Programs, AnEmptyEnvironmentIsEnough)
{
    environment = QProcessEnvironment();
    environment.insert(QStringLiteral("HOME"), folder.path()); // else the parent's is inherited
    for (const char* option : {"--help", "--version"}) {
        const Finished done = kest({QString::fromUtf8(option)});
        EXPECT_EQ(0, done.exitCode) << option;
        EXPECT_EQ("", done.errors) << option;
    }
    EXPECT_EQ("LWUNITS = 1\n", batch("LWUNITS\n").output);
}

TEST_F(Programs, ADrawingComesFromStandardInput)
{
    QFile script(folder.filePath(QStringLiteral("s.scr")));
    ASSERT_TRUE(script.open(QIODevice::WriteOnly));
    const QString out = folder.filePath(QStringLiteral("piped.dxf"));
    script.write("DWGTITLED\nCLAYER Walls\nSAVEAS \"" + out.toUtf8() + "\"\n");
    script.close();
    const QStringList arguments{QStringLiteral("--batch"), script.fileName(), QStringLiteral("-")};
    const Finished done = kest(arguments, TestDrawing().add({.name = "Walls"}).bytes());
    EXPECT_EQ("", done.errors);
    EXPECT_EQ(0, done.exitCode);
    EXPECT_EQ("DWGTITLED = 0 (cannot be set)\n", done.output);
    EXPECT_EQ("CLAYER = \"Walls\"\n", batch("CLAYER\n", out).output);
    const Finished nothing = kest(arguments, "no drawing");
    EXPECT_EQ(3, nothing.exitCode);
    EXPECT_EQ(0u, nothing.errors.find("kest: standard input, line 1: "));
}

TEST_F(Programs, WrongUsageIsOne)
{
    const Finished wrong = kest({QStringLiteral("--frob")});
    EXPECT_EQ(1, wrong.exitCode);
    EXPECT_EQ(0u, wrong.errors.find("kest: There is no option --frob.\nUsage: kest "));
    EXPECT_EQ("", wrong.output);
}

TEST_F(Programs, AScriptEditsADrawingWithoutAnyDisplay)
{
    const QString out = folder.filePath(QStringLiteral("out.dxf"));
    const Finished done = batch("CLAYER \"Wände\"\nSAVEAS \"" + out.toUtf8() + "\"\n", house());
    EXPECT_EQ("", done.errors);
    EXPECT_EQ(0, done.exitCode);
    EXPECT_EQ("CLAYER = \"Wände\"\n", batch("CLAYER\n", out).output);
}

TEST_F(Programs, AScriptEditsDwgDrawingsInTheirVersions)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const QString plan = folder.filePath(QStringLiteral("plan.dwg"));
    const QString copy = folder.filePath(QStringLiteral("copy.dwg"));
    for (const char* drawing :
         {DwgCopy::kVersion2000, DwgCopy::kVersion2004, DwgCopy::kVersion2018}) {
        DwgCopy::make(drawing, plan);
        const Finished edited = batch("-LAYER New Probe Freeze Probe\nSAVE\n"
                                      "-LAYER Rename Probe Renamed\nSAVEAS \""
                                          + copy.toUtf8() + "\"\n",
                                      plan);
        EXPECT_EQ("", edited.errors) << drawing;
        EXPECT_EQ(0, edited.exitCode);
        EXPECT_EQ("CLAYER = \"Renamed\"\n",
                  batch("-LAYER Thaw Renamed\nCLAYER Renamed\nCLAYER\n", copy).output);
        EXPECT_EQ(0, batch("CLAYER\n-LAYER Thaw Probe\n", plan).exitCode);
    }
}

TEST_F(Programs, AScriptIsToldWhyADwgDrawingIsNotSaved)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    const QString plan =
        DwgCopy::make(DwgCopy::kVersionR14, folder.filePath(QStringLiteral("plan.dwg")));
    const Finished refused = batch("-LAYER New Probe\nSAVE\n", plan);
    EXPECT_EQ(4, refused.exitCode);
    EXPECT_EQ("-:2: " + plan.toStdString()
                  + " is open for reading only. Drawings of the versions R13 and R14 can be "
                    "opened, but edits of them cannot be saved. Its layer states can be exported "
                    "and used in other drawings.\n",
              refused.errors);
    DwgCopy::make(DwgCopy::kVersion2000, plan);
    const Finished other = batch("SAVEAS \"" + plan.toUtf8() + ".dxf\"\n", plan);
    EXPECT_EQ(4, other.exitCode);
    EXPECT_NE(std::string::npos, other.errors.find("expected a name that ends in .dwg."));
}

TEST_F(Programs, ExitCodesTellTheWorst)
{
    EXPECT_EQ(6, batch("FROB\n").exitCode);
    EXPECT_EQ("-:2: There is no command \"FROB\".\n", batch("\nFROB\n").errors);
    EXPECT_EQ(3, batch("FROB\nOPEN /no/such/file.dxf\n").exitCode);
    EXPECT_EQ(4,
              batch("NEW\nSAVEAS /no/such/folder/a.dxf\nOPEN /no/such/file.dxf\nFROB\n").exitCode);
    EXPECT_EQ(3, batch("FROB\n", QStringLiteral("/no/such/file.dxf")).exitCode);
}

TEST_F(Programs, ADrawingThatCannotBeReadKeepsTheScriptFromRunning)
{
    const Finished failed = batch("LWUNITS\n", folder.filePath(QStringLiteral("absent.dxf")));
    EXPECT_EQ(3, failed.exitCode);
    EXPECT_EQ("", failed.output);
    EXPECT_EQ(0u, failed.errors.find("kest: "));
    EXPECT_NE(std::string::npos, failed.errors.find("absent.dxf"));
}

TEST_F(Programs, UserVariablesOutliveTheProgram)
{
    EXPECT_EQ(0, batch("LWUNITS 0\n").exitCode);
    EXPECT_EQ("LWUNITS = 0\n", batch("LWUNITS\n").output);
}

TEST_F(Programs, APictureOfTheWindowIsTakenWithoutADisplay)
{
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    const QString picture = folder.filePath(QStringLiteral("window.png"));
    const Finished done = kest({QStringLiteral("--screenshot"), picture, house()});
    EXPECT_EQ(0, done.exitCode);
    EXPECT_NE(std::string::npos, done.output.find(" Wände "));
    EXPECT_NE(std::string::npos, done.output.find("\n2 layers.\n"));
    const QImage image(picture);
    EXPECT_GT(image.width(), 600);
    EXPECT_GT(image.height(), 400);
    EXPECT_FALSE(image.allGray());
}

TEST_F(Programs, APictureOfADrawingThatCannotBeReadIsNotTaken)
{
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    const QString picture = folder.filePath(QStringLiteral("window.png"));
    EXPECT_EQ(
        3,
        kest({QStringLiteral("--screenshot"), picture, QStringLiteral("/no/such.dxf")}).exitCode);
    EXPECT_FALSE(QFileInfo::exists(picture));
    EXPECT_EQ(4, kest({QStringLiteral("--screenshot"), QStringLiteral("/no/such/a.png")}).exitCode);
}

TEST_F(Programs, AWindowWithoutADisplayIsASentence)
{
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    const Finished failed = kest({house()});
    EXPECT_EQ(1, failed.exitCode);
    EXPECT_EQ("kest: There is no display. --batch runs scripts without one, --screenshot draws a "
              "picture.\n",
              failed.errors);
}

TEST_F(Programs, SettingsThatCannotBeUnderstoodAreToldAndLeftAlone)
{
    QFile file(folder.filePath(QStringLiteral("kest.ini")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Variables\nno value\n");
    file.close();
    const Finished done = batch("LWUNITS\n");
    EXPECT_EQ(0, done.exitCode);
    EXPECT_EQ("LWUNITS = 1\n", done.output);
    EXPECT_NE(std::string::npos,
              done.errors.find("kest.ini cannot be understood; defaults are used."));
}
