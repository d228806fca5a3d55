#include "database/drawing/OdDbDatabase.h"
#include "io/DrawingFile.h"
#include "io/dwg/support/DwgFiles.h"
#include "io/dwg/support/DwgParts.h"
#include "support/drawings/DrawingDigest.h"
#include "support/drawings/RandomEdits.h"
#include "support/drawings/SharedDrawings.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

constexpr int kRounds = 3;
constexpr int kSaves = 3;
constexpr int kSteps = 25; ///< between two saves

class DwgRandomEditing : public testing::TestWithParam<const char*>
{
protected:
    /// Edits at random, saves over the file now and then and reads it again; taken back to the
    /// start, the drawing has the bytes that it began with. Returns the bytes saved last.
    static QByteArray follow(const QByteArray& bytes, int round)
    {
        const auto drawing = readDrawing(bytes, QStringLiteral("random.dwg"));
        const QStringList start = drawingDigest(*drawing);
        const bool trueColours = DwgParts(bytes).file().version() >= DrawingVersion::V2004;
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("saved.dwg"));
        RandomEdits edits(*drawing, 700u + static_cast<unsigned>(round), trueColours,
                          round * kSaves * kSteps);
        for (int save = 0; save < kSaves; ++save) {
            for (int step = 0; step < kSteps; ++step)
                edits.step();
            EXPECT_EQ(drawing->audit(), QStringList());
            EXPECT_EQ(writeDrawing(*drawing, path).notKept, QStringList());
            const auto again = readDrawing(path);
            EXPECT_EQ(again->audit(), QStringList());
            EXPECT_EQ(DwgFiles::faults(*again), QStringList());
            EXPECT_EQ(DwgParts(DwgFiles::bytes(path)).faults(), QStringList());
            EXPECT_EQ(digestDifference(drawingDigest(*drawing), drawingDigest(*again)), "")
                << "save " << save << ", " << edits.last().constData();
        }
        while (drawing->undo()) {
        }
        EXPECT_EQ(digestDifference(start, drawingDigest(*drawing)), "");
        EXPECT_TRUE(drawingBytes(*drawing) == bytes);
        return DwgFiles::bytes(path);
    }
};

TEST_P(DwgRandomEditing, SavesWhatTheDrawingSaysRoundAfterRound)
{
    const QString name = QString::fromLatin1(GetParam());
    if (!DwgFiles::isMade(name))
        KEST_GTEST_NEEDS_DRAWINGS();
    QByteArray bytes = DwgFiles::bytes(name);
    ASSERT_FALSE(bytes.isEmpty());
    for (int round = 0; round < kRounds; ++round) {
        SCOPED_TRACE(round);
        bytes = follow(bytes, round);
    }
}

std::string testName(const testing::TestParamInfo<const char*>& file)
{
    return DwgFiles::testName(QString::fromLatin1(file.param));
}

INSTANTIATE_TEST_SUITE_P(Versions, DwgRandomEditing, testing::ValuesIn(DwgFiles::kWritable),
                         testName);
INSTANTIATE_TEST_SUITE_P(Made, DwgRandomEditing, testing::ValuesIn(DwgFiles::kMade), testName);

} // namespace
