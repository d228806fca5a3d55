#include "CompanionFixture.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "host/support/OtherProcess.h"
#include "io/files/FileIdentity.h"
#include "layerman/editing/SaveTargets.h"
#include "support/drawings/BinaryDrawing.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

class CompanionSaving : public CompanionFixture
{
protected:
    bool isLocked(const QString& file)
    {
        return read(file)
            ->layerTable()
            .getAt(QStringLiteral("Walls"))
            .safeOpenObject<OdDbLayerTableRecord>()
            ->isLocked();
    }
    /// A wrong call: its sentence, once nothing was written.
    std::string refused(const char* words)
    {
        const QStringList before = everything();
        const Finished done =
            layerman((std::string("set --search Walls locked=yes ") + words).c_str());
        EXPECT_EQ(1, done.exitCode) << words;
        EXPECT_EQ(before, everything()) << words;
        return done.errors.substr(0, done.errors.find('\n'));
    }
    /// Every file below the folder with its contents, and every folder.
    QStringList everything() const
    {
        QStringList all;
        QDirIterator below(folder.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                           QDirIterator::Subdirectories);
        while (below.hasNext()) {
            const QString entry = below.next();
            QFile file(entry);
            const bool isFile = below.fileInfo().isFile() && file.open(QIODevice::ReadOnly);
            all << entry + QString::fromLatin1(isFile ? file.readAll() : QByteArray());
        }
        all.sort();
        return all;
    }
    void makeFolder(const char* name)
    {
        ASSERT_TRUE(QDir(folder.path()).mkpath(QLatin1String(name)));
    }
};

TEST_F(CompanionSaving, WritesACopyAndLeavesTheDrawing)
{
    drawing("plan.dxf", {{"Walls"}, {"Doors"}});
    const QByteArray before = bytesOf(QStringLiteral("plan.dxf"));
    EXPECT_EQ(0, layerman("set plan.dxf -o out.dxf --search Walls locked=yes").exitCode);
    EXPECT_EQ(before, bytesOf(QStringLiteral("plan.dxf")));
    EXPECT_EQ(QStringList{QStringLiteral("0 -> 4")},
              changedLines(before, bytesOf(QStringLiteral("out.dxf"))));
    EXPECT_EQ((QStringList{QStringLiteral("out.dxf"), QStringLiteral("plan.dxf")}), files());
    EXPECT_EQ(0, layerman("set plan.dxf -o out.dxf --search Walls color=red").exitCode);
    EXPECT_EQ(QStringList{QStringLiteral("7 -> 1")},
              changedLines(before, bytesOf(QStringLiteral("out.dxf"))))
        << "an old copy is replaced";
}

TEST_F(CompanionSaving, WritesAnUnchangedDrawingAsItIs)
{
    const QByteArray before = DrawingText::withLayers({{"Walls"}}, "\r\n");
    write("plan.dxf", before);
    EXPECT_EQ(0, layerman("set plan.dxf -o out.dxf --search None locked=yes").exitCode);
    EXPECT_EQ(before, bytesOf(QStringLiteral("out.dxf")));
}

TEST_F(CompanionSaving, InPlaceTouchesOnlyWhatChanges)
{
    drawing("a.dxf", {{"Walls"}});
    drawing("b.dxf", {{"Doors"}});
    const FileIdentity untouched = FileIdentity::of(path(QStringLiteral("b.dxf")));
    const FileIdentity replaced = FileIdentity::of(path(QStringLiteral("a.dxf")));
    const Finished done = layerman("set a.dxf b.dxf --in-place --search Walls locked=yes");
    EXPECT_EQ(0, done.exitCode);
    EXPECT_EQ("2 drawings: 1 layer changed.\n", done.errors);
    EXPECT_TRUE(isLocked(QStringLiteral("a.dxf")));
    EXPECT_NE(replaced, FileIdentity::of(path(QStringLiteral("a.dxf"))));
    EXPECT_EQ(untouched, FileIdentity::of(path(QStringLiteral("b.dxf"))));
    EXPECT_EQ((QStringList{QStringLiteral("a.dxf"), QStringLiteral("b.dxf")}), files());
}

TEST_F(CompanionSaving, KeepsBackupsWhereAsked)
{
    drawing("a.dxf", {{"Walls"}});
    const QByteArray before = bytesOf(QStringLiteral("a.dxf"));
    EXPECT_EQ(0, layerman("set a.dxf --in-place --backup --search Walls locked=yes").exitCode);
    EXPECT_EQ(before, bytesOf(QStringLiteral("a.dxf~")));
    EXPECT_TRUE(isLocked(QStringLiteral("a.dxf")));
}

TEST_F(CompanionSaving, AFolderTakesAllUnderTheirOwnNames)
{
    makeFolder("in");
    drawing("a.dxf", {{"Walls"}});
    drawing("in/b.dxf", {{"Walls"}});
    const Finished done =
        layerman("set - -o done/deep/ --search Walls locked=yes", "a.dxf\nin/b.dxf\n");
    EXPECT_EQ(0, done.exitCode) << done.errors;
    EXPECT_TRUE(isLocked(QStringLiteral("done/deep/a.dxf")));
    EXPECT_TRUE(isLocked(QStringLiteral("done/deep/b.dxf")));
    EXPECT_FALSE(isLocked(QStringLiteral("in/b.dxf")));
    makeFolder("there");
    EXPECT_EQ(0, layerman("set a.dxf -o there --search Walls locked=yes").exitCode);
    EXPECT_TRUE(isLocked(QStringLiteral("there/a.dxf")));
}

TEST_F(CompanionSaving, ATargetIsNoneOfTheDrawingsAndNotThatOfTwo)
{
    makeFolder("in");
    drawing("a.dxf", {{"Walls"}});
    drawing("b.dxf", {{"Walls"}});
    drawing("in/a.dxf", {{"Walls"}});
    EXPECT_EQ("layerman: ./a.dxf is one of the drawings themselves; use --in-place to write over "
              "them.",
              refused("a.dxf -o ./a.dxf"));
    EXPECT_EQ("layerman: ./a.dxf is one of the drawings themselves; use --in-place to write over "
              "them.",
              refused("a.dxf b.dxf -o ."));
    EXPECT_EQ("layerman: nowhere/../a.dxf is one of the drawings themselves; use --in-place to "
              "write over them.",
              refused("a.dxf -o nowhere/../a.dxf"));
    EXPECT_EQ("layerman: a.dxf and in/a.dxf would both be written to out/a.dxf.",
              refused("a.dxf in/a.dxf -o out/"));
    EXPECT_EQ(
        "layerman: Several drawings need a folder to be written to; out is none. With a slash "
        "behind its name it is made.",
        refused("a.dxf b.dxf -o out"));
    EXPECT_EQ("layerman: -o and --in-place both say where to write; give one of them.",
              refused("a.dxf -o b.dxf --in-place"));
    EXPECT_EQ("layerman: -o needs a file or a folder; the name given is empty.",
              refused("a.dxf --output="));
    EXPECT_EQ("layerman: - can be given once only.", refused("- - -o out/"));
}

TEST_F(CompanionSaving, ALinkToADrawingIsThatDrawing)
{
    drawing("a.dxf", {{"Walls"}});
    ASSERT_TRUE(QFile::link(QStringLiteral("a.dxf"), path(QStringLiteral("link.dxf"))));
    EXPECT_EQ("layerman: link.dxf is one of the drawings themselves; use --in-place to write over "
              "them.",
              refused("a.dxf -o link.dxf"));
    EXPECT_EQ(0, layerman("set link.dxf --in-place --search Walls locked=yes").exitCode);
    EXPECT_TRUE(QFileInfo(path(QStringLiteral("link.dxf"))).isSymLink());
    EXPECT_TRUE(isLocked(QStringLiteral("a.dxf")));
}

TEST_F(CompanionSaving, ADrawingThatAnotherProcessEditsIsFour)
{
    drawing("a.dxf", {{"Walls"}});
    drawing("b.dxf", {{"Walls"}});
    const QByteArray before = bytesOf(QStringLiteral("a.dxf"));
    const OtherProcess other(path(QStringLiteral("a.dxf")));
    ASSERT_TRUE(other.holds());
    for (const char* how : {"--in-place", "--in-place --dry-run"}) {
        const Finished done =
            layerman((std::string("set a.dxf --search Walls locked=yes ") + how).c_str());
        EXPECT_EQ(4, done.exitCode);
        EXPECT_NE(std::string::npos,
                  done.errors.find("layerman: a.dxf is being edited by process "
                                   + std::to_string(other.id()) + " on "))
            << done.errors;
    }
    EXPECT_EQ(4, layerman("set b.dxf -o a.dxf --search Walls locked=yes").exitCode)
        << "nor is it written over with another one";
    EXPECT_EQ(6, layerman("set a.dxf b.dxf --in-place --search Walls locked=yes").exitCode);
    EXPECT_TRUE(isLocked(QStringLiteral("b.dxf")));
    EXPECT_EQ(before, bytesOf(QStringLiteral("a.dxf")));
    EXPECT_EQ(0, layerman("set a.dxf -o c.dxf --search Walls locked=yes").exitCode)
        << "a copy is nobody's";
    EXPECT_EQ(0, layerman("list a.dxf").exitCode);
}

TEST_F(CompanionSaving, ADrawingThatWasReplacedMeanwhileIsNotOverwritten)
{
    drawing("a.dxf", {{"Walls"}});
    const QString file = path(QStringLiteral("a.dxf"));
    const FileIdentity whenRead = FileIdentity::of(file);
    EXPECT_NO_THROW(requireUnchanged(file, whenRead));
    drawing("theirs.dxf", {{"Roof"}});
    ASSERT_TRUE(QFile::remove(file) && QFile::rename(path(QStringLiteral("theirs.dxf")), file));
    try {
        requireUnchanged(file, whenRead);
        ADD_FAILURE() << "it would be overwritten";
    } catch (const OdError_FileAccess& error) {
        EXPECT_EQ(OdResult::CantWriteFile, error.code());
        EXPECT_EQ(file.toStdString()
                      + " was changed by another program meanwhile; it is not overwritten.",
                  error.description().toStdString());
    }
}

TEST_F(CompanionSaving, WhatCannotBeWrittenIsFourAndStaysAsItWas)
{
    drawing("a.dxf", {{"Walls"}});
    write("file", "a file");
    const Finished folderless = layerman("set a.dxf -o none/a.dxf --search Walls locked=yes");
    EXPECT_EQ(4, folderless.exitCode);
    EXPECT_EQ(0u, folderless.errors.find("layerman: none/a.dxf cannot be written: "));
    const Finished underFile = layerman("set a.dxf -o file/ --search Walls locked=yes");
    EXPECT_EQ(4, underFile.exitCode);
    EXPECT_EQ(0u, underFile.errors.find("layerman: a.dxf: The folder file/ cannot be made.\n"));
    EXPECT_EQ("a file", bytesOf(QStringLiteral("file")));
#ifdef Q_OS_UNIX
    if (geteuid() == 0)
        return; // root may write anything
    const QByteArray before = bytesOf(QStringLiteral("a.dxf"));
    QFile::setPermissions(path(QStringLiteral("a.dxf")), QFile::ReadOwner);
    EXPECT_EQ(4, layerman("set a.dxf --in-place --search Walls locked=yes").exitCode);
    EXPECT_EQ(before, bytesOf(QStringLiteral("a.dxf")));
#endif
}

TEST_F(CompanionSaving, ADrawingThatFailsLeavesItsTarget)
{
    drawing("a.dxf", {{"Walls"}});
    write("broken.dxf", "no drawing");
    makeFolder("out");
    write("out/broken.dxf", "old");
    write("out/a.dxf", "old");
    const Finished done = layerman("set a.dxf broken.dxf -o out --filter Walls locked=yes");
    EXPECT_EQ(3, done.exitCode);
    EXPECT_EQ("old", bytesOf(QStringLiteral("out/a.dxf"))) << "it has no such filter";
    EXPECT_EQ("old", bytesOf(QStringLiteral("out/broken.dxf")));
    EXPECT_EQ(6, layerman("set a.dxf broken.dxf -o out --search Walls locked=yes").exitCode);
    EXPECT_TRUE(isLocked(QStringLiteral("out/a.dxf")));
    EXPECT_EQ("old", bytesOf(QStringLiteral("out/broken.dxf")));
}

TEST_F(CompanionSaving, ADryRunMakesNoFolder)
{
    drawing("a.dxf", {{"Walls"}});
    EXPECT_EQ(0, layerman("set a.dxf -o new/ --dry-run --search Walls locked=yes").exitCode);
    EXPECT_FALSE(QFileInfo::exists(path(QStringLiteral("new"))));
    EXPECT_EQ(QStringList{QStringLiteral("a.dxf")}, files());
}

TEST_F(CompanionSaving, BinaryDrawingsStayBinary)
{
    const QByteArray bytes = BinaryDrawing::fromText(DrawingText::withLayers({{"Walls"}}), 2);
    write("a.dxf", bytes);
    EXPECT_EQ(0, layerman("set a.dxf --in-place --search Walls locked=yes").exitCode);
    const QByteArray after = bytesOf(QStringLiteral("a.dxf"));
    ASSERT_EQ(bytes.size(), after.size());
    int differing = 0;
    for (qsizetype i = 0; i < bytes.size(); ++i)
        differing += bytes[i] != after[i] ? 1 : 0;
    EXPECT_EQ(1, differing);
    EXPECT_TRUE(isLocked(QStringLiteral("a.dxf")));
}
