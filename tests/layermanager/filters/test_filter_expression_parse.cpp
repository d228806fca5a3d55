#include "FilterFixture.h"

#include <functional>
#include <limits>

namespace {

using Row = LayerFilterRow;

Row with(const std::function<void(Row&)>& set)
{
    Row row;
    set(row);
    return row;
}

Row named(const char* pattern)
{
    return with([&](Row& row) { row.m_strName = QString::fromUtf8(pattern); });
}

class ParsedFilterExpression : public FilterFixture
{
protected:
    Row of(const char* text) const { return parsedRow(QString::fromUtf8(text)); }
    LayerFilterRows rowsOf(const char* text) const { return parsed(QString::fromUtf8(text)); }
};

TEST_F(ParsedFilterExpression, GivesNoRowForAnEmptyText)
{
    EXPECT_TRUE(rowsOf("").empty());
    LayerFilterRows rows;
    EXPECT_FALSE(ParseRowExpression(m_database, QString(), rows));
    EXPECT_TRUE(rows.empty());
}

TEST_F(ParsedFilterExpression, AppendsToTheRowsThatAreThere)
{
    LayerFilterRows rows{named("first")};
    ParseFilterExpression(m_database, QStringLiteral("NAME==\"second\""), rows);
    EXPECT_TRUE(ParseRowExpression(m_database, QStringLiteral("NAME==\"third\""), rows));
    EXPECT_EQ(rows, (LayerFilterRows{named("first"), named("second"), named("third")}));
}

TEST_F(ParsedFilterExpression, DropsRowsThatSetNothing)
{
    for (const char* text : {" ", "nonsense", "PLOTSTYLE==\"Normal\"", "NAME=\"A\"", "name==\"A\"",
                             "NAME==\"\"", "DESC==\"x", "LINETYPE==\"unknown\""})
        EXPECT_TRUE(rowsOf(text).empty()) << text;
    EXPECT_EQ(rowsOf("nonsense  OR NAME==\"A\" "), LayerFilterRows{named("A")});
}

TEST_F(ParsedFilterExpression, ReadsTheRowsOfAText)
{
    EXPECT_EQ(rowsOf("NAME==\"A*\"  AND OFF==\"True\"  AND COLOR==\"1\" "),
              (LayerFilterRows{with([](Row& row) {
                  row.m_strName = QStringLiteral("A*");
                  row.m_nOn = 2;
                  row.m_nColor = 1;
              })}));
    EXPECT_EQ(rowsOf("NAME==\"A\"  OR NAME==\"B\"  OR NAME==\"C\" "),
              (LayerFilterRows{named("A"), named("B"), named("C")}));
}

TEST_F(ParsedFilterExpression, TakesTheCharacterBeforeAnOrFromTheRow)
{
    EXPECT_EQ(rowsOf("NAME==\"A\" OR NAME==\"B\""), (LayerFilterRows{named("A"), named("B")}))
        << "a name without its closing quote is all the rest";
    EXPECT_TRUE(rowsOf("DESC==\"A\" OR OFF==\"").size() == 1) << "a description without it is none";
    EXPECT_EQ(rowsOf("USED==\"True\" AND VPOVERRIDES==\"True\" OR NAME==\"B\" ").front().m_nUsed, 1)
        << "the value loses its quote";
    EXPECT_EQ(rowsOf("USED==\"True\" AND VPOVERRIDES==\"True\"").front().m_nUsed, 3)
        << "the last row loses nothing";
}

TEST_F(ParsedFilterExpression, EndsAtAnOrWithoutARowBeforeIt)
{
    EXPECT_TRUE(rowsOf(" OR NAME==\"A\" ").empty());
    EXPECT_TRUE(rowsOf("  OR NAME==\"A\" ").empty()) << "the one blank is dropped";
    EXPECT_TRUE(rowsOf(" OR ").empty());
    EXPECT_EQ(rowsOf("NAME==\"A\"  OR  OR NAME==\"B\" "), LayerFilterRows{named("A")});
    EXPECT_EQ(rowsOf("NAME==\"A\"  OR OR NAME==\"B\" "), LayerFilterRows{named("A")})
        << "the blank between two marks belongs to both";
    EXPECT_EQ(rowsOf("NAME==\"A\"  OR   OR NAME==\"B\" "),
              (LayerFilterRows{named("A"), named("B")}))
        << "a blank is a row, if one that sets nothing";
}

TEST_F(ParsedFilterExpression, KnowsOrAsAWordInCapitalsBetweenBlanksOnly)
{
    EXPECT_EQ(rowsOf("COLOR==\"1\"  or COLOR==\"2\" ").size(), 1U);
    EXPECT_EQ(rowsOf("COLOR==\"1\" OR\tCOLOR==\"2\" ").size(), 1U);
    EXPECT_TRUE(rowsOf("NAME==\"A OR B\" ").empty()) << "also inside a value";
}

TEST_F(ParsedFilterExpression, ReadsTheFourKindsOfUse)
{
    const auto used = [&](const char* text) { return of(text).m_nUsed; };
    EXPECT_EQ(used(R"(USED=="True" AND VPOVERRIDES=="False")"), 1);
    EXPECT_EQ(used(R"(USED=="False" AND VPOVERRIDES=="False")"), 2);
    EXPECT_EQ(used(R"(USED=="TRUE" AND VPOVERRIDES=="true")"), 3);
    EXPECT_EQ(used(R"(USED=="x" AND VPOVERRIDES=="True")"), 4);
    EXPECT_EQ(used(R"(VPOVERRIDES=="True" USED=="True")"), 3) << "in any order";
    EXPECT_EQ(used(R"(USED=="True")"), 1);
    EXPECT_EQ(used(R"(USED=="True)"), 2) << "no closing quote, no value";
    EXPECT_EQ(used(R"(VPOVERRIDES=="True")"), 0) << "only USED sets the field";
}

TEST_F(ParsedFilterExpression, ReadsTruthInAnyCaseAndAllElseAsFalse)
{
    struct Flag
    {
        const char* key;
        qint32 Row::*field;
        qint32 whenTrue;
    };
    constexpr Flag kFlags[] = {
        {"OFF", &Row::m_nOn, 2},
        {"FROZEN", &Row::m_nFrozen, 1},
        {"LOCKED", &Row::m_nLocked, 1},
        {"PLOTTABLE", &Row::m_nPlottable, 1},
        {"NEWVPFROZEN", &Row::m_nNewVpFrozen, 1},
        {"VPFROZEN", &Row::m_nVpFrozen, 1},
    };
    for (const Flag& flag : kFlags) {
        const auto row = [&](const char* value, bool closed = true) {
            return of((QByteArray(flag.key) + "==\"" + value + (closed ? "\"" : "")).constData());
        };
        const Row whenTrue = with([&](Row& r) { r.*flag.field = flag.whenTrue; });
        const Row whenFalse = with([&](Row& r) { r.*flag.field = 3 - flag.whenTrue; });
        for (const char* value : {"True", "TRUE", "true", "tRuE"})
            EXPECT_EQ(row(value), whenTrue) << flag.key << value;
        for (const char* value : {"False", "", "1", "True ", "yes"})
            EXPECT_EQ(row(value), whenFalse) << flag.key << value;
        EXPECT_EQ(row("True", false), whenFalse) << flag.key << " without a closing quote";
    }
}

TEST_F(ParsedFilterExpression, CutsANameAtItsFirstQuote)
{
    EXPECT_EQ(of("NAME==\"A\"B\" "), named("A"));
    EXPECT_EQ(of(BuildRowExpression(named("A\"B")).toUtf8().constData()), named("A"));
}

TEST_F(ParsedFilterExpression, TakesANameWithoutAClosingQuoteToTheEnd)
{
    EXPECT_EQ(of("NAME==\"A AND COLOR=="), named("A AND COLOR=="));
}

TEST_F(ParsedFilterExpression, ReadsDescriptionsWithAndWithoutABlankBeforeThem)
{
    const Row alone = with([](Row& row) { row.m_strDesc = QStringLiteral("x"); });
    EXPECT_EQ(BuildRowExpression(alone), QStringLiteral("DESC==\"x\" "));
    EXPECT_EQ(of("DESC==\"x\" "), alone);
    const Row withUse = with([](Row& row) {
        row.m_nUsed = 1;
        row.m_strDesc = QStringLiteral("x");
    });
    EXPECT_EQ(of("USED==\"True\" AND VPOVERRIDES==\"False\"DESC==\"x\" "), withUse);
    EXPECT_EQ(parsed(built({alone, withUse})), (LayerFilterRows{alone, withUse}));
}

TEST_F(ParsedFilterExpression, ReadsColorsByTheirLeadingDigits)
{
    const auto color = [&](const QByteArray& value) {
        const Row row = of(("COLOR==\"" + value + "\" ").constData());
        EXPECT_EQ(of(("VPCOLOR==\"" + value + "\" ").constData()).m_nVpColor, row.m_nColor);
        return row.m_nColor;
    };
    EXPECT_EQ(color("7"), 7);
    EXPECT_EQ(color(" \t12"), 12);
    EXPECT_EQ(color("+3"), 3);
    EXPECT_EQ(color("-3"), -3);
    EXPECT_EQ(color("12,34,56"), 12);
    EXPECT_EQ(color("0x10"), 0);
    EXPECT_EQ(color(""), 0);
    EXPECT_EQ(color("red"), 0);
    EXPECT_EQ(color("BYLAYER"), 0) << "no name is known here";
    EXPECT_EQ(color("- 3"), 0);
    EXPECT_EQ(color("2147483647"), std::numeric_limits<qint32>::max());
    EXPECT_EQ(color("2147483648"), std::numeric_limits<qint32>::max());
    EXPECT_EQ(color("-2147483648"), std::numeric_limits<qint32>::min());
    EXPECT_EQ(color("-99999999999999999999"), std::numeric_limits<qint32>::min());
    EXPECT_EQ(of("COLOR==\"7").m_nColor, 0) << "no closing quote, no value";
}

TEST_F(ParsedFilterExpression, FindsLinetypesByName)
{
    EXPECT_EQ(of("LINETYPE==\"dashed\"").m_idLinetype, linetype("DASHED"));
    EXPECT_EQ(of("VPLINETYPE==\"Continuous\"").m_idVpLinetype, linetype("Continuous"));
    EXPECT_TRUE(of("LINETYPE==\"DASH*\"").isEmpty()) << "names, not patterns";
    EXPECT_TRUE(of("LINETYPE==\"\"").isEmpty());
}

TEST_F(ParsedFilterExpression, ReadsLineweightsOfTheLayer)
{
    const auto weight = [&](const char* text) { return of(text).m_nLineweight; };
    EXPECT_EQ(weight("LINEWEIGHT==\"0.25 mm\" "), 25);
    EXPECT_EQ(weight("LINEWEIGHT==\"0.25\" "), 25);
    EXPECT_EQ(weight("LINEWEIGHT==\"Default\" "), -3);
    EXPECT_EQ(weight("LINEWEIGHT==\"DEFAULT\" "), -3);
    EXPECT_EQ(weight("LINEWEIGHT==\"ByLayer\" "), -1);
    EXPECT_EQ(weight("LINEWEIGHT==\"BYBLOCK\" "), -2);
    EXPECT_EQ(weight("LINEWEIGHT==\"2.11 mm\" "), 210);
    EXPECT_EQ(weight("LINEWEIGHT==\"0.25 MM\" "), 25) << "the number ends before the unit";
    EXPECT_EQ(weight("LINEWEIGHT==\"0.25"), 0);
    EXPECT_EQ(weight("LINEWEIGHT==\"mm\" "), 0) << "shorter than what is cut off";
    EXPECT_EQ(weight("LINEWEIGHT==\"5\" DESC==\"mm\" "), 0);
    setLineweightUnits(0);
    EXPECT_EQ(weight("LINEWEIGHT==\"0.012\" "), 30);
    makeLineweightUnitsUnreadable();
    EXPECT_EQ(weight("LINEWEIGHT==\"0.012\" "), 0);
}

TEST_F(ParsedFilterExpression, TakesAUnitAnywhereBehindALineweightForItsOwn)
{
    Row row = with([](Row& r) {
        r.m_nLineweight = -3;
        r.m_strDesc = QStringLiteral("hammer");
    });
    EXPECT_EQ(parsed(built({row})).front().m_nLineweight, 0) << "\"Defa\" is no number";
    row.m_strDesc = QStringLiteral("saw");
    EXPECT_EQ(parsed(built({row})), LayerFilterRows{row});
    row.m_nVpLineweight = 25;
    EXPECT_EQ(parsed(built({row})).front().m_nLineweight, 0) << "the viewport's unit counts too";
    EXPECT_EQ(of("DESC==\"mm\" LINEWEIGHT==\"Default\" ").m_nLineweight, -3) << "not before it";
}

TEST_F(ParsedFilterExpression, CutsNothingOffAViewportsLineweight)
{
    const auto weight = [&](const char* text) { return of(text).m_nVpLineweight; };
    EXPECT_EQ(weight("VPLINEWEIGHT==\"Default\" DESC==\"mm\" "), -3);
    EXPECT_EQ(weight("VPLINEWEIGHT==\"0.25 mm\" "), 25);
    EXPECT_EQ(weight("VPLINEWEIGHT==\"ByBlock\" "), -2);
    EXPECT_EQ(weight("VPLINEWEIGHT==\""), 0);
}

TEST_F(ParsedFilterExpression, PassesOverKeysThatAreTheTailOfALongerOne)
{
    const char* tails[] = {"VPFROZEN==\"True\"",     "VPCOLOR==\"1\"",
                           "VPLINETYPE==\"DASHED\"", "VPLINEWEIGHT==\"0.25\"",
                           "NEWVPFROZEN==\"True\"",  "PCOLOR==\"1\"",
                           "pCOLOR==\"1\"",          "pFROZEN==\"True\"",
                           "pLINETYPE==\"DASHED\"",  "pLINEWEIGHT==\"0.25\""};
    for (const char* text : tails) {
        const Row row = of(text);
        EXPECT_EQ(row.m_nFrozen, 0) << text;
        EXPECT_EQ(row.m_nColor, Row::kNoColor) << text;
        EXPECT_TRUE(row.m_idLinetype.isNull()) << text;
        EXPECT_EQ(row.m_nLineweight, Row::kNoLineweight) << text;
    }
    EXPECT_EQ(of("NEWVPFROZEN==\"True\"").m_nVpFrozen, 0);
    EXPECT_EQ(of("wVPFROZEN==\"True\"").m_nVpFrozen, 1) << "keys are upper case";
    EXPECT_EQ(of("xFROZEN==\"True\"").m_nFrozen, 1) << "no other character before it matters";
    EXPECT_EQ(of("NOTLOCKED==\"True\"").m_nLocked, 1);
}

TEST_F(ParsedFilterExpression, LooksAtTheFirstPlaceOfAKeyOnly)
{
    EXPECT_EQ(of("COLOR==\"1\"  AND COLOR==\"2\" ").m_nColor, 1);
    EXPECT_EQ(of("VPCOLOR==\"1\"  AND COLOR==\"2\" ").m_nColor, Row::kNoColor);
    EXPECT_EQ(of("COLOR==\"2\"  AND VPCOLOR==\"1\" "), with([](Row& row) {
                  row.m_nColor = 2;
                  row.m_nVpColor = 1;
              }));
    EXPECT_EQ(of("NAME==\"COLOR==\"  AND COLOR==\"2\" ").m_nColor, 0)
        << "a value with a key's text hides the key";
}

TEST_F(ParsedFilterExpression, LosesFrozenInTheViewportBehindFrozenInNewOnes)
{
    const Row row = with([](Row& r) {
        r.m_nNewVpFrozen = 2;
        r.m_nVpFrozen = 1;
    });
    EXPECT_EQ(parsed(built({row})), (LayerFilterRows{with([](Row& r) { r.m_nNewVpFrozen = 2; })}));
    EXPECT_EQ(of("VPFROZEN==\"True\"  AND NEWVPFROZEN==\"False\" "), row) << "but not before it";
}

TEST_F(ParsedFilterExpression, TakesALongTextInOneGo)
{
    constexpr int kMany = 200'000;
    QString marks = QStringLiteral("x");
    marks += QStringLiteral(" OR ").repeated(kMany);
    EXPECT_TRUE(parsed(marks).empty());
    EXPECT_TRUE(parsed(QStringLiteral("x  OR ").repeated(kMany)).empty());
    EXPECT_TRUE(parsed(QStringLiteral("COLOR=").repeated(kMany)).empty());
    EXPECT_EQ(parsed(QStringLiteral("NAME==\"") + QString(kMany, QLatin1Char('=')))
                  .front()
                  .m_strName.size(),
              kMany);
    const QString rows = QStringLiteral("COLOR==\"1\"  OR ").repeated(kMany / 10);
    EXPECT_EQ(parsed(rows).size(), std::size_t(kMany / 10));
}

} // namespace
