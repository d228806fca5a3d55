#include "SavingFixture.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/values/GroupCursor.h"
#include "io/DrawingCodec.h"
#include "io/DrawingFile.h"
#include "io/files/AtomicFile.h"
#include "io/files/ContentHash.h"
#include "io/files/WrittenBytes.h"
#include "support/drawings/DrawingText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

class SafeSaving : public SavingFixture
{
protected:
    static QByteArray drawing() { return DrawingText::withLayers({{"Walls"}, {"Doors"}}); }
    /// The sentence with which a save to that path fails; empty when it succeeds.
    std::string failure(const QString& target, const IoProgress& progress = {})
    {
        try {
            writeDrawing(*edited(drawing()), target, progress);
        } catch (const OdError& error) {
            return error.what();
        }
        return {};
    }
};

void write(AtomicFile& file, const QByteArray& bytes)
{
    file.write(std::array{QByteArrayView(bytes)});
}

TEST_F(SafeSaving, NothingIsSeenOfAFileUntilItIsCommitted)
{
    put(path("plan.dxf"), "old");
    {
        AtomicFile file(path("plan.dxf"));
        write(file, "new");
        EXPECT_EQ(contents(path("plan.dxf")), "old");
        EXPECT_EQ(contents(file.temporaryPath()), "new");
    }
    EXPECT_EQ(contents(path("plan.dxf")), "old");
    EXPECT_EQ(names(), QStringList{QStringLiteral("plan.dxf")});
    AtomicFile file(path("plan.dxf"));
    write(file, "new");
    file.commit();
    EXPECT_EQ(contents(path("plan.dxf")), "new");
    EXPECT_EQ(names(), QStringList{QStringLiteral("plan.dxf")});
}

TEST_F(SafeSaving, AReportTellsWhatTheFileOnTheDiskIs)
{
    const auto database = edited(generated(50, 5000));
    const auto before = readDrawing(generated(50, 5000), {});
    quint64 unlocked = 0;
    for (const OdDbObjectId id : before->layerTable().records())
        unlocked += !id.safeOpenObject<OdDbLayerTableRecord>()->isLocked();
    const SaveReport report = writeDrawing(*database, path("plan.dxf"));
    EXPECT_EQ(contents(path("plan.dxf")), drawingBytes(*database));
    EXPECT_EQ(report.file.identity, FileIdentity::of(path("plan.dxf")));
    EXPECT_EQ(report.file.hash, ContentHash::of(contents(path("plan.dxf"))));
    EXPECT_GT(unlocked, 40u);
    EXPECT_EQ(report.layerRecordsChanged, unlocked);
}

TEST_F(SafeSaving, EveryRunOfTheImageStandsInTheFileWhereTheReportSays)
{
    const auto database = edited(generated(50, 2000));
    const SaveReport report = writeDrawing(*database, path("plan.dxf"));
    const QByteArray file = contents(path("plan.dxf"));
    const FileImage& image = DrawingSource::of(*database).image();
    ASSERT_GT(report.file.runs.size(), 40u);
    for (const ImageRun& run : report.file.runs) {
        const QByteArrayView inImage = image.view(run.imageBegin, run.imageBegin + run.size);
        const QByteArrayView inFile = QByteArrayView(file).sliced(
            static_cast<qsizetype>(run.fileBegin), static_cast<qsizetype>(run.size));
        EXPECT_TRUE(inImage == inFile) << run.imageBegin;
    }
}

TEST_F(SafeSaving, ACancelledSaveLeavesTheOldFileAlone)
{
    put(path("plan.dxf"), "old");
    EXPECT_EQ(failure(path("plan.dxf"), [](quint64, quint64) { return false; }),
              "Saving " + path("plan.dxf").toStdString()
                  + " was cancelled. The file is as it was.");
    // Whenever it is cancelled: all bytes are on the disk at the last report.
    EXPECT_NE(failure(path("plan.dxf"), [](quint64 done, quint64 total) { return done < total; }),
              "");
    EXPECT_EQ(contents(path("plan.dxf")), "old");
    EXPECT_EQ(names(), QStringList{QStringLiteral("plan.dxf")});
}

TEST_F(SafeSaving, AnExceptionOfTheProgressLeavesTheOldFileAlone)
{
    put(path("plan.dxf"), "old");
    const IoProgress raising = [](quint64, quint64) -> bool { throw std::runtime_error("no"); };
    EXPECT_THROW(writeDrawing(*edited(drawing()), path("plan.dxf"), raising), std::runtime_error);
    EXPECT_EQ(contents(path("plan.dxf")), "old");
    EXPECT_EQ(names(), QStringList{QStringLiteral("plan.dxf")});
}

TEST_F(SafeSaving, AFolderIsNotAFileName)
{
    ASSERT_TRUE(QDir(folder()).mkdir(QStringLiteral("plans")));
    EXPECT_EQ(failure(path("plans")),
              path("plans").toStdString() + " is a folder; expected a file name.");
}

TEST_F(SafeSaving, AFolderThatIsNotThereIsToldWithThePath)
{
    EXPECT_EQ(failure(path("absent/plan.dxf")),
              path("absent/plan.dxf").toStdString()
                  + " cannot be written: No such file or directory. The file is as it was.");
}

TEST_F(SafeSaving, ALinkStaysALinkAndItsTargetInAnotherFolderIsWritten)
{
    ASSERT_TRUE(QDir(folder()).mkdir(QStringLiteral("store")));
    put(path("store/real.dxf"), "old");
    ASSERT_TRUE(QFile::link(QStringLiteral("store/real.dxf"), path("plan.dxf")));
    ASSERT_TRUE(QFile::link(path("plan.dxf"), path("second.dxf")));
    EXPECT_EQ(failure(path("second.dxf")), "");
    EXPECT_TRUE(QFileInfo(path("second.dxf")).isSymLink());
    EXPECT_TRUE(QFileInfo(path("plan.dxf")).isSymLink());
    EXPECT_EQ(contents(path("store/real.dxf")), drawingBytes(*edited(drawing())));
    EXPECT_EQ(names(QStringLiteral("store")), QStringList{QStringLiteral("real.dxf")});
}

TEST_F(SafeSaving, ALinkThatLeadsNowhereYetIsFollowed)
{
    ASSERT_TRUE(QFile::link(path("real.dxf"), path("plan.dxf")));
    EXPECT_EQ(failure(path("plan.dxf")), "");
    EXPECT_TRUE(QFileInfo(path("plan.dxf")).isSymLink());
    EXPECT_EQ(contents(path("real.dxf")), drawingBytes(*edited(drawing())));
}

TEST_F(SafeSaving, LinksInACircleAreRefused)
{
    ASSERT_TRUE(QFile::link(path("b.dxf"), path("a.dxf")));
    ASSERT_TRUE(QFile::link(path("a.dxf"), path("b.dxf")));
    EXPECT_EQ(failure(path("a.dxf")),
              path("a.dxf").toStdString() + " cannot be written: its links lead in a circle.");
}

TEST_F(SafeSaving, ANameMayBeAsLongAsNamesCanBe)
{
    const QString target =
        folder() + QLatin1Char('/') + QString(251, QLatin1Char('n')) + QStringLiteral(".dxf");
    put(target, "old");
    const SaveReport report = writeDrawing(*edited(drawing()), target, {}, {true});
    EXPECT_EQ(contents(target), drawingBytes(*edited(drawing())));
    // Its backup cannot have a longer name; the save is told apart from that.
    ASSERT_EQ(report.warnings.size(), 1);
    EXPECT_TRUE(report.warnings[0].contains(QStringLiteral("could not be kept as")))
        << report.warnings[0].toStdString();
    EXPECT_EQ(names().size(), 1);
}

TEST_F(SafeSaving, LongPathsWorkAndTooLongOnesAreToldAsSuch)
{
    QString deep = folder();
    const QString part = QLatin1Char('/') + QString(200, QLatin1Char('d'));
    while (deep.size() + part.size() < 3800)
        deep += part;
    ASSERT_TRUE(QDir().mkpath(deep));
    EXPECT_EQ(failure(deep + QStringLiteral("/plan.dxf")), "");
    EXPECT_EQ(contents(deep + QStringLiteral("/plan.dxf")), drawingBytes(*edited(drawing())));
    const std::string sentence = failure(deep + part + part + part + QStringLiteral("/plan.dxf"));
    EXPECT_NE(sentence.find("cannot be written: File name too long."), std::string::npos)
        << sentence;
}

TEST_F(SafeSaving, TheBackupIsTheOldFileAndReplacesTheBackupBefore)
{
    put(path("plan.dxf"), "old");
    put(path("plan.dxf~"), "older");
    EXPECT_EQ(writeDrawing(*edited(drawing()), path("plan.dxf"), {}, {true}).warnings,
              QStringList());
    EXPECT_EQ(contents(path("plan.dxf")), drawingBytes(*edited(drawing())));
    EXPECT_EQ(contents(path("plan.dxf~")), "old");
    EXPECT_EQ(names(), (QStringList{QStringLiteral("plan.dxf"), QStringLiteral("plan.dxf~")}));
}

TEST_F(SafeSaving, ANewFileHasNoBackup)
{
    writeDrawing(*edited(drawing()), path("plan.dxf"), {}, {true});
    EXPECT_EQ(names(), QStringList{QStringLiteral("plan.dxf")});
}

/// A source that writes fixed bytes and looks at what came of them.
class WatchingSource : public DrawingSource
{
public:
    explicit WatchingSource(const QString& target)
        : m_target(target)
    { }
    void read(OdDbObject&) const override { }
    std::unique_ptr<GroupCursor> makeCursor() const override { return nullptr; }
    quint32 extensionDictionary(quint32) const override { return 0; }
    QString decode(QByteArrayView) const override { return {}; }
    quint64 footprint() const override { return 0; }
    QString suffix() const override { return QStringLiteral("dxf"); }
    DrawingPieces write(const OdDbDatabase&) const override
    {
        DrawingPieces pieces;
        pieces.parts = {m_image->view(0, 4), QByteArrayView("new"), m_image->view(4, 8)};
        pieces.changed = {{7, 2, 6}, {8, 6, 6}};
        return pieces;
    }
    void verify(const OdDbDatabase&, const DrawingPieces& pieces,
                const WrittenBytes& written) const override
    {
        QFile old(m_target);
        ASSERT_TRUE(old.open(QIODevice::ReadOnly));
        oldWhenVerified = old.readAll();
        for (const auto& record : pieces.changed)
            seen << written.view(record.begin, record.end).toByteArray();
        EXPECT_THROW(written.view(10, 12), OdError_FileAccess);
        if (refuses)
            throw OdError_FileAccess(OdResult::CantWriteFile, QStringLiteral("It differs."));
    }
    const FileImage& image() const override { return *m_image; }

    mutable QByteArray oldWhenVerified;
    mutable QByteArrayList seen;
    bool refuses = false;

private:
    QString m_target;
    std::shared_ptr<const FileImage> m_image =
        FileImage::copyOf("abcdefgh", QStringLiteral("image"));
};

TEST_F(SafeSaving, ChangedRecordsAreVerifiedFromTheDiskBeforeTheOldFileGoes)
{
    put(path("plan.dxf"), "old");
    OdDbDatabase database;
    auto source = std::make_unique<WatchingSource>(path("plan.dxf"));
    WatchingSource& watching = *source;
    database.setSource(std::move(source));
    watching.refuses = true;
    EXPECT_THROW(writeDrawing(database, path("plan.dxf"), {}, {true}), OdError_FileAccess);
    EXPECT_EQ(watching.seen, (QByteArrayList{"cdne", ""}));
    EXPECT_EQ(watching.oldWhenVerified, "old");
    EXPECT_EQ(contents(path("plan.dxf")), "old");
    EXPECT_EQ(names(), QStringList{QStringLiteral("plan.dxf")});
    watching.refuses = false;
    writeDrawing(database, path("plan.dxf"));
    EXPECT_EQ(contents(path("plan.dxf")), "abcdnewefgh");
}

TEST_F(SafeSaving, WrittenBytesAreReadInAnyOrderAndSize)
{
    QByteArray bytes(3 << 20, '\0');
    for (qsizetype i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 31 + (i >> 9));
    put(path("written"), bytes);
    const WrittenBytes written(path("written"));
    EXPECT_EQ(written.size(), static_cast<quint64>(bytes.size()));
    const std::pair<int, int> ranges[] = {{0, 10},
                                          {5, 2000000},
                                          {1 << 20, 1 << 20},
                                          {100, 200},
                                          {2000000, 3 << 20},
                                          {0, 3 << 20},
                                          {(3 << 20) - 1, 3 << 20}};
    for (const auto& [begin, end] : ranges) {
        EXPECT_TRUE(written.view(static_cast<quint64>(begin), static_cast<quint64>(end))
                    == QByteArrayView(bytes).sliced(begin, end - begin))
            << begin << " to " << end;
    }
    EXPECT_THROW(written.view(2, 1), OdError_FileAccess);
    EXPECT_THROW(written.view(0, (3 << 20) + 1), OdError_FileAccess);
    EXPECT_THROW(WrittenBytes(path("absent")), OdError_FileAccess);
}

#ifdef Q_OS_UNIX

mode_t modeOf(const QString& path)
{
    struct stat status
    { };
    EXPECT_EQ(stat(QFile::encodeName(path).constData(), &status), 0);
    return status.st_mode & 07777;
}

TEST_F(SafeSaving, PermissionsAreThoseOfTheOldFile)
{
    for (const mode_t mode : {0600u, 0640u, 0664u, 0755u}) {
        put(path("plan.dxf"), "old");
        ASSERT_EQ(chmod(QFile::encodeName(path("plan.dxf")).constData(), mode), 0);
        EXPECT_EQ(failure(path("plan.dxf")), "");
        EXPECT_EQ(modeOf(path("plan.dxf")), mode);
    }
}

TEST_F(SafeSaving, ANewFileHasThePermissionsOfAnyNewFile)
{
    put(path("other"), "x");
    EXPECT_EQ(failure(path("plan.dxf")), "");
    EXPECT_EQ(modeOf(path("plan.dxf")), modeOf(path("other")));
}

TEST_F(SafeSaving, TheOwnerStaysWhereThatIsPermitted)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "Only root may give files away.";
    put(path("plan.dxf"), "old");
    ASSERT_EQ(chown(QFile::encodeName(path("plan.dxf")).constData(), 1234, 4321), 0);
    EXPECT_EQ(failure(path("plan.dxf")), "");
    EXPECT_EQ(QFileInfo(path("plan.dxf")).ownerId(), 1234u);
    EXPECT_EQ(QFileInfo(path("plan.dxf")).groupId(), 4321u);
}

TEST_F(SafeSaving, AFileThatMayNotBeWrittenIsNotReplaced)
{
    constexpr uid_t kNobody = 65534;
    put(path("plan.dxf"), drawing());
    ASSERT_EQ(chmod(QFile::encodeName(folder()).constData(), 0777), 0);
    ASSERT_EQ(chmod(QFile::encodeName(path("plan.dxf")).constData(), 0444), 0);
    QProcess process;
    // Root may write everything.
    if (geteuid() == 0)
        process.setChildProcessModifier([] {
            if (setuid(kNobody) != 0)
                _exit(1);
        });
    process.start(QStringLiteral(KEST_SAVER), {QStringLiteral("once"), path("plan.dxf")});
    if (!process.waitForStarted())
        GTEST_SKIP() << "The saver cannot be run as another user.";
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.readAllStandardOutput().toStdString(),
              path("plan.dxf").toStdString()
                  + " cannot be written: Permission denied. The file is as it was.\n");
    EXPECT_EQ(process.exitCode(), 4);
    EXPECT_EQ(contents(path("plan.dxf")), drawing());
    EXPECT_EQ(names(), QStringList{QStringLiteral("plan.dxf")});
}

TEST_F(SafeSaving, WhatIsNoRegularFileIsNotReplaced)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(path("pipe.dxf")).constData(), 0600), 0);
    EXPECT_EQ(failure(path("pipe.dxf")),
              path("pipe.dxf").toStdString() + " is not a regular file; it is not replaced.");
    EXPECT_EQ(names(), QStringList{QStringLiteral("pipe.dxf")});
}

TEST_F(SafeSaving, ABackupThatIsTheFileItselfLeavesNothingBehind)
{
    // As left by a process that ended between keeping the old file and replacing it.
    put(path("plan.dxf"), "old");
    ASSERT_EQ(link(QFile::encodeName(path("plan.dxf")).constData(),
                   QFile::encodeName(path("plan.dxf~")).constData()),
              0);
    EXPECT_EQ(writeDrawing(*edited(drawing()), path("plan.dxf"), {}, {true}).warnings,
              QStringList());
    EXPECT_EQ(contents(path("plan.dxf~")), "old");
    EXPECT_EQ(contents(path("plan.dxf")), drawingBytes(*edited(drawing())));
    EXPECT_EQ(names(), (QStringList{QStringLiteral("plan.dxf"), QStringLiteral("plan.dxf~")}));
}

constexpr const char* kFullDisk = R"(
mount -t tmpfs -o size=4m none "$3" 2>/dev/null || exit 77
cp "$2" "$3/plan.dxf"
"$1" once "$3/plan.dxf"; code=$?
cmp -s "$2" "$3/plan.dxf" && echo whole
ls -A "$3"
exit $code
)";

TEST_F(SafeSaving, AFullDiskLeavesTheOldFileWholeAndIsTold)
{
    put(path("source.dxf"), generated(100, 12000));
    ASSERT_GT(QFileInfo(path("source.dxf")).size(), 2 << 20);
    ASSERT_TRUE(QDir(folder()).mkdir(QStringLiteral("disk")));
    const auto outcome = runWithMounts(kFullDisk, {path("source.dxf"), path("disk")});
    if (!outcome)
        GTEST_SKIP() << "File systems cannot be mounted here.";
    EXPECT_EQ(outcome->exitCode, 4);
    EXPECT_EQ(outcome->output.toStdString(),
              path("disk/plan.dxf").toStdString()
                  + " cannot be written: No space left on device. The file is as it was.\n"
                    "whole\nplan.dxf\n");
}

constexpr const char* kReadOnlyFolder = R"(
mount -t tmpfs -o size=8m none "$3" 2>/dev/null || exit 77
cp "$2" "$3/plan.dxf"
mount -o remount,ro none "$3" 2>/dev/null || exit 77
"$1" once "$3/plan.dxf"; code=$?
cmp -s "$2" "$3/plan.dxf" && echo whole
ls -A "$3"
exit $code
)";

TEST_F(SafeSaving, AFolderThatCannotBeWrittenIsTold)
{
    put(path("source.dxf"), drawing());
    ASSERT_TRUE(QDir(folder()).mkdir(QStringLiteral("disk")));
    const auto outcome = runWithMounts(kReadOnlyFolder, {path("source.dxf"), path("disk")});
    if (!outcome)
        GTEST_SKIP() << "File systems cannot be mounted here.";
    EXPECT_EQ(outcome->exitCode, 4);
    EXPECT_EQ(outcome->output.toStdString(),
              path("disk/plan.dxf").toStdString()
                  + " cannot be written: Read-only file system. The file is as it was.\n"
                    "whole\nplan.dxf\n");
}

// A file that is a mount of its own can be copied, and neither linked nor replaced.
constexpr const char* kMountedFile = R"(
cp "$2" "$3/plan.dxf" && mount --bind "$2" "$3/plan.dxf" 2>/dev/null || exit 77
"$1" keep "$3/plan.dxf"; code=$?
cmp -s "$2" "$3/plan.dxf" && echo whole
cmp -s "$2" "$3/plan.dxf~" && echo kept
ls -A "$3"
exit $code
)";

TEST_F(SafeSaving, ABackupIsACopyWhereAFileCannotHaveTwoNames)
{
    put(path("source.dxf"), drawing());
    ASSERT_TRUE(QDir(folder()).mkdir(QStringLiteral("disk")));
    const auto outcome = runWithMounts(kMountedFile, {path("source.dxf"), path("disk")});
    if (!outcome)
        GTEST_SKIP() << "File systems cannot be mounted here.";
    EXPECT_EQ(outcome->exitCode, 4);
    EXPECT_EQ(outcome->output.toStdString(),
              path("disk/plan.dxf").toStdString()
                  + " cannot be written: Device or resource busy. The file is as it was.\n"
                    "whole\nkept\nplan.dxf\nplan.dxf~\n");
}

#endif

} // namespace
