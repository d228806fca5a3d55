#include "base/WildcardPattern.h"

#include <chrono>
#include <cstring>
#include <gtest/gtest.h>

namespace {
bool matches(const char* pattern, const char* name)
{
    return matchesWildcard(WildcardPattern(QString::fromUtf8(pattern)), QString::fromUtf8(name));
}

/// Matches one alternative without brackets and back-quotes, by trying everything.
bool naive(QStringView pattern, QStringView name)
{
    if (pattern.isEmpty())
        return name.isEmpty();
    const QChar token = pattern[0];
    if (token == QLatin1Char('*'))
        return naive(pattern.mid(1), name) || (!name.isEmpty() && naive(pattern, name.mid(1)));
    if (name.isEmpty())
        return false;
    const QChar c = name[0];
    const bool fits = token == QLatin1Char('?') || token == c
        || (token == QLatin1Char('#') && c.isDigit()) || (token == QLatin1Char('@') && c.isLetter())
        || (token == QLatin1Char('.') && !c.isLetterOrNumber());
    return fits && naive(pattern.mid(1), name.mid(1));
}

/// The text of that number, digits of which are taken from the characters.
QString spelled(quint32 number, const char* characters)
{
    const auto base = static_cast<quint32>(std::strlen(characters));
    QString text;
    for (; number > 0; number /= base)
        text += QLatin1Char(characters[number % base]);
    return text;
}
} // namespace

TEST(WildcardPattern, AgreesWithTryingEverything)
{
    int matched = 0;
    for (quint32 i = 0; i < 8000; ++i) {
        const QString pattern = spelled(i * 2654435761U >> 12, "a*b?1#.@*-");
        const WildcardPattern compiled(pattern);
        for (quint32 j = 0; j < 40; ++j) {
            const QString name = spelled((i + 77) * 40503U * (j + 1) >> 8, "ab1-a");
            ASSERT_EQ(naive(pattern, name), compiled.matches(name))
                << pattern.toStdString() << " and " << name.toStdString();
            matched += compiled.matches(name) ? 1 : 0;
        }
    }
    EXPECT_GT(matched, 1000);
}

TEST(WildcardPattern, ANameMatchesItselfWhateverItsCase)
{
    EXPECT_TRUE(matches("Walls outer", "WALLS OUTER"));
    EXPECT_TRUE(matches("ÄUSSEN", "äussen"));
    EXPECT_FALSE(matches("Wall", "Walls"));
    EXPECT_FALSE(matches("Walls", "Wall"));
    EXPECT_TRUE(matches("", ""));
    EXPECT_FALSE(matches("", "A"));
}

TEST(WildcardPattern, AStarStandsForAnyRun)
{
    EXPECT_TRUE(matches("*", ""));
    EXPECT_TRUE(matches("*", "A-WALL"));
    EXPECT_TRUE(matches("A-*", "a-wall"));
    EXPECT_TRUE(matches("A-*", "A-"));
    EXPECT_TRUE(matches("*wall*", "A-WALL-1"));
    EXPECT_TRUE(matches("*ab*ab", "xababab"));
    EXPECT_TRUE(matches("**a**", "bab"));
    EXPECT_FALSE(matches("A*B", "A-B-C"));
    EXPECT_FALSE(matches("*ab*ab", "xab"));
}

TEST(WildcardPattern, OneCharacterIsOfTheKindAskedFor)
{
    EXPECT_TRUE(matches("L?1", "LÖ1"));
    EXPECT_FALSE(matches("L?", "L"));
    EXPECT_TRUE(matches("?", "\xF0\x9D\x84\x9E")); // one character, two units
    EXPECT_TRUE(matches("L##", "L10"));
    EXPECT_FALSE(matches("L##", "L1a"));
    EXPECT_TRUE(matches("@@1", "äb1"));
    EXPECT_FALSE(matches("@", "1"));
    EXPECT_TRUE(matches("A.B", "A-B"));
    EXPECT_TRUE(matches("A.B", "A B"));
    EXPECT_FALSE(matches("A.B", "A1B"));
    EXPECT_FALSE(matches("A.B", "AxB"));
}

TEST(WildcardPattern, SetsTakeMembersAndRanges)
{
    EXPECT_TRUE(matches("[abc]1", "B1"));
    EXPECT_FALSE(matches("[abc]1", "D1"));
    EXPECT_TRUE(matches("[a-c]", "b"));
    EXPECT_FALSE(matches("[a-c]", "-"));
    EXPECT_TRUE(matches("[-a]", "-"));
    EXPECT_TRUE(matches("[a-]", "-"));
    EXPECT_TRUE(matches("[~abc]", "d"));
    EXPECT_FALSE(matches("[~abc]", "A"));
    EXPECT_TRUE(matches("[]x]", "]"));
    EXPECT_TRUE(matches("[]x]", "x"));
    EXPECT_FALSE(matches("[~]x]", "]"));
    EXPECT_TRUE(matches("[`]]", "]"));
    EXPECT_TRUE(matches("[*?]", "?"));
    EXPECT_FALSE(matches("[*?]", "a"));
}

TEST(WildcardPattern, ABracketThatIsNotClosedIsACharacter)
{
    EXPECT_TRUE(matches("A[1", "A[1"));
    EXPECT_TRUE(matches("[", "["));
    EXPECT_TRUE(matches("[]", "[]"));
    EXPECT_TRUE(matches("[~", "[~"));
    EXPECT_FALSE(matches("A[1", "A1"));
}

TEST(WildcardPattern, ABackQuoteTakesTheNextCharacterAsItIs)
{
    EXPECT_TRUE(matches("`*A", "*A"));
    EXPECT_FALSE(matches("`*A", "BA"));
    EXPECT_TRUE(matches("A`.B", "A.B"));
    EXPECT_FALSE(matches("A`.B", "A-B"));
    EXPECT_TRUE(matches("`~A", "~A"));
    EXPECT_TRUE(matches("``", "`"));
    EXPECT_TRUE(matches("A`", "A`")); // nothing follows
    EXPECT_TRUE(matches("a`,b", "a,b"));
    EXPECT_FALSE(matches("a`,b", "b"));
}

TEST(WildcardPattern, CommasSeparateAndATildeTurnsAround)
{
    EXPECT_TRUE(matches("A*,B*", "Bx"));
    EXPECT_FALSE(matches("A*,B*", "Cx"));
    EXPECT_TRUE(matches("~A*", "B"));
    EXPECT_FALSE(matches("~A*", "A1"));
    EXPECT_TRUE(matches("~A*,A1", "a1"));
    EXPECT_FALSE(matches("~*", "anything"));
    EXPECT_TRUE(matches("~", "anything"));
    EXPECT_FALSE(matches("~", ""));
    EXPECT_TRUE(matches("A,", ""));
    EXPECT_TRUE(matches("A~B", "a~b"));
}

TEST(WildcardPattern, HostilePatternsTakeNoTime)
{
    // Where each run is tried against each other run, this would outlive the universe.
    const QString name(20'000, QLatin1Char('a'));
    const QString pattern = QStringLiteral("*a").repeated(100) + QStringLiteral("*b");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(WildcardPattern(pattern).matches(name));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_TRUE(WildcardPattern(QString(100'000, QLatin1Char('*'))).matches(name));
    EXPECT_FALSE(WildcardPattern(QString(100'000, QLatin1Char('['))).matches(name));
    EXPECT_FALSE(WildcardPattern(QStringLiteral("[`]").repeated(100'000)).matches(name));
}

TEST(WildcardPattern, ListsComeApartAtTheirCommas)
{
    EXPECT_EQ(QStringList({QStringLiteral("A 1"), QStringLiteral("B*"), QStringLiteral("c`,d")}),
              WildcardPattern::alternatives(QStringLiteral(" A 1 ,, B* ,c`,d,")));
    EXPECT_EQ(QStringList(), WildcardPattern::alternatives(QStringLiteral(" , ")));
}

TEST(WildcardPattern, ALiteralIsToldFromAPattern)
{
    for (const char* literal : {"A", "A-1 b", "A`.B", "``", "A~B", "A]"})
        EXPECT_TRUE(WildcardPattern::isLiteral(QString::fromUtf8(literal))) << literal;
    for (const char* pattern : {"*", "A?", "#", "@", "A.B", "[a]", "~A"})
        EXPECT_FALSE(WildcardPattern::isLiteral(QString::fromUtf8(pattern))) << pattern;
    EXPECT_EQ("A.`B", WildcardPattern::unescaped(QStringLiteral("A`.``B")).toStdString());
}
