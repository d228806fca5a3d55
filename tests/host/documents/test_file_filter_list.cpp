#include "host/application/FileFilterList.h"

#include <gtest/gtest.h>

namespace {
std::string forDialog(const char* list)
{
    return FileFilterList(QString::fromUtf8(list)).forDialog().toStdString();
}

std::string saved(const char* list, const char* path, int index)
{
    return FileFilterList(QString::fromUtf8(list))
        .withExtension(QString::fromUtf8(path), index)
        .toStdString();
}

const char* const kImport = "Drawing|dwg,Standards|dws,Drawing Template|dwt,Layer state files|las";
} // namespace

TEST(FileFilterList, BecomesTheFiltersOfAFileDialog)
{
    EXPECT_EQ(forDialog("Layer State file(*.las)|las"), "Layer State file (*.las *.LAS)");
    EXPECT_EQ(forDialog(kImport),
              "Drawing (*.dwg *.DWG);;Standards (*.dws *.DWS);;Drawing Template (*.dwt *.DWT);;"
              "Layer state files (*.las *.LAS)");
}

TEST(FileFilterList, TakesExtensionsWithDotOrWildcard)
{
    EXPECT_EQ(forDialog("States|.las"), "States (*.las *.LAS)");
    EXPECT_EQ(forDialog("States|*.las"), "States (*.las *.LAS)");
    EXPECT_EQ(forDialog("Numbers|001"), "Numbers (*.001)");
}

TEST(FileFilterList, BearsMalformedLists)
{
    EXPECT_EQ(forDialog(""), "All files (*)");
    EXPECT_EQ(forDialog(",,|,"), "All files (*)");
    EXPECT_EQ(forDialog("States"), "States (*)");
    EXPECT_EQ(forDialog("|las"), "LAS files (*.las *.LAS)");
    EXPECT_EQ(forDialog("States|l a*;s)"), "States (*)");
    EXPECT_EQ(forDialog("States|las|dxf"), "States (*)");
    EXPECT_EQ(forDialog("A (odd;; one|las"), "A (*.las *.LAS)");
    EXPECT_EQ(FileFilterList(QString(100000, QLatin1Char('|'))).filters().size(), 0u);
    EXPECT_LE(FileFilterList(QStringLiteral("a|b,").repeated(10000)).filters().size(), 100u);
}

TEST(FileFilterList, KnowsWhichIndicesItHas)
{
    const FileFilterList list(QString::fromLatin1(kImport));
    EXPECT_EQ(list.validIndex(3), 3);
    EXPECT_EQ(list.validIndex(4), -1);
    EXPECT_EQ(list.validIndex(-1), -1);
    EXPECT_EQ(list.validIndex(-7), -1);
}

TEST(FileFilterList, AddsTheExtensionOfTheFilterInForce)
{
    EXPECT_EQ(saved(kImport, "/tmp/all off", 3), "/tmp/all off.las");
    EXPECT_EQ(saved(kImport, "/tmp/all off", -1), "/tmp/all off.dwg");
    EXPECT_EQ(saved(kImport, "/tmp/all off", 9), "/tmp/all off.dwg");
    EXPECT_EQ(saved("Any|*", "/tmp/all off", 0), "/tmp/all off");
    EXPECT_EQ(saved("", "/tmp/all off", 0), "/tmp/all off");
}

TEST(FileFilterList, LeavesNamesThatHaveAnExtension)
{
    EXPECT_EQ(saved(kImport, "/tmp/all off.LAS", 3), "/tmp/all off.LAS");
    EXPECT_EQ(saved(kImport, "/tmp/all off.txt", 3), "/tmp/all off.txt");
    EXPECT_EQ(saved(kImport, "/tmp/floor 2.1", 3), "/tmp/floor 2.1.las");
    EXPECT_EQ(saved(kImport, "/tmp/v1.old/floor", 3), "/tmp/v1.old/floor.las");
    EXPECT_EQ(saved(kImport, "", 3), "");
}
