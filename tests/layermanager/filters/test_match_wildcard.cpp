#include "layermanager/filters/MatchWildcard.h"
#include "sdk/KestStatus.h"
#include "support/reference/ReferenceWildcard.h"

#include <gtest/gtest.h>
#include <random>

namespace {
int match(const char* text, const char* pattern)
{
    const QString textString = QString::fromUtf8(text);
    const QString patternString = QString::fromUtf8(pattern);
    return MatchWildcard(&textString, &patternString);
}
} // namespace

TEST(MatchWildcard, AnswersWithTheStatusOfAHostCall)
{
    EXPECT_EQ(match("A-WALL", "A-*"), 5100);
    EXPECT_EQ(match("A-WALL", "S-*"), -5001);
}

TEST(MatchWildcard, ANullTextOrPatternMatchesNothing)
{
    const QString star = QStringLiteral("*");
    EXPECT_EQ(MatchWildcard(nullptr, &star), -5001);
    EXPECT_EQ(MatchWildcard(&star, nullptr), -5001);
    EXPECT_EQ(MatchWildcard(nullptr, nullptr), -5001);
    const QString empty;
    EXPECT_EQ(MatchWildcard(&empty, &star), 5100); // empty is not null
    EXPECT_EQ(MatchWildcard(&empty, &empty), 5100);
}

TEST(MatchWildcard, UpperAndLowerCaseAreDifferent)
{
    EXPECT_EQ(match("A-WALL", "a-wall"), -5001);
    EXPECT_EQ(match("a-wall", "A-*"), -5001);
    EXPECT_EQ(match("a-wall", "a-*"), 5100);
    EXPECT_EQ(match("Ärger", "ä*"), -5001);
    EXPECT_EQ(match("b", "[A-C]"), -5001);
    EXPECT_EQ(match("B", "[A-C]"), 5100);
    EXPECT_EQ(match("B", "[~abc]"), 5100);
}

TEST(MatchWildcard, OneAlternativeIsEnough)
{
    EXPECT_EQ(match("S-BEAM", "A-*,S-*"), 5100);
    EXPECT_EQ(match("A-WALL", "~S-*"), 5100);
    EXPECT_EQ(match("S-BEAM", "~S-*,*BEAM"), 5100);
    EXPECT_EQ(match("S-BEAM", "~S-*,A-*"), -5001);
    EXPECT_EQ(match("A,B", "A`,B"), 5100);
    EXPECT_EQ(match("A-1", "[A,B]-1"), -5001); // a bracket does not protect the comma
}

TEST(MatchWildcard, AgreesWithTheReferenceOnRandomPatterns)
{
    std::mt19937 random(7);
    const auto text = [&](const QString& alphabet, quint32 longest) {
        QString result;
        for (quint32 length = static_cast<quint32>(random()) % (longest + 1); length > 0; --length)
            result +=
                alphabet[static_cast<qsizetype>(random() % static_cast<quint32>(alphabet.size()))];
        return result;
    };
    int matched = 0;
    for (int i = 0; i < 20'000; ++i) {
        const QString pattern = text(QStringLiteral("aAbB1-*?#@.[]~`,"), 8);
        const QString name = text(QStringLiteral("aAbB1-[`"), 6);
        const bool expected = referenceWildcardMatch(name, pattern, Qt::CaseSensitive);
        ASSERT_EQ(MatchWildcard(&name, &pattern), expected ? kest::kNormal : kest::kError)
            << pattern.toStdString() << " and " << name.toStdString();
        matched += expected ? 1 : 0;
    }
    EXPECT_GT(matched, 2000);
    EXPECT_LT(matched, 18'000);
}
