#include "host/commands/KeywordList.h"

#include <gtest/gtest.h>

namespace {
KeywordList layerWords()
{
    return KeywordList(QStringList{QStringLiteral("ON"), QStringLiteral("OFF"),
                                   QStringLiteral("LOck"), QStringLiteral("Ltype"),
                                   QStringLiteral("LWeight"), QStringLiteral("stAte"),
                                   QStringLiteral("Set"), QStringLiteral("?")});
}

std::string found(const char* answer)
{
    const KeywordList words = layerWords();
    const int index = words.find(QString::fromUtf8(answer)).index;
    return index < 0 ? "" : words.words()[index].toStdString();
}
} // namespace

TEST(KeywordAnswers, CapitalsSuffice)
{
    EXPECT_EQ("LOck", found("LO"));
    EXPECT_EQ("LOck", found("lo"));
    EXPECT_EQ("LWeight", found("lw"));
    EXPECT_EQ("stAte", found("a"));
    EXPECT_EQ("Ltype", found("L"));
    EXPECT_EQ("Set", found("s"));
    EXPECT_EQ("?", found("?"));
}

TEST(KeywordAnswers, WholeWordsAndUniqueBeginningsAnswer)
{
    EXPECT_EQ("ON", found("on"));
    EXPECT_EQ("LWeight", found(" LWEIGHT "));
    EXPECT_EQ("stAte", found("st"));
    EXPECT_EQ("OFF", found("of"));
    EXPECT_EQ("",
              found("lock "
                    "it"));
    EXPECT_EQ("", found(""));
    EXPECT_EQ("", found("x"));
}

TEST(KeywordAnswers, ABeginningOfSeveralWordsIsNoneAndNamesThem)
{
    EXPECT_EQ("", found("o"));
    EXPECT_EQ("\"o\" can stand for ON, OFF.",
              layerWords().complaint(QStringLiteral("o")).toStdString());
}

TEST(KeywordAnswers, AWrongAnswerIsToldWithTheWords)
{
    const KeywordList words(QStringList{QStringLiteral("Yes"), QStringLiteral("No")});
    EXPECT_EQ("One of Yes, No is needed; \"maybe\" is none.",
              words.complaint(QStringLiteral("maybe")).toStdString());
}

TEST(KeywordAnswers, AnUnderscoreAsksForTheEnglishWord)
{
    constexpr const char* kWords[] = {"Yes", "No"};
    const KeywordList words{std::span<const char* const>(kWords)};
    EXPECT_EQ(1, words.find(QStringLiteral("_N")).index);
    EXPECT_EQ(0, words.find(QStringLiteral("_Yes")).index);
    EXPECT_EQ(-1, words.find(QStringLiteral("_")).index);
}

TEST(KeywordAnswers, ThePromptShowsTheWordsAndTheDefault)
{
    const KeywordList words(QStringList{QStringLiteral("Yes"), QStringLiteral("No")});
    EXPECT_EQ("Sure [Yes/No] <No>:",
              words.prompt(QStringLiteral("Sure"), QStringLiteral("No")).toStdString());
    EXPECT_EQ("Sure [Yes/No]:", words.prompt(QStringLiteral("Sure")).toStdString());
    EXPECT_EQ("Name:", KeywordList(QStringList()).prompt(QStringLiteral("Name")).toStdString());
}
