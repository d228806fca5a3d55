#include "FilterFixture.h"
#include "host/text/LineweightText.h"
#include "support/reference/ForeseenFilterLoss.h"

#include <random>

namespace {

using Row = LayerFilterRow;

/// Rows and texts by chance, the same ones in each run.
class Chance
{
public:
    explicit Chance(const OdDbDatabase& database)
        : m_linetypes(database.table(OdDbTableKind::Linetype).records())
    { }

    int below(int end) { return std::uniform_int_distribution(0, end - 1)(m_engine); }
    bool oneIn(int many) { return below(many) == 0; }

    Row row()
    {
        Row row;
        for (qint32 Row::*field : {&Row::m_nOn, &Row::m_nFrozen, &Row::m_nLocked,
                                   &Row::m_nPlottable, &Row::m_nNewVpFrozen, &Row::m_nVpFrozen})
            row.*field = oneIn(3) ? 1 + below(2) : 0;
        row.m_nUsed = oneIn(2) ? 1 + below(4) : 0;
        row.m_nColor = oneIn(3) ? below(257) : Row::kNoColor;
        row.m_nVpColor = oneIn(3) ? below(257) : Row::kNoColor;
        row.m_strName = oneIn(2) ? text() : QString();
        row.m_strDesc = oneIn(3) ? text() : QString();
        row.m_idLinetype = oneIn(3) ? linetype() : OdDbObjectId();
        row.m_idVpLinetype = oneIn(3) ? linetype() : OdDbObjectId();
        row.m_nLineweight = oneIn(2) ? lineweight() : Row::kNoLineweight;
        row.m_nVpLineweight = oneIn(3) ? lineweight() : Row::kNoLineweight;
        return row;
    }
    /// None of them empty.
    LayerFilterRows rows()
    {
        LayerFilterRows rows;
        for (int i = below(4); i >= 0; --i) {
            rows.push_back(oneIn(8) ? Row() : row());
            if (rows.back().isEmpty())
                rows.back().m_nUsed = 1 + below(4);
        }
        return rows;
    }
    /// Pieces of expressions in any order.
    QString rubble()
    {
        static const QStringList kPieces = {
            QStringLiteral("USED==\""),
            QStringLiteral("VPOVERRIDES==\""),
            QStringLiteral("NAME==\""),
            QStringLiteral("OFF==\""),
            QStringLiteral("FROZEN==\""),
            QStringLiteral("LOCKED==\""),
            QStringLiteral("COLOR==\""),
            QStringLiteral("LINETYPE==\""),
            QStringLiteral("LINEWEIGHT==\""),
            QStringLiteral("PLOTTABLE==\""),
            QStringLiteral("NEWVPFROZEN==\""),
            QStringLiteral("VPFROZEN==\""),
            QStringLiteral("VPCOLOR==\""),
            QStringLiteral("VPLINETYPE==\""),
            QStringLiteral("VPLINEWEIGHT==\""),
            QStringLiteral("DESC==\""),
            QStringLiteral("\""),
            QStringLiteral("\" "),
            QStringLiteral(" OR "),
            QStringLiteral("OR "),
            QStringLiteral(" AND "),
            QStringLiteral("True"),
            QStringLiteral("tRUE"),
            QStringLiteral("False"),
            QStringLiteral("Default"),
            QStringLiteral("ByLayer"),
            QStringLiteral("BYBLOCK"),
            QStringLiteral("0.25 mm"),
            QStringLiteral("2.11"),
            QStringLiteral("mm"),
            QStringLiteral("1e999"),
            QStringLiteral("-12"),
            QStringLiteral("99999999999"),
            QStringLiteral("dashed"),
            QStringLiteral("Continuous"),
            QStringLiteral("A*"),
            QStringLiteral("P"),
            QStringLiteral("p"),
            QStringLiteral("W"),
            QStringLiteral("w"),
            QStringLiteral("NEW"),
            QStringLiteral("=="),
            QStringLiteral(" "),
            QString::fromUtf8("\xF0\x9F\x93\x90"),
        };
        QString text;
        for (int i = below(14); i >= 0; --i)
            text += kPieces[below(static_cast<int>(kPieces.size()))];
        return text;
    }
    void damage(QString& text)
    {
        for (int i = below(4); i >= 0 && !text.isEmpty(); --i) {
            const int at = below(static_cast<int>(text.size()));
            switch (below(4)) {
            case 0:
                text.remove(at, 1 + below(6));
                break;
            case 1:
                text.insert(at, rubble());
                break;
            case 2:
                text[at] = QLatin1Char(static_cast<char>(32 + below(95)));
                break;
            default:
                text.insert(at, text.mid(below(static_cast<int>(text.size())), below(20)));
            }
        }
    }

private:
    QString text()
    {
        static const QString kCharacters = QString::fromUtf8("ABmmOR *?#@.,~[-]`=PpW\u00E4\u0416");
        QString text;
        for (int i = below(8); i >= 0; --i)
            text += kCharacters[below(static_cast<int>(kCharacters.size()))];
        return text;
    }
    OdDbObjectId linetype()
    {
        return m_linetypes[static_cast<std::size_t>(below(static_cast<int>(m_linetypes.size())))];
    }
    qint32 lineweight()
    {
        const auto valid = validLineweights();
        return oneIn(3) ? -1 - below(3)
                        : valid[static_cast<std::size_t>(below(static_cast<int>(valid.size())))];
    }

    std::mt19937 m_engine{20231};
    std::vector<OdDbObjectId> m_linetypes;
};

class FilterExpressionReadBack : public FilterFixture
{
protected:
    ForeseenFilterLoss foreseen() const
    {
        const int units = m_host.ints.value(QString::fromUtf16(kLineweightUnits));
        return {reference(), [units](int weight) { return lineweightText(weight, units != 0); }};
    }
    void expectAsReference(const QString& text) const
    {
        EXPECT_EQ(parsed(text), reference().expression(text)) << text.toStdString();
    }

    Chance m_chance{m_database};
};

TEST_F(FilterExpressionReadBack, GivesTheRowsButForTheKnownLosses)
{
    int unchanged = 0;
    int changed = 0;
    for (int i = 0; i < 6000; ++i) {
        setLineweightUnits(i % 2);
        const LayerFilterRows rows = m_chance.rows();
        if (!ForeseenFilterLoss::isForeseeable(rows))
            continue;
        const LayerFilterRows after = parsed(built(rows));
        ASSERT_EQ(after, foreseen()(rows)) << built(rows).toStdString();
        ++(after == rows ? unchanged : changed);
    }
    EXPECT_GT(unchanged, 1500);
    EXPECT_GT(changed, 1500);
}

TEST_F(FilterExpressionReadBack, GivesEachCriterionAloneAsItWas)
{
    LayerFilterRows rows;
    const auto add = [&](auto field, const auto& value) { rows.emplace_back().*field = value; };
    for (const int value : {1, 2}) {
        for (qint32 Row::*field : {&Row::m_nUsed, &Row::m_nOn, &Row::m_nFrozen, &Row::m_nLocked,
                                   &Row::m_nPlottable, &Row::m_nNewVpFrozen, &Row::m_nVpFrozen})
            add(field, value);
    }
    for (const int color : {0, 1, 7, 255, 256, -1}) {
        add(&Row::m_nColor, color);
        add(&Row::m_nVpColor, color);
    }
    add(&Row::m_strName, QStringLiteral("A*,~B`#[x-z]"));
    add(&Row::m_strDesc, QStringLiteral("two words"));
    add(&Row::m_idLinetype, linetype("DASHED"));
    add(&Row::m_idVpLinetype, linetype("ByLayer"));
    for (const int weight : validLineweights().first(validLineweights().size() - 1)) {
        add(&Row::m_nLineweight, weight);
        add(&Row::m_nVpLineweight, weight);
    }
    for (const int weight : {-1, -2, -3}) {
        add(&Row::m_nLineweight, weight);
        add(&Row::m_nVpLineweight, weight);
    }
    for (const int units : {0, 1}) {
        setLineweightUnits(units);
        for (const Row& row : rows)
            EXPECT_EQ(parsed(built({row})), LayerFilterRows{row});
        EXPECT_EQ(parsed(built(rows)), rows) << "all in one expression";
    }
}

TEST_F(FilterExpressionReadBack, KeepsUseWithOverridesInTheLastRowOnly)
{
    for (const int used : {3, 4}) {
        Row row;
        row.m_nUsed = used;
        Row less;
        less.m_nUsed = used - 2;
        EXPECT_EQ(parsed(built({row})), LayerFilterRows{row});
        EXPECT_EQ(parsed(built({row, row})), (LayerFilterRows{less, row}));
    }
}

TEST_F(FilterExpressionReadBack, EndsAtAnEmptyRowInTheMiddle)
{
    Row row;
    row.m_nColor = 1;
    EXPECT_EQ(parsed(built({row, {}, row})), LayerFilterRows{row});
    EXPECT_TRUE(parsed(built({{}, row})).empty());
}

TEST_F(FilterExpressionReadBack, SplitsATextThatSaysOr)
{
    Row row;
    row.m_nColor = 1;
    row.m_strDesc = QStringLiteral("doors OR walls");
    Row rest;
    rest.m_nColor = 1;
    EXPECT_EQ(parsed(built({row})), LayerFilterRows{rest}) << "the description has lost its end";
    row.m_strDesc.clear();
    row.m_strName = QStringLiteral("a OR b");
    EXPECT_EQ(parsed(built({row})), LayerFilterRows{rest}) << "the name is gone, not what follows";
}

TEST_F(FilterExpressionReadBack, TakesAKeyInAValueForTheKey)
{
    Row row;
    row.m_strName = QStringLiteral("OFF==\"True");
    Row both = row;
    both.m_strName = QStringLiteral("OFF==");
    both.m_nOn = 2;
    EXPECT_EQ(parsed(built({row})), LayerFilterRows{both});
}

TEST_F(FilterExpressionReadBack, LosesALinetypeThatIsGone)
{
    Row row;
    row.m_nColor = 1;
    row.m_idLinetype = linetype("DASHED");
    const QString expression = built({row});
    EXPECT_EQ(parsed(expression), LayerFilterRows{row});
    row.m_idLinetype.safeOpenObject(OdDb::kForWrite)->erase();
    row.m_idLinetype = OdDbObjectId();
    EXPECT_EQ(parsed(expression), LayerFilterRows{row});
}

TEST_F(FilterExpressionReadBack, OfBuiltTextsIsThatOfTheReference)
{
    for (int i = 0; i < 3000; ++i)
        expectAsReference(built(m_chance.rows()));
}

TEST_F(FilterExpressionReadBack, OfDamagedTextsIsThatOfTheReference)
{
    for (int i = 0; i < 6000; ++i) {
        setLineweightUnits(i % 2);
        QString text = built(m_chance.rows());
        m_chance.damage(text);
        expectAsReference(text);
    }
}

TEST_F(FilterExpressionReadBack, OfRubbleIsThatOfTheReference)
{
    int rows = 0;
    for (int i = 0; i < 20000; ++i) {
        if (i == 10000)
            makeLineweightUnitsUnreadable();
        const QString text = m_chance.rubble();
        expectAsReference(text);
        rows += static_cast<int>(parsed(text).size());
    }
    EXPECT_GT(rows, 10000) << "most texts must mean something";
}

} // namespace
