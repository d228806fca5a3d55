#include "../filters/FilterFixture.h"
#include "layermanager/filter_editor/core/FilterRowsModel.h"

#include <QAbstractItemModelTester>

/// The lines of the table, under the model tester.
class FilterRowsModelTest : public FilterFixture
{
protected:
    FilterRowsModelTest()
        : tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal)
    { }
    static LayerFilterRow named(const char* name)
    {
        LayerFilterRow row;
        row.m_strName = QString::fromUtf8(name);
        return row;
    }
    bool set(int row, int column, qint32 number)
    {
        return model.setCell(model.index(row, column), number, QString(), OdDbObjectId());
    }
    /// The name patterns of all lines, the entry line included.
    std::string names() const
    {
        QStringList texts;
        for (const LayerFilterRow& row : model.rows())
            texts << (row.isEmpty() ? QStringLiteral("-") : row.m_strName);
        return texts.join(QLatin1Char(' ')).toStdString();
    }
    void startFour() { model.start({named("A"), named("B"), named("C"), named("D")}); }

    static constexpr int kStatusColumn = 1;
    static constexpr int kNameColumn = 2;
    static constexpr int kOnColumn = 3;
    FilterRowsModel model;
    QAbstractItemModelTester tester;
};

TEST_F(FilterRowsModelTest, EndsInABlankLine)
{
    EXPECT_EQ(names(), "-");
    model.start({named("A")});
    EXPECT_EQ(names(), "A -");
    EXPECT_TRUE(model.isEntryLine(1));
}

TEST_F(FilterRowsModelTest, FillingTheBlankLineAddsAnother)
{
    EXPECT_TRUE(set(0, kOnColumn, 1));
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.line(0).m_nOn, 1);
    EXPECT_TRUE(model.line(1).isEmpty());
    EXPECT_TRUE(set(0, kStatusColumn, 2)); // no longer the blank one
    EXPECT_EQ(model.rowCount(), 2);
}

TEST_F(FilterRowsModelTest, TakingTheOnlyCriterionBackRemovesTheLine)
{
    set(0, kOnColumn, 1);
    EXPECT_TRUE(set(0, kOnColumn, 0));
    EXPECT_EQ(names(), "-");
}

TEST_F(FilterRowsModelTest, ALineWithAnotherCriterionStays)
{
    model.start({named("A")});
    set(0, kOnColumn, 2);
    EXPECT_TRUE(model.clearCell(model.index(0, kOnColumn)));
    EXPECT_EQ(names(), "A -");
}

TEST_F(FilterRowsModelTest, WritingWhatIsThereChangesNothing)
{
    model.start({named("A")});
    EXPECT_FALSE(model.setCell(model.index(0, kNameColumn), 0, QStringLiteral("A"), {}));
    EXPECT_FALSE(set(1, kOnColumn, 0));
    EXPECT_FALSE(set(7, kOnColumn, 1)); // no such line
    EXPECT_FALSE(set(0, 0, 1)); // a column without a value
    EXPECT_FALSE(set(0, 9, 1)); // plot style is no criterion
    EXPECT_EQ(names(), "A -");
}

TEST_F(FilterRowsModelTest, EachColumnWritesItsOwnField)
{
    struct Written
    {
        int column;
        LayerFilterRow row;
    };
    std::vector<Written> all;
    const auto number = [&](int column, qint32 LayerFilterRow::*field) {
        LayerFilterRow row;
        row.*field = 1;
        all.push_back({column, row});
    };
    number(1, &LayerFilterRow::m_nUsed);
    number(3, &LayerFilterRow::m_nOn);
    number(4, &LayerFilterRow::m_nFrozen);
    number(5, &LayerFilterRow::m_nLocked);
    number(6, &LayerFilterRow::m_nColor);
    number(8, &LayerFilterRow::m_nLineweight);
    number(10, &LayerFilterRow::m_nPlottable);
    number(11, &LayerFilterRow::m_nNewVpFrozen);
    number(13, &LayerFilterRow::m_nVpFrozen);
    number(14, &LayerFilterRow::m_nVpColor);
    number(16, &LayerFilterRow::m_nVpLineweight);
    LayerFilterRow row;
    row.m_strName = QStringLiteral("t");
    all.push_back({2, row});
    row = {};
    row.m_strDesc = QStringLiteral("t");
    all.push_back({12, row});
    row = {};
    row.m_idLinetype = linetype("DASHED");
    all.push_back({7, row});
    row = {};
    row.m_idVpLinetype = linetype("DASHED");
    all.push_back({15, row});
    for (const Written& written : all) {
        model.start({});
        const QModelIndex cell = model.index(0, written.column);
        EXPECT_TRUE(model.setCell(cell, 1, QStringLiteral("t"), linetype("DASHED")));
        EXPECT_EQ(model.line(0), written.row) << written.column;
        EXPECT_TRUE(model.clearCell(model.index(0, written.column)));
        EXPECT_EQ(names(), "-") << written.column;
    }
}

TEST_F(FilterRowsModelTest, DuplicatesIntoTheBlankLine)
{
    startFour();
    model.duplicate(1);
    EXPECT_EQ(names(), "A B C D B -");
    model.duplicate(5); // the blank line
    model.duplicate(-1);
    EXPECT_EQ(names(), "A B C D B -");
}

TEST_F(FilterRowsModelTest, DeletesTheOneSelectedLine)
{
    startFour();
    EXPECT_TRUE(model.remove(2, 1));
    EXPECT_EQ(names(), "A B D -");
    EXPECT_FALSE(model.remove(3, 1)); // the blank line
}

TEST_F(FilterRowsModelTest, DeletesByPositionWhereSeveralAreSelected)
{
    startFour();
    EXPECT_TRUE(model.remove(3, 3));
    EXPECT_EQ(names(), "A D -");
}

TEST_F(FilterRowsModelTest, DeletesNothingWithoutASelectionOrASecondLine)
{
    startFour();
    EXPECT_FALSE(model.remove(1, 0));
    EXPECT_EQ(names(), "A B C D -");
    model.start({named("A")});
    EXPECT_FALSE(model.remove(0, 1));
    EXPECT_FALSE(model.remove(0, 2));
    EXPECT_EQ(names(), "A -");
}

TEST_F(FilterRowsModelTest, KeepsTheBlankLineWhenEveryLineIsSelected)
{
    startFour();
    EXPECT_TRUE(model.remove(0, 5));
    EXPECT_EQ(names(), "A -");
}

TEST_F(FilterRowsModelTest, DeletesManyLinesAtOnce)
{
    model.start(LayerFilterRows(1000, named("A")));
    int removals = 0;
    QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &model, [&] { ++removals; });
    EXPECT_TRUE(model.remove(0, 1000));
    EXPECT_EQ(names(), "A -");
    EXPECT_EQ(removals, 1);
}

TEST_F(FilterRowsModelTest, TellsWhetherACellSetsACriterion)
{
    LayerFilterRow row = named("A");
    row.m_nVpColor = 0;
    row.m_idVpLinetype = linetype("DASHED");
    model.start({row});
    std::vector<int> set;
    for (int column = 0; column < kFilterColumnCount; ++column) {
        if (model.isSet(model.index(0, column)))
            set.push_back(column);
        EXPECT_FALSE(model.isSet(model.index(1, column))) << column;
    }
    EXPECT_EQ(set, (std::vector<int>{kNameColumn, 14, 15}));
}

TEST_F(FilterRowsModelTest, TooltipsTellValuesAndNoMarkUp)
{
    LayerFilterRow row = named("<img src='x'>");
    row.m_nOn = 2;
    row.m_nLineweight = 13;
    row.m_strDesc = QString(100000, QLatin1Char('x'));
    model.start({row});
    const auto tip = [&](int column) {
        return model.index(0, column).data(Qt::ToolTipRole).toString();
    };
    EXPECT_EQ(tip(kNameColumn).toStdString(), "<p>&lt;img src='x'&gt;</p>");
    EXPECT_EQ(tip(kOnColumn).toStdString(), "<p>off</p>");
    EXPECT_EQ(tip(8).toStdString(), "<p>0.13 mm</p>");
    EXPECT_LT(tip(12).size(), 1000);
    EXPECT_TRUE(tip(kStatusColumn).isNull());
}

TEST_F(FilterRowsModelTest, TellsItsCellsInWords)
{
    set(0, kOnColumn, 1);
    const auto said = [&](int row, int column) {
        return model.index(row, column).data(Qt::AccessibleTextRole).toString().toStdString();
    };
    EXPECT_EQ(said(0, kOnColumn), "On, line 1: on");
    EXPECT_EQ(said(0, kStatusColumn), "Status, line 1: not set");
    EXPECT_EQ(said(1, kOnColumn), "On, line 2: not set");
    EXPECT_EQ(said(0, 9), "Plot Style, line 1");
    EXPECT_EQ(said(1, 0), "Line 2");
    EXPECT_EQ(model.index(1, kOnColumn).data().toString().toStdString(), "");
}

TEST_F(FilterRowsModelTest, ShowsColorsLinetypesAndLineweightsByTheirNames)
{
    LayerFilterRow row;
    row.m_nColor = 1;
    row.m_idLinetype = linetype("DASHED");
    row.m_nLineweight = 25;
    row.m_nVpColor = 9999; // of a broken text
    model.start({row});
    const auto shown = [&](int column) {
        return model.index(0, column).data().toString().toStdString();
    };
    EXPECT_EQ(shown(6), OdCmColor::fromIndex(1).colorNameForDisplay().toStdString());
    EXPECT_EQ(shown(7), "DASHED");
    EXPECT_EQ(shown(8), "0.25 mm");
    EXPECT_EQ(shown(14), "9999");
    EXPECT_EQ(shown(16), "");
}

TEST_F(FilterRowsModelTest, HasTheColumnsInTheirOrder)
{
    const std::vector<std::string> titles = {"",
                                             "Status",
                                             "Layer Name",
                                             "On",
                                             "Freeze",
                                             "Locked",
                                             "Color",
                                             "Linetype",
                                             "Lineweight",
                                             "Plot Style",
                                             "Plot",
                                             "New VPFreeze",
                                             "Description",
                                             "VP Freeze",
                                             "VP Color",
                                             "VP LineType",
                                             "VP LineWeight",
                                             "VP PlotStyle"};
    const std::vector<int> identifiers = {102, 102, 102, 105, 107, 106, 103, 104, 108,
                                          109, 110, 112, 113, 111, 115, 116, 117, 118};
    ASSERT_EQ(model.columnCount(), 18);
    for (int column = 0; column < 18; ++column) {
        const auto at = static_cast<std::size_t>(column);
        EXPECT_EQ(
            model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().toStdString(),
            titles[at]);
        EXPECT_EQ(filterColumns()[at].identifier, identifiers[at]);
        EXPECT_EQ(filterColumns()[at].width, column == 0 ? 25 : column == 2 ? 100 : 50);
        EXPECT_EQ(filterColumns()[at].layoutsOnly, column >= 13);
    }
}
