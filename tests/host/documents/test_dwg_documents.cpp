#include "database/tables/OdDbLayerTable.h"
#include "host/documents/ChangedFiles.h"
#include "host/support/HostFixture.h"
#include "host/support/OtherProcess.h"
#include "io/DrawingFile.h"
#include "support/drawings/DwgCopy.h"
#include "support/drawings/SharedDrawings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
using Kind = CommandOutcome::Kind;

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}
} // namespace

/// DWG drawings in the host: they keep their format, and some can only be looked at.
class DwgDocuments : public HostFixture
{
protected:
    void SetUp() override { KEST_GTEST_NEEDS_DRAWINGS(); }

    HostDocument& openCopy(const char* drawing, const char* name = "plan.dwg")
    {
        return core.files().open(DwgCopy::make(drawing, path(name)));
    }
    /// Runs a command with a file of the test's folder as its answer.
    CommandOutcome runOn(const char* command, const char* name)
    {
        return core.commands().run(
            QStringLiteral("%1 \"%2\"").arg(QLatin1String(command), path(name)));
    }
    /// The drawing cannot be saved, here or elsewhere, and the user is told why.
    void expectReadOnly(const HostDocument& document, const QString& why)
    {
        const QString readOnly =
            document.fileName() + QStringLiteral(" is open for reading only. ") + why;
        const std::string refusal =
            (readOnly
             + QStringLiteral(" Its layer states can be exported and used in other "
                              "drawings."))
                .toStdString();
        const QStringList before = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden);
        EXPECT_TRUE(document.isReadOnly());
        EXPECT_EQ("", run("-LAYER New Probe"));
        EXPECT_EQ(refusal, run("SAVE"));
        EXPECT_EQ(refusal, runOn("SAVEAS", "other.dwg").sentence.toStdString());
        frontEnd.interactive = true;
        EXPECT_EQ(refusal, run("SAVEAS"));
        EXPECT_EQ(QStringList(), frontEnd.suggestions) << "no file is asked for";
        frontEnd.interactive = false;
        EXPECT_EQ(before, QDir(folder.path()).entryList(QDir::Files | QDir::Hidden));
        EXPECT_FALSE(QFile::exists(path(".plan.dwg.lock")));
    }
    void check() { ChangedFiles(core.documents(), core.files(), frontEnd).check(); }
    HostDocument& current() { return *core.documents().curDocument(); }
};

TEST_F(DwgDocuments, EditsAreSavedInTheVersionOfTheDrawing)
{
    for (const char* drawing :
         {DwgCopy::kVersion2000, DwgCopy::kVersion2004, DwgCopy::kVersion2018}) {
        HostDocument& document = openCopy(drawing);
        EXPECT_FALSE(document.isReadOnly());
        const QByteArray before = contents(path("plan.dwg"));
        EXPECT_EQ("", run("-LAYER New Probe Freeze Probe"));
        EXPECT_EQ("", run("SAVE"));
        EXPECT_EQ(before, contents(path("plan.dwg~")));
        EXPECT_EQ(before.left(6), contents(path("plan.dwg")).left(6));
        EXPECT_TRUE(readDrawing(path("plan.dwg"))->layerTable().has(QStringLiteral("Probe")));
        EXPECT_EQ("", run("CLOSE"));
    }
}

TEST_F(DwgDocuments, TheEndingOfTheOtherFormatIsRefused)
{
    HostDocument& document = openCopy(DwgCopy::kVersion2000);
    CommandOutcome outcome = runOn("SAVEAS", "copy.DXF");
    EXPECT_EQ(Kind::CannotWrite, outcome.kind);
    EXPECT_EQ(path("copy.DXF")
                  + QStringLiteral(" was not written: the drawing was read from a DWG file and is "
                                   "saved as one; expected a name that ends in .dwg."),
              outcome.sentence);
    EXPECT_EQ(path("plan.dwg"), document.fileName());
    open(TestDrawing().add({.name = "Wall"}));
    for (const char* name : {"copy.dwg", "copy.DWT", "copy.dws"}) {
        outcome = runOn("SAVEAS", name);
        EXPECT_EQ(Kind::CannotWrite, outcome.kind);
        EXPECT_EQ(path(name)
                      + QStringLiteral(" was not written: the drawing was read from a DXF file and "
                                       "is saved as one; expected a name that ends in .dxf."),
                  outcome.sentence);
    }
    EXPECT_EQ(QStringList(), QDir(folder.path()).entryList({QStringLiteral("copy*")}));
}

TEST_F(DwgDocuments, TemplatesAndStandardsAreDwgUnderOtherEndings)
{
    const HostDocument& document = openCopy(DwgCopy::kVersion2004, "plan.dwt");
    EXPECT_EQ(Kind::Done, runOn("SAVEAS", "plan.DWS").kind);
    EXPECT_EQ(path("plan.DWS"), document.fileName());
    EXPECT_EQ(contents(path("plan.dwt")), contents(path("plan.DWS")));
}

TEST_F(DwgDocuments, ANameWithoutEndingGetsThatOfTheFormat)
{
    const HostDocument& document = openCopy(DwgCopy::kVersion2000, "plan");
    frontEnd.interactive = true;
    EXPECT_EQ(Kind::Cancelled, core.commands().run(QStringLiteral("SAVEAS")).kind);
    EXPECT_EQ(QStringList{path("plan.dwg")}, frontEnd.suggestions);
    EXPECT_EQ(QStringList{QStringLiteral("dwg")}, frontEnd.savedFormats);
    EXPECT_EQ(Kind::Done, runOn("SAVEAS", "copy").kind);
    EXPECT_EQ(path("copy.dwg"), document.fileName());
    EXPECT_EQ(contents(path("plan")), contents(path("copy.dwg")));
}

TEST_F(DwgDocuments, ADrawingOfAVersionThatIsNotWrittenIsOpenForReadingOnly)
{
    expectReadOnly(
        openCopy(DwgCopy::kVersionR14),
        QStringLiteral("Drawings of the versions R13 and R14 can be opened, but edits of them "
                       "cannot be saved."));
    EXPECT_EQ("", run("CLOSE No"));
    expectReadOnly(openCopy(DwgCopy::kVersion2007),
                   QStringLiteral("Drawings of version 2007 can be read but not written."));
}

TEST_F(DwgDocuments, ADamagedDrawingIsOpenForReadingOnly)
{
    HostDocument& document = core.files().open(DwgCopy::makeDamaged(path("plan.dwg")));
    const QString why = writingRefusal(*document.database());
    EXPECT_TRUE(why.startsWith(QStringLiteral("The record with the handle "))
                && why.endsWith(QStringLiteral(" is damaged.")))
        << why.toStdString();
    expectReadOnly(document, why);
}

TEST_F(DwgDocuments, OpeningTellsOnceWhyADrawingCannotBeSaved)
{
    frontEnd.interactive = true;
    const QStringList whys{
        QStringLiteral("Drawings of the versions R13 and R14 can be opened, but edits of them "
                       "cannot be saved."),
        QStringLiteral("Drawings of version 2007 can be read but not written.")};
    DwgCopy::make(DwgCopy::kVersionR14, path("first.dwg"));
    DwgCopy::make(DwgCopy::kVersion2007, path("second.dwg"));
    const QStringList names{path("first.dwg"), path("second.dwg")};
    for (int i = 0; i < names.size(); ++i) {
        frontEnd.printed.clear();
        EXPECT_EQ(Kind::Done,
                  core.commands().run(QStringLiteral("OPEN \"%1\"").arg(names[i])).kind);
        const QString told = names[i] + QStringLiteral(" is open for reading only. ") + whys[i];
        EXPECT_EQ(QStringList{told}, frontEnd.printed);
        EXPECT_EQ(QFileInfo(names[i]).fileName() + QStringLiteral(" is open for reading only."),
                  frontEnd.status);
    }
}

TEST_F(DwgDocuments, ADrawingThatIsReadAgainIsReadOnlyAsItsFileSays)
{
    frontEnd.interactive = true;
    frontEnd.reloads = true;
    openCopy(DwgCopy::kVersion2000);
    EXPECT_TRUE(QFile::exists(path(".plan.dwg.lock")));
    DwgCopy::makeDamaged(path("plan.dwg"));
    check();
    ASSERT_EQ(1, frontEnd.reloadQuestions.size());
    EXPECT_TRUE(current().isReadOnly());
    ASSERT_EQ(1, frontEnd.notices.size());
    EXPECT_TRUE(frontEnd.notices[0].startsWith(
        path("plan.dwg") + QStringLiteral(" is open for reading only. The record")));
    EXPECT_TRUE(QString::fromStdString(run("SAVE")).startsWith(frontEnd.notices[0]));
    DwgCopy::make(DwgCopy::kVersion2004, path("plan.dwg"));
    check();
    EXPECT_FALSE(current().isReadOnly());
    EXPECT_EQ(1, frontEnd.notices.size());
    EXPECT_EQ("", run("-LAYER New Probe \"\""));
    EXPECT_EQ("", run("SAVE"));
}

TEST_F(DwgDocuments, WhatIsNoDrawingIsRefusedWithASentence)
{
    const QByteArray good = contents(DwgCopy::make(DwgCopy::kVersion2004, path("good.dwg")));
    const std::pair<QByteArray, const char*> cases[] = {
        {"AC1009" + good.mid(6),
         "this DWG drawing is of a version that cannot be read; expected R13 to 2018."},
        {"Walls are red.\n",
         "this is no DXF drawing and no DWG drawing; expected group 0 with SECTION, a comment "
         "(group 999), or the name of a DWG version."},
        {good.left(300), "the file ends too early"},
    };
    for (const auto& [bytes, sentence] : cases) {
        QFile file(path("bad.dwg"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        const CommandOutcome outcome = runOn("OPEN", "bad.dwg");
        EXPECT_FALSE(outcome.isDone());
        EXPECT_TRUE(outcome.sentence.startsWith(QStringLiteral("bad.dwg")))
            << outcome.sentence.toStdString();
        EXPECT_TRUE(outcome.sentence.contains(QLatin1String(sentence)))
            << outcome.sentence.toStdString();
    }
    EXPECT_EQ(nullptr, core.documents().curDocument());
}

TEST_F(DwgDocuments, ADrawingInUseIsAskedAbout)
{
    DwgCopy::make(DwgCopy::kVersion2018, path("plan.dwg"));
    const OtherProcess other(path("plan.dwg"));
    ASSERT_TRUE(other.holds());
    frontEnd.interactive = true;
    frontEnd.lockAnswer = HostFrontEnd::LockAnswer::ReadOnly;
    const HostDocument& document = core.files().open(path("plan.dwg"));
    EXPECT_EQ(1, frontEnd.lockQuestions.size());
    EXPECT_TRUE(document.isReadOnly());
    EXPECT_EQ((path("plan.dwg")
               + QStringLiteral(" is open read-only. SAVEAS writes the drawing to another file."))
                  .toStdString(),
              run("SAVE"));
    EXPECT_EQ(Kind::Done, runOn("SAVEAS", "copy.dwg").kind);
    EXPECT_FALSE(document.isReadOnly());
}
