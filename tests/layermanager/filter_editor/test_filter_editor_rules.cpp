#include "../filters/FilterFixture.h"
#include "layermanager/filter_editor/core/FilterEditorRules.h"

class FilterEditorRules : public FilterFixture
{
protected:
    bool saysAll(const char* expression) const
    {
        const QString text = QString::fromUtf8(expression);
        return rowsSayAllOf(m_database, text, parsed(text));
    }
};

TEST_F(FilterEditorRules, ANameLosesTheBlanksAroundIt)
{
    QString name = QStringLiteral("  Outer walls  ");
    EXPECT_TRUE(IsValidFilterName(name, {}));
    EXPECT_EQ(name.toStdString(), "Outer walls");
}

TEST_F(FilterEditorRules, AnEmptyNameIsRefused)
{
    QString name = QStringLiteral(" \t ");
    EXPECT_FALSE(IsValidFilterName(name, {}));
    EXPECT_TRUE(name.isEmpty());
}

TEST_F(FilterEditorRules, ANameHasTheAsteriskRefusedAndTheBackslashNot)
{
    const QString refused = QStringLiteral("<>/':;\"?*|,=`");
    for (char16_t c = 0x20; c < 0x180; ++c) {
        QString name = QStringLiteral("a%1b").arg(QChar(c));
        EXPECT_EQ(IsValidFilterName(name, {}), !refused.contains(QChar(c))) << int(c);
    }
}

TEST_F(FilterEditorRules, ANameOfAnotherFilterIsRefusedInAnyCase)
{
    QString name = QStringLiteral(" wÄnde ");
    EXPECT_FALSE(IsValidFilterName(name, {QStringLiteral("All"), QStringLiteral("WäNDE")}));
    EXPECT_TRUE(IsValidFilterName(name, {QStringLiteral("All"), QStringLiteral("WäNDE2")}));
}

TEST_F(FilterEditorRules, ACellTakesTheAsteriskAndTheBackslashButNoQuestionMark)
{
    const QString refused = QStringLiteral("<>/':;\"?|,=`");
    for (char16_t c = 0x20; c < 0x180; ++c)
        EXPECT_EQ(isFilterCellText(QStringLiteral("a%1b").arg(QChar(c))),
                  !refused.contains(QChar(c)))
            << int(c);
    EXPECT_TRUE(isFilterCellText(QString()));
}

TEST_F(FilterEditorRules, RowsSayAllOfWhatTheyWrite)
{
    EXPECT_TRUE(saysAll(""));
    EXPECT_TRUE(saysAll("NAME==\"A*\" "));
    EXPECT_TRUE(saysAll("USED==\"True\" AND VPOVERRIDES==\"False\"DESC==\"x\"  OR COLOR==\"1\" "));
    EXPECT_TRUE(saysAll("LINETYPE==\"DASHED\"  AND LINEWEIGHT==\"0.25 mm\" "));
    EXPECT_TRUE(saysAll("COLOR==\"1\" AND NAME==\"A*\"")); // in another order
}

TEST_F(FilterEditorRules, RowsDoNotSayWhatTheyCannotRead)
{
    EXPECT_FALSE(saysAll("LINETYPE==\"GONE\"  AND NAME==\"A*\" "));
    EXPECT_FALSE(saysAll("NAME==\"A*\" AND PLOTSTYLE==\"x\""));
    EXPECT_FALSE(saysAll("NEWVPFROZEN==\"True\"  AND VPFROZEN==\"True\" "));
    EXPECT_FALSE(saysAll("DESC==\"this OR that\" "));
    EXPECT_FALSE(saysAll("LINEWEIGHT==\"Default\" DESC==\"commune\" "));
}

TEST_F(FilterEditorRules, MillimetresThatAreReadAsInchesAreNotSaid)
{
    EXPECT_TRUE(saysAll("LINEWEIGHT==\"0.25 mm\" "));
    setLineweightUnits(0);
    EXPECT_FALSE(saysAll("LINEWEIGHT==\"0.25 mm\" "));
}

TEST_F(FilterEditorRules, TellsWhatTheDrawingWillNotGiveBack)
{
    const auto comesBack = [this](LayerFilterRows rows) {
        const QString expression = built(rows);
        rows.emplace_back();
        return canBeReadBack(m_database, rows, expression);
    };
    EXPECT_TRUE(comesBack({}));
    LayerFilterRow row;
    row.m_strName = QStringLiteral("A*");
    EXPECT_TRUE(comesBack({row}));
    row.m_nNewVpFrozen = 1;
    EXPECT_TRUE(comesBack({row, row}));
    row.m_nVpFrozen = 1;
    EXPECT_FALSE(comesBack({row}));
    LayerFilterRow heavy;
    heavy.m_nLineweight = 211;
    EXPECT_FALSE(comesBack({heavy}));
    LayerFilterRow weighty;
    weighty.m_nLineweight = 25;
    EXPECT_TRUE(comesBack({weighty}));
    setLineweightUnits(0);
    EXPECT_FALSE(comesBack({weighty}));
    LayerFilterRow described;
    described.m_strDesc = QStringLiteral("this OR that");
    EXPECT_FALSE(comesBack({described}));
}

TEST_F(FilterEditorRules, ALinetypeThatWentDoesNotComeBack)
{
    LayerFilterRow dashed;
    dashed.m_idLinetype = linetype("DASHED");
    LayerFilterRow both = dashed;
    both.m_nOn = 1;
    const LayerFilterRows alone{dashed, {}};
    const LayerFilterRows together{both, {}};
    EXPECT_TRUE(canBeReadBack(m_database, alone, built({dashed})));
    EXPECT_TRUE(canBeReadBack(m_database, together, built({both})));
    dashed.m_idLinetype.safeOpenObject<OdDbObject>(OdDb::kForWrite)->erase();
    EXPECT_FALSE(canBeReadBack(m_database, alone, built({dashed})));
    EXPECT_FALSE(canBeReadBack(m_database, together, built({both})));
}
