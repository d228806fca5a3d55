#include "database/drawing/OdDbDatabase.h"
#include "database/filters/FilterExpressionParser.h"
#include "database/filters/FilterExpressionText.h"
#include "io/DrawingFile.h"
#include "support/drawings/DrawingText.h"

#include <gtest/gtest.h>

namespace {

class FilterExpressions : public testing::Test
{
protected:
    QString own(const char* text) const
    {
        const auto spelling = FilterExpressionText::spelled(*m_database, QString::fromUtf8(text));
        return spelling.isSayable ? spelling.text : QStringLiteral("verbatim");
    }

    std::unique_ptr<OdDbDatabase> m_database =
        readDrawing(DrawingText::withLayers({{"Walls"}}), QStringLiteral("expressions.dxf"));
};

TEST_F(FilterExpressions, OfThisSystemComeBackAsTheyAre)
{
    for (const char* text :
         {"", "NAME==\"A*\"  AND OFF==\"True\"  AND COLOR==\"1\" ",
          "USED==\"True\" AND VPOVERRIDES==\"False\"DESC==\"x\" ", "DESC==\"x\" ",
          "NAME==\"A\"  OR NAME==\"B\" ", " OR NAME==\"B\" ", "NAME==\"ARQ*\"",
          "USED==\"True\" AND VPOVERRIDES==\"True\" OR NAME==\"B\" "})
        EXPECT_EQ(own(text), QString::fromUtf8(text));
}

TEST_F(FilterExpressions, WithOtherBlanksAndParenthesesAreSpelledAnew)
{
    EXPECT_EQ(own("( NAME== \"*1-*\" )"), QStringLiteral("NAME==\"*1-*\" "));
    EXPECT_EQ(own("( COLOR== \"1\" )"), QStringLiteral("COLOR==\"1\" "));
    EXPECT_EQ(own("( OFF == \"TRUE\" )"), QStringLiteral("OFF==\"True\" "));
    EXPECT_EQ(own("( NAME == \"A-*\" OR NAME == \"0\" )"),
              QStringLiteral("NAME==\"A-*\"  OR NAME==\"0\" "));
    EXPECT_EQ(own("NAME==\"A*\" OR NAME==\"B*\""), QStringLiteral("NAME==\"A*\"  OR NAME==\"B*\" "))
        << "read back without the blank the first row would lose its quote";
}

TEST_F(FilterExpressions, WithOrInsideAndAreMultipliedOut)
{
    EXPECT_EQ(own("( NAME== \"X\" or NAME== \"Y\" ) and ( COLOR== \"7\" )"),
              QStringLiteral("NAME==\"X\"  AND COLOR==\"7\"  OR NAME==\"Y\"  AND COLOR==\"7\" "));
}

TEST_F(FilterExpressions, OrderCriteriaAsTheRowEditorDoes)
{
    EXPECT_EQ(own("LINEWEIGHT==\"0.18\" AND LINETYPE==\"continuous\" AND LOCKED==\"true\" AND "
                  "NAME==\"A\""),
              QStringLiteral("NAME==\"A\"  AND LOCKED==\"True\"  AND LINETYPE==\"Continuous\"  AND "
                             "LINEWEIGHT==\"0.18 mm\" "));
}

TEST_F(FilterExpressions, NameColoursByTheirIndex)
{
    EXPECT_EQ(own("COLOR==\"WHITE\""), QStringLiteral("COLOR==\"7\" "));
}

TEST_F(FilterExpressions, SayUseAloneInTwoRows)
{
    EXPECT_EQ(own("USED==\"TRUE\""),
              QStringLiteral("USED==\"True\" AND VPOVERRIDES==\"False\" OR "
                             "USED==\"True\" AND VPOVERRIDES==\"True\""));
}

TEST_F(FilterExpressions, ThatRowsCannotSayStayAsTheyAre)
{
    for (const char* text :
         {"PLOTSTYLE==\"Normal\"", "NAME==\"A*\" AND NAME==\"*B\"", "NAME!=\"A\"",
          "LINETYPE==\"DASH*\"", "COLOR==\"12,34,56\"", "LINEWEIGHT==\"2.11\"", "NAME==\"A",
          "( NAME==\"A\"", "COLOR==\"1\" AND COLOR==\"2\"", "OFF==\"maybe\"",
          "VPFROZEN==\"True\" AND NEWVPFROZEN==\"True\"", "NAME==\"A OR B\" OR COLOR==\"1\""})
    {
        const auto spelling = FilterExpressionText::spelled(*m_database, QString::fromUtf8(text));
        EXPECT_FALSE(spelling.isSayable) << text;
        EXPECT_EQ(spelling.text, QString::fromUtf8(text));
    }
}

TEST_F(FilterExpressions, ThatMultiplyOutWithoutEndAreGivenUp)
{
    QByteArray text = "( NAME==\"A\" OR NAME==\"B\" )";
    for (int i = 0; i < 40; ++i)
        text += " AND ( COLOR==\"1\" OR COLOR==\"2\" )";
    EXPECT_EQ(own(text.constData()), QStringLiteral("verbatim"));
    EXPECT_EQ(own(QByteArray(100000, '(').constData()), QStringLiteral("verbatim"));
}

TEST_F(FilterExpressions, OfEndlessCriteriaAreGivenUpAtOnce)
{
    // Each criterion would be put behind each of the rows: gigabytes, and hours.
    const QByteArray rows = "(" + QByteArray(" OR LOCKED==\"True\"").repeated(256).mid(4) + ")";
    const QString text =
        QString::fromLatin1(rows + QByteArray(" AND LOCKED==\"True\"").repeated(200'000));
    FilterExpressionParser parser(text);
    EXPECT_FALSE(parser.rows());
    EXPECT_TRUE(parser.isTooLarge());
}

TEST_F(FilterExpressions, AreReadUpToTheirLimits)
{
    const auto isTooLarge = [](const QByteArray& text) {
        const QString expression = QString::fromLatin1(text);
        FilterExpressionParser parser(expression);
        const bool hasRows = parser.rows().has_value();
        EXPECT_NE(hasRows, parser.isTooLarge());
        return parser.isTooLarge();
    };
    const auto joined = [](const char* word, int count) {
        return "OFF==\"True\"" + (QByteArray(word) + "OFF==\"True\"").repeated(count - 1);
    };
    const auto nested = [](int depth) {
        return QByteArray(depth, '(') + "OFF==\"True\"" + QByteArray(depth, ')');
    };
    EXPECT_FALSE(isTooLarge(joined(" OR ", 256)));
    EXPECT_TRUE(isTooLarge(joined(" OR ", 257)));
    EXPECT_FALSE(isTooLarge(joined(" AND ", 64)));
    EXPECT_TRUE(isTooLarge(joined(" AND ", 65)));
    EXPECT_FALSE(isTooLarge(nested(32)));
    EXPECT_TRUE(isTooLarge(nested(33)));
    const QString noExpression = QStringLiteral("NAME==\"A");
    FilterExpressionParser parser(noExpression);
    EXPECT_FALSE(parser.rows());
    EXPECT_FALSE(parser.isTooLarge());
}

} // namespace
