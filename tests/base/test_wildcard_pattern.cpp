#include "base/CharacterReader.h"
#include "base/WildcardPattern.h"
#include "support/reference/ReferenceWildcard.h"

#include <chrono>
#include <gtest/gtest.h>
#include <random>

namespace {
bool matches(const char* pattern, const char* name)
{
    return WildcardPattern(QString::fromUtf8(pattern)).matches(QString::fromUtf8(name));
}

bool matchesCase(const char* pattern, const char* name)
{
    return WildcardPattern(QString::fromUtf8(pattern), Qt::CaseSensitive)
        .matches(QString::fromUtf8(name));
}

/// Texts of random pieces from a list, of which repeated ones come more often.
class RandomText
{
public:
    explicit RandomText(quint32 seed)
        : m_random(seed)
    { }

    QString of(const QStringList& pieces, int least, int most)
    {
        QString text;
        for (int left = least + below(most - least + 1); left > 0; --left)
            text += pieces[below(static_cast<int>(pieces.size()))];
        return text;
    }
    int below(int bound) { return static_cast<int>(m_random() % static_cast<quint32>(bound)); }

private:
    std::mt19937 m_random;
};

QStringList pieces(const char* separatedByBlanks)
{
    return QString::fromUtf8(separatedByBlanks).split(QLatin1Char(' '));
}

/// Half of a pair of surrogates alone, twice, and whole pairs.
QStringList surrogates()
{
    return {QString(QChar(0xD801)), QString(QChar(0xDC01)), QString::fromUtf8("\U00010401"),
            QString::fromUtf8("\U00010429"), QString::fromUtf8("\U0001D11E")};
}

struct Agreement
{
    int matched = 0;
    int different = 0;
};

/// Compares with the reference, in both ways to treat case; gives the number of matches.
Agreement compare(const QString& pattern, const QStringList& names)
{
    Agreement result;
    for (const Qt::CaseSensitivity sensitivity : {Qt::CaseInsensitive, Qt::CaseSensitive}) {
        const WildcardPattern compiled(pattern, sensitivity);
        for (const QString& name : names) {
            const bool expected = referenceWildcardMatch(name, pattern, sensitivity);
            EXPECT_EQ(compiled.matches(name), expected)
                << pattern.toStdString() << " and " << name.toStdString();
            result.matched += expected ? 1 : 0;
            result.different += compiled.matches(name) != expected ? 1 : 0;
        }
    }
    return result;
}

/// Random patterns on random names, until one is different.
void expectAgreement(quint32 seed, const QStringList& ofPattern, const QStringList& ofName,
                     int longestName)
{
    constexpr int kPatterns = 600;
    constexpr int kNames = 12;
    RandomText random(seed);
    Agreement all;
    for (int i = 0; i < kPatterns && all.different == 0; ++i) {
        const QString pattern = random.of(ofPattern, 0, 9);
        QStringList names;
        for (int j = 0; j < kNames; ++j)
            names << random.of(ofName, 0, longestName);
        const Agreement one = compare(pattern, names);
        all.matched += one.matched;
        all.different += one.different;
    }
    EXPECT_EQ(all.different, 0);
    // Else the alphabets are badly chosen: hardly anything fits, or everything.
    EXPECT_GT(all.matched, kPatterns * kNames * 2 / 25);
    EXPECT_LT(all.matched, kPatterns * kNames * 2 * 24 / 25);
}

/// Counts the characters that a match looks at.
class CountingReader
{
public:
    explicit CountingReader(QStringView text)
        : m_reader(text, Qt::CaseInsensitive)
    { }

    qsizetype size() const { return m_reader.size(); }
    char32_t next(qsizetype& at) const
    {
        ++m_reads;
        return m_reader.next(at);
    }
    char32_t previous(qsizetype& at) const
    {
        ++m_reads;
        return m_reader.previous(at);
    }
    qsizetype reads() const { return m_reads; }

private:
    CharacterReader m_reader;
    mutable qsizetype m_reads = 0;
};

qsizetype readsOf(const QString& pattern, const QString& name)
{
    const CountingReader reader(name);
    WildcardAlternative(pattern, Qt::CaseInsensitive).matches(reader);
    return reader.reads();
}
} // namespace

TEST(WildcardPattern, AgreesWithTheReferenceOnPlainNames)
{
    expectAgreement(1, pieces("a A b B 1 - * * ? # @ ."), pieces("a b B 1 -"), 9);
}

TEST(WildcardPattern, AgreesWithTheReferenceOnEveryMark)
{
    expectAgreement(2, pieces("a b B 1 * * ? # @ . [ [ ] ] ~ - ` , [a-b] [~1] [] [~]"),
                    pieces("a b B 1 - [ ] ~ ` ,"), 7);
}

TEST(WildcardPattern, AgreesWithTheReferenceOnLongNames)
{
    // Places around every border of words and blocks, and on both sides of the longest flat name.
    expectAgreement(3, pieces("WALL wall EX?T - - * * * 2ND @@@@ A-B-C-D-E [A-Z]"),
                    pieces("wall Wall EXIT EXST - - 2nd A-B-C-D-E xyz"), 12);
    RandomText random(4);
    int matched = 0;
    for (int length = 200; length < 300; length += 3) {
        QString name = random.of(pieces("a b ab ba"), length, length);
        name.truncate(length);
        const QString pattern =
            QLatin1Char('*') + name.mid(random.below(length), 5) + QStringLiteral("*b*a?a*");
        const Agreement one = compare(pattern, {name, name.mid(1), name + name});
        matched += one.matched;
    }
    EXPECT_GT(matched, 100);
}

TEST(WildcardPattern, AgreesWithTheReferenceBeyondAscii)
{
    expectAgreement(5, pieces("a k ä Ä σ ς ſ s K * * * * * ? ? # @ @ . . ٣ [ä-ö] [~ä] ß ½"),
                    pieces("a k Ä ä Σ s S ſ K ٣ 3 ß - ½ ö ͅ ι"), 6);
}

TEST(WildcardPattern, AgreesWithTheReferenceOnSurrogatesWholeAndBroken)
{
    expectAgreement(6, pieces("a * * ? @ . [~a]") + surrogates(), pieces("a A") + surrogates(), 6);
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

TEST(WildcardPattern, CaseMattersWhereThatIsAskedFor)
{
    EXPECT_TRUE(matchesCase("Wall*", "Walls"));
    EXPECT_FALSE(matchesCase("Wall*", "WALLS"));
    EXPECT_FALSE(matchesCase("*ALL*", "Walls"));
    EXPECT_TRUE(matchesCase("[A-C]", "B"));
    EXPECT_FALSE(matchesCase("[A-C]", "b"));
    EXPECT_TRUE(matchesCase("[~A-C]", "b"));
    EXPECT_FALSE(matchesCase("Ä", "ä"));
    EXPECT_FALSE(matchesCase("\U00010401", "\U00010429"));
    EXPECT_TRUE(matches("\U00010401", "\U00010429"));
}

TEST(WildcardPattern, ACharacterFoldsToOneCharacter)
{
    EXPECT_TRUE(matches("STRASSE", "strasse"));
    EXPECT_FALSE(matches("STRASSE", "straße"));
    EXPECT_TRUE(matches("stra?e", "STRAßE"));
    EXPECT_TRUE(matches("ΣΑΣ", "σας"));
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
    EXPECT_TRUE(matches("[!-`]]", "5")); // from "!" to "]"
    EXPECT_FALSE(matches("[!-`]]", "!]"));
    EXPECT_TRUE(matches("[a`-c]", "-"));
    EXPECT_FALSE(matches("[a`-c]", "b"));
    EXPECT_TRUE(matches("[~~]", "a"));
    EXPECT_FALSE(matches("[~~]", "~"));
    EXPECT_TRUE(matches("[`~a]", "~"));
    EXPECT_FALSE(matches("[a]", "ab"));
    EXPECT_FALSE(matches("[a]", ""));
}

TEST(WildcardPattern, ABracketThatIsNotClosedIsACharacter)
{
    EXPECT_TRUE(matches("A[1", "A[1"));
    EXPECT_TRUE(matches("[", "["));
    EXPECT_TRUE(matches("[]", "[]"));
    EXPECT_TRUE(matches("[~", "[~"));
    EXPECT_FALSE(matches("A[1", "A1"));
    EXPECT_TRUE(matches("[`", "[`"));
    EXPECT_TRUE(matches("[a`]", "[a]"));
    EXPECT_TRUE(matches("[#", "[7"));
    EXPECT_TRUE(matches("[a,b]", "[a")); // a bracket does not keep a comma from separating
    EXPECT_TRUE(matches("[a,b]", "b]"));
    EXPECT_FALSE(matches("[a,b]", "a"));
    EXPECT_TRUE(matches("[a`,b]", ","));
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
    EXPECT_TRUE(matches("~~A", "A"));
    EXPECT_FALSE(matches("~~A", "~A"));
    EXPECT_TRUE(matches("B,~A*,C", "Dx"));
    EXPECT_TRUE(matches(",", ""));
    EXPECT_FALSE(matches(",", "A"));
}

TEST(WildcardPattern, AStarAloneMatchesWhateverStandsThere)
{
    for (const char* name : {"", "a", "a,b", "~", "äöü", "\U0001D11E"})
        EXPECT_TRUE(matches("*", name)) << name;
    EXPECT_TRUE(WildcardPattern(u"*").matches(QString(1, QChar(0xD800))));
    EXPECT_TRUE(WildcardPattern(u"*").matches(QString(1000, QLatin1Char('x'))));
}

TEST(WildcardPattern, CharactersThatAreNeitherLetterNorDigitMatchAFullStop)
{
    for (const char* name : {"-", " ", "_", ".", "|", "½", "\U0001D11E", "Ⅳ"}) {
        EXPECT_TRUE(matches(".", name)) << name;
        EXPECT_FALSE(matches("@", name)) << name;
        EXPECT_FALSE(matches("#", name)) << name;
    }
    EXPECT_TRUE(matches("#", "٣"));
    EXPECT_TRUE(matches("@", "Σ"));
    EXPECT_TRUE(matches("@", "\U00010401"));
    EXPECT_FALSE(matches(".", ""));
}

TEST(WildcardPattern, ABackQuoteAtTheEndStaysWhenOthersAreTakenOff)
{
    EXPECT_EQ(WildcardPattern::unescaped(u"a`*b``"), QStringLiteral("a*b`"));
    EXPECT_EQ(WildcardPattern::unescaped(u"A`"), QStringLiteral("A`"));
    EXPECT_EQ(WildcardPattern::unescaped(u"A```"), QStringLiteral("A``"));
    EXPECT_TRUE(WildcardPattern::isLiteral(u"a`*`["));
    EXPECT_FALSE(WildcardPattern::isLiteral(u"a``*"));
    EXPECT_FALSE(WildcardPattern::isLiteral(u"~a"));
}

TEST(WildcardPattern, NoPatternLooksAtACharacterMoreThanOnceForEachOfItsOwn)
{
    const QString run(3000, QLatin1Char('a'));
    for (const char* text : {"*a*a*a*a*b", "*aaaaaaaaab", "*aaaaab*", "*a*a*a*a*b*", "a*a*a*ab*a",
                             "*ab*aab*aaab*", "*[a-z]?@a*.*", "aaaa", "*a"})
    {
        const QString pattern = QString::fromUtf8(text);
        EXPECT_LE(readsOf(pattern, run), (pattern.size() + 1) * (run.size() + 1)) << text;
    }
    // Of segments that are found early only those behind the last one search on.
    EXPECT_LE(readsOf(QStringLiteral("*a").repeated(1000), run), 2 * run.size());
    EXPECT_EQ(readsOf(QStringLiteral("*"), run), 0);
    EXPECT_EQ(readsOf(QStringLiteral("b*"), run), 1);
    EXPECT_EQ(readsOf(QStringLiteral("*b"), run), 1);
}

TEST(WildcardPattern, TheWorkGrowsWithTheNameNotWithItsSquare)
{
    const QString pattern = QStringLiteral("*a*a*a*a*a*a*ab*");
    const qsizetype few = readsOf(pattern, QString(1000, QLatin1Char('a')));
    const qsizetype many = readsOf(pattern, QString(100'000, QLatin1Char('a')));
    EXPECT_LE(many, 101 * few);
    EXPECT_FALSE(WildcardPattern(pattern).matches(QString(100'000, QLatin1Char('a'))));
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
