#include "host/batch/ScriptReader.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace {
struct Read
{
    std::vector<std::string> lines;
    std::string error;
    int lineNumber = 0;
};

Read read(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    ScriptReader reader(buffer);
    Read result;
    QString line;
    while (reader.next(line))
        result.lines.push_back(line.toStdString());
    EXPECT_FALSE(reader.next(line));
    result.error = reader.error().toStdString();
    result.lineNumber = reader.lineNumber();
    return result;
}

using Lines = std::vector<std::string>;
} // namespace

TEST(ScriptReader, ReadsLinesWithAnyLineEndAndALastOneWithout)
{
    const Read script = read("OPEN a\r\nU\n\nREDO");
    EXPECT_EQ((Lines{"OPEN a", "U", "", "REDO"}), script.lines);
    EXPECT_EQ("", script.error);
    EXPECT_EQ(4, script.lineNumber);
}

TEST(ScriptReader, AnEmptyScriptHasNoLines)
{
    EXPECT_TRUE(read("").lines.empty());
}

TEST(ScriptReader, DecodesUtf8AndForgetsAByteOrderMark)
{
    EXPECT_EQ((Lines{"CLAYER Wände"}),
              read("\xEF\xBB\xBF"
                   "CLAYER W\xC3\xA4nde\n")
                  .lines);
}

TEST(ScriptReader, ALineThatIsTooLongEndsTheScriptWithASentence)
{
    const QByteArray longest(ScriptReader::kMaxLineBytes, 'x');
    EXPECT_EQ(2u, read(longest + "\n" + longest + "\r\n").lines.size());
    const Read script = read("U\n" + longest + "x\nU\n");
    EXPECT_EQ(Lines{"U"}, script.lines);
    EXPECT_EQ("The line is longer than 65536 bytes.", script.error);
    EXPECT_EQ(2, script.lineNumber);
}

TEST(ScriptReader, ALineWithoutEndIsNotReadWhole)
{
    const Read script = read(QByteArray(8 * 1024 * 1024, 'x'));
    EXPECT_EQ("The line is longer than 65536 bytes.", script.error);
}

TEST(ScriptReader, BytesThatAreNoTextEndTheScriptWithASentence)
{
    EXPECT_EQ("The line holds control characters; a script is plain text.",
              read(QByteArray("U\0\1\2\n", 5)).error);
    EXPECT_EQ("The line holds control characters; a script is plain text.",
              read("a\x1B[2J\n").error);
    EXPECT_EQ("", read("a\tb\n").error);
}

TEST(ScriptReader, TextInAnotherEncodingEndsTheScriptWithASentence)
{
    const Read script = read("CLAYER W\xE4nde\nU\n");
    EXPECT_EQ("The line is not UTF-8 text.", script.error);
    EXPECT_TRUE(script.lines.empty());
    EXPECT_EQ("The line is not UTF-8 text.", read("\xC0\xAF\n").error);
}
