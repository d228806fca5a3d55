#include "database/drawing/OdDbDatabase.h"
#include "database/store/HeaderVariables.h"
#include "io/DrawingFile.h"
#include "support/drawings/DrawingDigest.h"
#include "support/drawings/DrawingText.h"
#include "support/drawings/RandomEdits.h"
#include "support/drawings/SharedDrawings.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct Course
{
    int steps;
    int stepsPerAudit;
    int stepsPerSave;
};

/// Edits at random; now and then the drawing must be sound and what a save holds must be what the
/// drawing says. Undone to the start, the file has the bytes that it began with.
void follow(const QByteArray& bytes, unsigned seed, const Course& course)
{
    const auto database = readDrawing(bytes, QStringLiteral("random.dxf"));
    const QStringList start = drawingDigest(*database);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("saved.dxf"));
    const bool trueColours =
        database->header().value(QStringLiteral("$ACADVER")) >= QStringLiteral("AC1018");
    RandomEdits edits(*database, seed, trueColours);
    for (int step = 1; step <= course.steps; ++step) {
        edits.step();
        if (step % course.stepsPerAudit == 0) {
            ASSERT_EQ(database->audit(), QStringList())
                << "step " << step << ", " << edits.last().constData();
        }
        if (step % course.stepsPerSave != 0)
            continue;
        // A save reads the changed records back and compares them itself.
        const SaveReport report = writeDrawing(*database, path);
        const auto again = readDrawing(path);
        ASSERT_EQ(again->audit(), QStringList()) << "step " << step;
        ASSERT_EQ(report.notKept, QStringList());
        ASSERT_EQ(digestDifference(drawingDigest(*database), drawingDigest(*again)), std::string())
            << "step " << step << ", " << edits.last().constData();
    }
    while (database->undo()) {
    }
    EXPECT_EQ(database->audit(), QStringList());
    EXPECT_EQ(digestDifference(start, drawingDigest(*database)), std::string());
    EXPECT_TRUE(drawingBytes(*database) == bytes);
    while (database->redo()) {
    }
    EXPECT_EQ(database->audit(), QStringList());
}

TEST(RandomEditing, ThousandsOfEditsUndoneLeaveTheBytesOfTheFile)
{
    follow(DrawingText::withLayers({{"Walls"}, {"Doors", 4}, {"Roof", 1, -3}, {"Empty"}}, "\r\n"),
           1, {4000, 50, 250});
}

TEST(RandomEditing, OldDrawingsKeepWhatTheirVersionCanHold)
{
    const QByteArray bytes = DrawingText::old({{"WALLS"}, {"DOORS"}});
    const auto database = readDrawing(bytes, QStringLiteral("old.dxf"));
    RandomEdits edits(*database, 2);
    for (int step = 0; step < 500; ++step) {
        edits.step();
        const auto again = readDrawing(drawingBytes(*database), QStringLiteral("again.dxf"));
        ASSERT_EQ(again->audit(), QStringList()) << edits.last().constData();
    }
    while (database->undo()) {
    }
    EXPECT_EQ(drawingBytes(*database).toStdString(), bytes.toStdString());
}

TEST(RandomEditing, RealDrawingsStayWhole)
{
    KEST_GTEST_NEEDS_DRAWINGS();
    unsigned seed = 100;
    for (const QString& path : SharedDrawings::files()) {
        SCOPED_TRACE(path.toStdString());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        if (bytes.size() > 3'000'000 || path.endsWith(QLatin1String("recover01.dxf")))
            continue;
        const QByteArray head = bytes.left(2000);
        const bool isNew = head.contains("AC1015") || head.contains("AC1018")
            || head.contains("AC102") || head.contains("AC103");
        if (isNew)
            follow(bytes, ++seed, {100, 50, 50});
    }
}

} // namespace
