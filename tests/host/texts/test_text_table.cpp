#include "host/text/TextTable.h"

#include <gtest/gtest.h>

namespace {
std::string printed(const TextTable& table)
{
    return table.toString().toStdString();
}
} // namespace

TEST(TextTable, ColumnsAreAsWideAsTheirWidestCell)
{
    TextTable table({QStringLiteral("A"), QStringLiteral("Title")});
    table.addRow({QStringLiteral("long cell"), QStringLiteral("x")});
    EXPECT_EQ("A          Title\n"
              "---------  -----\n"
              "long cell  x\n",
              printed(table));
}

TEST(TextTable, LinesEndWithoutBlanksAndMissingCellsAreEmpty)
{
    TextTable table({QStringLiteral("A"), QStringLiteral("B")});
    table.addRow({QStringLiteral("1")});
    EXPECT_EQ("A  B\n-  -\n1\n", printed(table));
}

TEST(TextTable, WideAndCombiningCharactersKeepTheColumnsAligned)
{
    EXPECT_EQ(4, TextTable::displayWidth(u"図面"));
    EXPECT_EQ(1, TextTable::displayWidth(u"e\u0301"));
    TextTable table({QStringLiteral("Name"), QStringLiteral("X")});
    table.addRow({QStringLiteral("図"), QStringLiteral("1")});
    EXPECT_EQ("Name  X\n----  -\n図    1\n", printed(table));
}

TEST(TextTable, ControlCharactersCannotBreakALineOrReachTheTerminal)
{
    TextTable table({QStringLiteral("Name")});
    table.addRow({QStringLiteral("a\nb\x1B[2J")});
    EXPECT_EQ("Name\n-------\na\uFFFDb\uFFFD[2J\n", printed(table));
}

TEST(TextTable, AnEndlessCellDoesNotWidenTheOtherRows)
{
    TextTable table({QStringLiteral("A"), QStringLiteral("B")});
    table.addRow({QString(1'000'000, QLatin1Char('x')), QStringLiteral("1")});
    for (int i = 0; i < 10'000; ++i)
        table.addRow({QStringLiteral("y"), QStringLiteral("2")});
    const QStringList lines = table.toString().split(QLatin1Char('\n'));
    EXPECT_EQ(QString(1'000'000, QLatin1Char('x')) + QStringLiteral("  1"), lines[2]);
    EXPECT_EQ(QStringLiteral("y").leftJustified(255) + QStringLiteral("  2"), lines[3]);
}
