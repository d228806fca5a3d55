#include "host/commands/CommandLine.h"

#include <gtest/gtest.h>

namespace {
QStringList words(const char* line)
{
    const CommandLine parsed = CommandLine::parse(QString::fromUtf8(line));
    EXPECT_EQ("", parsed.error.toStdString());
    return parsed.words;
}

std::string error(const char* line)
{
    const CommandLine parsed = CommandLine::parse(QString::fromUtf8(line));
    EXPECT_TRUE(parsed.words.isEmpty());
    return parsed.error.toStdString();
}

QStringList list(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* text : texts)
        result << QString::fromUtf8(text);
    return result;
}
} // namespace

TEST(CommandLine, BlanksSeparateWords)
{
    EXPECT_EQ(list({"LAYOUT", "Set", "Sheet1"}), words("  LAYOUT\tSet   Sheet1 "));
}

TEST(CommandLine, AnEmptyLineAndACommentHoldNoWords)
{
    EXPECT_TRUE(words("").isEmpty());
    EXPECT_TRUE(words("   ; OPEN nothing").isEmpty());
}

TEST(CommandLine, QuotesKeepBlanksAndSemicolons)
{
    EXPECT_EQ(list({"CLAYER", "A B; C"}), words("CLAYER \"A B; C\""));
}

TEST(CommandLine, TwoQuotesAreAnEmptyAnswer)
{
    EXPECT_EQ(list({"SETVAR", "CLAYER", ""}), words("SETVAR CLAYER \"\""));
}

TEST(CommandLine, ADoubledQuoteInsideQuotesIsAQuote)
{
    EXPECT_EQ(list({"CLAYER", "1/2\" pipe"}), words("CLAYER \"1/2\"\" pipe\""));
    EXPECT_EQ(list({"CLAYER", "\""}), words("CLAYER \"\"\"\""));
}

TEST(CommandLine, ASemicolonStartsACommentAnywhereOutsideOfQuotes)
{
    EXPECT_EQ(list({"U"}), words("U; take it back"));
    EXPECT_EQ(list({"CLAYER", "x"}), words("CLAYER \"x\";y"));
}

TEST(CommandLine, AnOpenQuoteIsRefused)
{
    EXPECT_EQ("A quote is opened and not closed.", error("OPEN \"a.dxf"));
}

TEST(CommandLine, AQuoteInsideAWordIsRefused)
{
    EXPECT_EQ("A quote must start and end at a blank or at the line's end.", error("OPEN a\"b\""));
    EXPECT_EQ("A quote must start and end at a blank or at the line's end.", error("OPEN \"a\"b"));
}
