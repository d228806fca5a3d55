#include "host/dialogs/linetype/LinetypeFile.h"
#include "host/dialogs/linetype/LinetypePreview.h"

#include <QSet>
#include <QTemporaryDir>

#include <cmath>
#include <gtest/gtest.h>
#include <numeric>

namespace {
std::string problem(const QByteArray& bytes)
{
    return LinetypeFile::parse(bytes).problems.join(QLatin1Char('|')).toStdString();
}
} // namespace

TEST(LinetypeFile, ReadsNamesDescriptionsAndPatterns)
{
    const LinetypeFile file = LinetypeFile::parse(
        "; remark\r\n*CHAIN, Chain, long __ .\r\nA,24,-3,0,-3\r\n\r\n*EDGE\n a , 5 , -2.5 \n");
    ASSERT_EQ(file.linetypes.size(), 2);
    EXPECT_EQ(file.linetypes[0].name, QStringLiteral("CHAIN"));
    EXPECT_EQ(file.linetypes[0].description, QStringLiteral("Chain, long __ ."));
    EXPECT_EQ(file.linetypes[0].dashes, (std::vector<double>{24, -3, 0, -3}));
    EXPECT_EQ(file.linetypes[1].name, QStringLiteral("EDGE"));
    EXPECT_EQ(file.linetypes[1].dashes, (std::vector<double>{5, -2.5}));
    EXPECT_TRUE(file.problems.isEmpty());
}

TEST(LinetypeFile, TellsWhatItLeavesOutAndReadsTheRest)
{
    EXPECT_EQ(problem("*GAS,Gas\nA,12,-5,[\"GAS\",STANDARD,S=2],-5\n"),
              "Line 2: the linetype \"GAS\" holds shapes or texts, which cannot be loaded.");
    EXPECT_EQ(problem("A,12,-5\n"), "Line 1: a line \"*NAME,description\" was expected.");
    EXPECT_EQ(problem("*A,a\n*B,b\nA,1,-1\n"), "Line 2: the linetype \"A\" has no pattern.");
    EXPECT_EQ(problem("*A,a"), "Line 1: the linetype \"A\" has no pattern.");
    EXPECT_EQ(problem("*,a\nA,1,-1"),
              "Line 1: a linetype needs a name after the \"*\".|Line 2: a line "
              "\"*NAME,description\" was expected.");
    EXPECT_EQ(problem("*A,a\nA,1,-1\n*a,again\nA,2,-1\n"),
              "Line 4: the linetype \"a\" is there "
              "twice.");
    const LinetypeFile file = LinetypeFile::parse("*A,a\nB,1\n*C,c\nA,1,-1\n");
    ASSERT_EQ(file.linetypes.size(), 1);
    EXPECT_EQ(file.linetypes[0].name, QStringLiteral("C"));
}

TEST(LinetypeFile, RefusesPatternsThatCannotBeDrawn)
{
    for (const char* pattern : {"A", "A,", "A,x", "A,1,-x", "A,inf", "A,nan", "A,1e9", "A,-1,-2",
                                "A,0", "B,1,-1", "1,-1"})
    {
        const LinetypeFile file = LinetypeFile::parse(QByteArray("*T,t\n") + pattern + "\n");
        EXPECT_TRUE(file.linetypes.isEmpty()) << pattern;
        EXPECT_EQ(file.problems.size(), 1) << pattern;
    }
    const QByteArray long_ = "*T,t\nA" + QByteArray(",1,-1").repeated(100);
    EXPECT_TRUE(LinetypeFile::parse(long_).linetypes.isEmpty());
}

TEST(LinetypeFile, BearsForeignBytes)
{
    QByteArray bytes;
    quint32 state = 7;
    for (int i = 0; i < 200000; ++i) {
        state = state * 1664525u + 1013904223u;
        bytes.append("*A,-10.\n;[]\xFF\0x"[state >> 28]);
    }
    const LinetypeFile file = LinetypeFile::parse(bytes);
    EXPECT_LE(file.problems.size(), 50);
    QByteArray many;
    for (int i = 0; i < 20000; ++i)
        many += "*T" + QByteArray::number(i) + ",t\nA,1,-1\n";
    EXPECT_EQ(LinetypeFile::parse(many).linetypes.size(), 5000);
}

TEST(LinetypeFile, SaysThatAFileCannotBeRead)
{
    const QTemporaryDir folder;
    const LinetypeFile none = LinetypeFile::read(folder.filePath(QStringLiteral("none.lin")));
    EXPECT_EQ(none.problems,
              QStringList{folder.filePath(QStringLiteral("none.lin cannot be read."))});
    EXPECT_EQ(LinetypeFile::read(folder.path()).problems.size(), 1);
}

TEST(LinetypeFile, ComesWithPatternsThatAllLoadAndDescribeThemselves)
{
    const LinetypeFile file =
        LinetypeFile::read(QStringLiteral(KEST_SHARE "/linetypes/metric.lin"));
    EXPECT_TRUE(file.problems.isEmpty());
    EXPECT_GE(file.linetypes.size(), 15);
    QSet<QString> descriptions;
    for (const LinetypeItem& linetype : file.linetypes) {
        EXPECT_FALSE(linetype.description.isEmpty());
        descriptions.insert(linetype.description);
        EXPECT_GE(linetype.dashes.size(), 2u);
        EXPECT_GE(linetype.dashes.front(), 0);
        EXPECT_LT(linetype.dashes.back(), 0);
    }
    EXPECT_EQ(descriptions.size(), file.linetypes.size());
}

TEST(LinetypePreview, ShowsMoreThanOnePeriodOfAnyPattern)
{
    const auto whole = [](const std::vector<double>& p) {
        return std::accumulate(p.begin(), p.end(), 0.0);
    };
    const auto chain = LinetypePreview::period({24, -3, 0, -3}, 180);
    ASSERT_EQ(chain.size(), 4u);
    EXPECT_EQ(chain, (std::vector<double>{32, 4, 2, 4}));
    EXPECT_EQ(LinetypePreview::period({0, -3}, 180), (std::vector<double>{2, 4}));
    EXPECT_EQ(LinetypePreview::period({12, -18}, 180), (std::vector<double>{8, 12}));
    EXPECT_EQ(LinetypePreview::period({1200, -300}, 180), (std::vector<double>{16, 4}));
    EXPECT_NEAR(whole(LinetypePreview::period({1e-6, -1e-6}, 180)), 16, 1e-9);
    EXPECT_NEAR(whole(LinetypePreview::period({1000, -1}, 180)), 122, 0.5);
}

TEST(LinetypePreview, DrawsALineWhereThereIsNoGap)
{
    EXPECT_TRUE(LinetypePreview::period({}, 180).empty());
    EXPECT_TRUE(LinetypePreview::period({0, 0}, 180).empty());
    EXPECT_TRUE(LinetypePreview::period({5, 3}, 180).empty());
    EXPECT_TRUE(LinetypePreview::period({INFINITY, -1}, 180).empty());
}

TEST(LinetypePreview, KeepsEveryDashAndGapVisible)
{
    for (const double length : LinetypePreview::period({1000, -0.001, 0, -0.001}, 100))
        EXPECT_GE(length, 2);
    // Neighbouring dashes are one dash.
    EXPECT_EQ(LinetypePreview::period({2, 2, -4}, 24).size(), 2u);
    EXPECT_EQ(LinetypePreview::period({-4, 4}, 24).size(), 2u);
}
