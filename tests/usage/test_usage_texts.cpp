#include "io/DrawingEndings.h"
#include "usage/BashCompletion.h"
#include "usage/DrawingSuffixes.h"
#include "usage/FishCompletion.h"
#include "usage/Roff.h"
#include "usage/WrappedText.h"

#include <QStringList>

#include <gtest/gtest.h>

TEST(WrappedText, BreaksBetweenWordsAndKeepsItsColumn)
{
    const QString text = QStringLiteral("word ").repeated(30).trimmed();
    const QString block = wrappedText(QStringLiteral("  --name"), text, 22);
    const QStringList lines = block.trimmed().split(QLatin1Char('\n'));
    ASSERT_EQ(3, lines.size());
    EXPECT_EQ("--name              word", lines[0].left(24).toStdString());
    for (const QString& line : lines.mid(1))
        EXPECT_EQ(QString(22, QLatin1Char(' ')) + QStringLiteral("word"), line.left(26));
    for (const QString& line : block.split(QLatin1Char('\n')))
        EXPECT_LE(line.size(), kUsageWidth);
}

TEST(WrappedText, BeginsBelowAHeadThatReachesTooFar)
{
    EXPECT_EQ("--a-very-long-option VALUE\n          text\n",
              wrappedText(QStringLiteral("--a-very-long-option VALUE"), QStringLiteral("text"), 10)
                  .toStdString());
}

TEST(Roff, WhatWouldBeARequestOrAnEscapeIsPrinted)
{
    EXPECT_EQ("\\&.las files\n", roff::line(QStringLiteral(".las files")).toStdString());
    EXPECT_EQ("\\-\\-a \\eb \\(tic \\(had \\(gae \\(aqf\\(aq \\(dqg\\(dq\n",
              roff::line(QStringLiteral("--a \\b ~c ^d `e 'f' \"g\"")).toStdString());
    EXPECT_EQ(".TP\n\\fB\\-x\\fR\ntext\n",
              roff::item(QStringLiteral("-x"), QStringLiteral("text")).toStdString());
}

TEST(Roff, AnEmptyLineParts)
{
    EXPECT_EQ("one\n.PP\ntwo\n", roff::paragraphs(QStringLiteral("one\n\ntwo")).toStdString());
}

TEST(FishCompletion, QuotesItsTexts)
{
    CompletedProgram program;
    program.name = QStringLiteral("draw");
    program.plain.options.push_back({{QStringLiteral("-q"), QStringLiteral("--quiet")},
                                     QStringLiteral("Don't \\ talk. At all."),
                                     {}});
    EXPECT_TRUE(fishCompletion(program).contains(
        QStringLiteral("complete -c draw -s q -l quiet -d 'Don\\'t \\\\ talk'\n")))
        << fishCompletion(program).toStdString();
}

TEST(BashCompletion, AProgramWithoutCommandsAsksForNone)
{
    CompletedProgram program;
    program.name = QStringLiteral("draw");
    program.plain.options.push_back({{QStringLiteral("--to")},
                                     QStringLiteral("Where to."),
                                     {CompletedValue::Kind::Folder, {}}});
    const QString plain = bashCompletion(program);
    EXPECT_TRUE(plain.contains(QStringLiteral("    options=\"--to\"\n")));
    EXPECT_TRUE(plain.contains(QStringLiteral("        --to | --to=) value=\"folder\" ;;\n")));
    EXPECT_FALSE(plain.contains(QStringLiteral("COMP_CWORD -eq 1")));
    program.commands.push_back({QStringLiteral("all"), {}, {}, {}, {}, {}});
    EXPECT_TRUE(bashCompletion(program).contains(QStringLiteral("COMP_CWORD -eq 1")));
}

TEST(ShellCompletion, OffersTheEndingsOfAllDrawingsThatCanBeRead)
{
    QStringList endings;
    for (const DrawingEnding& known : kDrawingEndings)
        endings << QLatin1String(known.ending);
    EXPECT_EQ(endings, drawingSuffixes());
}
