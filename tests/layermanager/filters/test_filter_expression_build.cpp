#include "FilterFixture.h"

#include <functional>

namespace {

using Row = LayerFilterRow;

class BuiltFilterExpression : public FilterFixture
{
protected:
    static std::string text(const std::function<void(Row&)>& set)
    {
        Row row;
        set(row);
        return BuildRowExpression(row).toStdString();
    }
};

TEST_F(BuiltFilterExpression, IsEmptyForAnEmptyRow)
{
    EXPECT_TRUE(BuildRowExpression({}).isEmpty());
}

TEST_F(BuiltFilterExpression, SaysUseAndOverridesTogetherWithoutABlankAtTheEnd)
{
    const char* expected[] = {
        R"(USED=="True" AND VPOVERRIDES=="False")", R"(USED=="False" AND VPOVERRIDES=="False")",
        R"(USED=="True" AND VPOVERRIDES=="True")", R"(USED=="False" AND VPOVERRIDES=="True")"};
    for (int used = 1; used <= 4; ++used)
        EXPECT_EQ(text([&](Row& row) { row.m_nUsed = used; }), expected[used - 1]);
}

TEST_F(BuiltFilterExpression, EndsEachOtherCriterionInABlank)
{
    EXPECT_EQ(text([](Row& r) { r.m_strName = QStringLiteral("A*"); }), R"(NAME=="A*" )");
    EXPECT_EQ(text([](Row& r) { r.m_nOn = 1; }), R"(OFF=="False" )");
    EXPECT_EQ(text([](Row& r) { r.m_nOn = 2; }), R"(OFF=="True" )");
    EXPECT_EQ(text([](Row& r) { r.m_nFrozen = 1; }), R"(FROZEN=="True" )");
    EXPECT_EQ(text([](Row& r) { r.m_nFrozen = 2; }), R"(FROZEN=="False" )");
    EXPECT_EQ(text([](Row& r) { r.m_nLocked = 1; }), R"(LOCKED=="True" )");
    EXPECT_EQ(text([](Row& r) { r.m_nLocked = 2; }), R"(LOCKED=="False" )");
    EXPECT_EQ(text([](Row& r) { r.m_nColor = 10; }), R"(COLOR=="10" )");
    EXPECT_EQ(text([](Row& r) { r.m_nColor = 0; }), R"(COLOR=="0" )");
    EXPECT_EQ(text([](Row& r) { r.m_nPlottable = 1; }), R"(PLOTTABLE=="True" )");
    EXPECT_EQ(text([](Row& r) { r.m_nPlottable = 2; }), R"(PLOTTABLE=="False" )");
    EXPECT_EQ(text([](Row& r) { r.m_nNewVpFrozen = 1; }), R"(NEWVPFROZEN=="True" )");
    EXPECT_EQ(text([](Row& r) { r.m_nNewVpFrozen = 2; }), R"(NEWVPFROZEN=="False" )");
    EXPECT_EQ(text([](Row& r) { r.m_nVpFrozen = 1; }), R"(VPFROZEN=="True" )");
    EXPECT_EQ(text([](Row& r) { r.m_nVpFrozen = 2; }), R"(VPFROZEN=="False" )");
    EXPECT_EQ(text([](Row& r) { r.m_nVpColor = 255; }), R"(VPCOLOR=="255" )");
    EXPECT_EQ(text([](Row& r) { r.m_strDesc = QStringLiteral("x"); }), R"(DESC=="x" )");
}

TEST_F(BuiltFilterExpression, NamesLinetypes)
{
    EXPECT_EQ(text([&](Row& r) { r.m_idLinetype = linetype("dashed"); }), R"(LINETYPE=="DASHED" )");
    EXPECT_EQ(text([&](Row& r) { r.m_idVpLinetype = linetype("DASHED"); }),
              R"(VPLINETYPE=="DASHED" )");
}

TEST_F(BuiltFilterExpression, LeavesOutWhatIsNoLinetypeOrIsErased)
{
    EXPECT_EQ(text([&](Row& r) { r.m_idLinetype = m_database.getLayerZeroId(); }), "");
    const OdDbObjectId dashed = linetype("DASHED");
    dashed.safeOpenObject(OdDb::kForWrite)->erase();
    EXPECT_EQ(text([&](Row& r) {
                  r.m_nColor = 1;
                  r.m_idLinetype = r.m_idVpLinetype = dashed;
              }),
              R"(COLOR=="1" )");
}

TEST_F(BuiltFilterExpression, WordsLineweightsAsTheHostDoes)
{
    EXPECT_EQ(text([](Row& r) { r.m_nLineweight = 25; }), R"(LINEWEIGHT=="0.25 mm" )");
    EXPECT_EQ(text([](Row& r) { r.m_nLineweight = -1; }), R"(LINEWEIGHT=="ByLayer" )");
    EXPECT_EQ(text([](Row& r) { r.m_nLineweight = -2; }), R"(LINEWEIGHT=="ByBlock" )");
    EXPECT_EQ(text([](Row& r) { r.m_nLineweight = -3; }), R"(LINEWEIGHT=="Default" )");
    EXPECT_EQ(text([](Row& r) { r.m_nVpLineweight = 0; }), R"(VPLINEWEIGHT=="0.00 mm" )");
    setLineweightUnits(0);
    EXPECT_EQ(text([](Row& r) { r.m_nLineweight = 25; }), "LINEWEIGHT==\"0.010\"\" ");
}

TEST_F(BuiltFilterExpression, LeavesOutLineweightsThatTheHostHasNoTextFor)
{
    KestHost withoutServices = m_host.parts();
    withoutServices.services = nullptr;
    ksSetHost(withoutServices);
    EXPECT_EQ(text([](Row& r) {
                  r.m_nLineweight = 25;
                  r.m_nVpLineweight = 25;
                  r.m_nLocked = 1;
              }),
              R"(LOCKED=="True" )");
}

TEST_F(BuiltFilterExpression, JoinsCriteriaWithAndBehindTwoBlanks)
{
    EXPECT_EQ(text([](Row& r) {
                  r.m_strName = QStringLiteral("A*");
                  r.m_nOn = 2;
                  r.m_nColor = 1;
              }),
              R"(NAME=="A*"  AND OFF=="True"  AND COLOR=="1" )");
}

TEST_F(BuiltFilterExpression, WritesAllCriteriaInTheirOrder)
{
    Row row{1, 1, 1, 1, 1, 1, 1, 1, 2, QStringLiteral("A"), QStringLiteral("d"), {}, {}, 25, -3};
    row.m_idLinetype = row.m_idVpLinetype = linetype("Continuous");
    EXPECT_EQ(BuildRowExpression(row).toStdString(),
              "USED==\"True\" AND VPOVERRIDES==\"False\" AND NAME==\"A\"  AND OFF==\"False\"  "
              "AND FROZEN==\"True\"  AND LOCKED==\"True\"  AND COLOR==\"1\"  AND "
              "LINETYPE==\"Continuous\"  AND LINEWEIGHT==\"0.25 mm\"  AND PLOTTABLE==\"True\"  "
              "AND NEWVPFROZEN==\"True\"  AND VPFROZEN==\"True\"  AND VPCOLOR==\"2\"  AND "
              "VPLINETYPE==\"Continuous\"  AND VPLINEWEIGHT==\"Default\" DESC==\"d\" ");
}

TEST_F(BuiltFilterExpression, PutsTheDescriptionBehindOthersWithoutAnd)
{
    EXPECT_EQ(text([](Row& r) {
                  r.m_nUsed = 1;
                  r.m_strDesc = QStringLiteral("x");
              }),
              R"(USED=="True" AND VPOVERRIDES=="False"DESC=="x" )");
    EXPECT_EQ(text([](Row& r) {
                  r.m_nOn = 2;
                  r.m_strDesc = QStringLiteral("x");
              }),
              R"(OFF=="True" DESC=="x" )");
}

TEST_F(BuiltFilterExpression, DoesNotEscapeQuotes)
{
    EXPECT_EQ(text([](Row& r) { r.m_strName = QStringLiteral("A\"B"); }), R"(NAME=="A"B" )");
}

TEST_F(BuiltFilterExpression, PassesOverValuesThatMeanNothing)
{
    for (const int odd : {-1, 3, 5}) {
        EXPECT_EQ(text([&](Row& r) { r.m_nOn = r.m_nFrozen = r.m_nVpFrozen = odd; }), "");
        EXPECT_EQ(text([&](Row& r) { r.m_nUsed = odd == 3 ? 7 : odd; }), "");
    }
}

TEST_F(BuiltFilterExpression, OfAGridLeavesItsLastRowOut)
{
    Row first;
    first.m_strName = QStringLiteral("A");
    Row second;
    second.m_nColor = 2;
    QStringList texts{QStringLiteral("left over")};
    QString expression = QStringLiteral("left over");
    for (const LayerFilterRows& rows :
         {LayerFilterRows{}, LayerFilterRows{{}}, LayerFilterRows{first}}) {
        BuildFilterExpression(rows, texts, expression);
        EXPECT_TRUE(texts.isEmpty());
        EXPECT_TRUE(expression.isEmpty());
    }
    BuildFilterExpression({first, second, {}}, texts, expression);
    EXPECT_EQ(texts,
              QStringList({QStringLiteral("NAME==\"A\" "), QStringLiteral("COLOR==\"2\" ")}));
    EXPECT_EQ(expression, QStringLiteral("NAME==\"A\"  OR COLOR==\"2\" "));
}

TEST_F(BuiltFilterExpression, OfAGridKeepsThePlaceOfAnEmptyRow)
{
    Row row;
    row.m_strName = QStringLiteral("A");
    QStringList texts;
    QString expression;
    BuildFilterExpression({row, {}, row, {}}, texts, expression);
    EXPECT_EQ(texts.size(), 3);
    EXPECT_EQ(expression, QStringLiteral("NAME==\"A\"  OR  OR NAME==\"A\" "));
    BuildFilterExpression({{}, row, {}}, texts, expression);
    EXPECT_EQ(expression, QStringLiteral(" OR NAME==\"A\" "));
}

} // namespace
