#include "FilterEditorFixture.h"

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QMenu>

class TestFilterTable : public FilterEditorFixture
{
    Q_OBJECT

private slots:
    void aValueInTheBlankLineMakesItRealAndAddsABlankOne();
    void theBlankItemTakesTheLineOfItsOnlyCriterionAway();
    void escapeLeavesTheValueListAndChangesNothing();
    void aPatternWithAnAsteriskIsTaken();
    void aPatternWithAForbiddenCharacterIsDroppedWithoutAMessage();
    void anEmptyPatternIsNoCriterion();
    void escapeLeavesTheTextAsItWas();
    void enterEndsTheEditAndNotTheDialog();
    void plotStylesAndTheFirstColumnAreNotEdited();
    void eachEditRebuildsTheExpressionOfAllRows();
    void offersItsMenuOnRealLinesOnly();
    void duplicatesALineWithoutRebuilding();
    void deletesTheLineThatWasClicked();
    void deletesTheSecondAndThirdOfFourWhereThreeAreSelected();
    void deletesNothingOfOneLineOrWithoutASelection();
    void aClickThatEndsAnEditWhichTakesALineAwayHitsNoOther();
    void showsViewportColumnsInLayoutsOnly();
    void hasItsWidthsWholeRowsAndGridLines();
    void keepsItsLinesWhenTheSelectionHoldsTheBlankOne();
    void aPatternOfAMillionCharactersIsDrawnByItsBeginning();

private:
    void fillFour();
    QString names() const;
};

void TestFilterTable::fillFour()
{
    showExisting("F", "NAME==\"A*\"  OR NAME==\"B*\"  OR NAME==\"C*\"  OR NAME==\"D*\" ");
    QCOMPARE(names(), QStringLiteral("A* B* C* D* "));
}

QString TestFilterTable::names() const
{
    QStringList texts;
    for (int row = 0; row < lines(); ++row)
        texts << cell(row, kName);
    return texts.join(QLatin1Char(' '));
}

void TestFilterTable::aValueInTheBlankLineMakesItRealAndAddsABlankOne()
{
    showNew();
    QCOMPARE(lines(), 1);
    choose(0, kOn, 1);
    QCOMPARE(lines(), 2);
    QCOMPARE(cell(0, kOn), QStringLiteral("on"));
    QCOMPARE(cell(1, kOn), QString());
    QCOMPARE(expression(), QStringLiteral("OFF==\"False\" "));
}

void TestFilterTable::theBlankItemTakesTheLineOfItsOnlyCriterionAway()
{
    showNew();
    choose(0, kOn, 1);
    choose(0, kOn, 0);
    QCOMPARE(lines(), 1);
    QCOMPARE(expression(), QString());
    QCOMPARE(previewed(), QString());
}

void TestFilterTable::escapeLeavesTheValueListAndChangesNothing()
{
    showNew();
    click(0, kOn);
    QVERIFY(isListOpen());
    QTest::keyClick(combo().view(), Qt::Key_Down);
    QTest::keyClick(combo().view(), Qt::Key_Escape);
    settle();
    QVERIFY(!combo().isVisible());
    QVERIFY(dialog().isVisible());
    QVERIFY(table().hasFocus());
    QCOMPARE(lines(), 1);
}

void TestFilterTable::aPatternWithAnAsteriskIsTaken()
{
    showNew();
    type(0, kName, QStringLiteral("A*"));
    QVERIFY(!editor());
    QCOMPARE(cell(0, kName), QStringLiteral("A*"));
    QCOMPARE(expression(), QStringLiteral("NAME==\"A*\" "));
    QCOMPARE(previewed(), QStringLiteral("A-Doors A-Walls"));
}

void TestFilterTable::aPatternWithAForbiddenCharacterIsDroppedWithoutAMessage()
{
    showNew();
    type(0, kName, QStringLiteral("A*"));
    for (const QChar c : QStringLiteral("<>/':;\"?|,=`")) {
        type(0, kName, QStringLiteral("A%1").arg(c));
        QVERIFY(!editor());
        QCOMPARE(cell(0, kName), QStringLiteral("A*"));
    }
    QCOMPARE(prompts().texts(), QStringList());
}

void TestFilterTable::anEmptyPatternIsNoCriterion()
{
    showNew();
    type(0, kName, QStringLiteral("A*"));
    type(0, kName, QString());
    QCOMPARE(lines(), 1);
    QCOMPARE(expression(), QString());
}

void TestFilterTable::escapeLeavesTheTextAsItWas()
{
    showNew();
    type(0, kName, QStringLiteral("A*"));
    click(0, kName);
    QTest::keyClicks(editor(), QStringLiteral("B*"));
    QTest::keyClick(editor(), Qt::Key_Escape);
    settle();
    QVERIFY(!editor());
    QVERIFY(dialog().isVisible());
    QCOMPARE(cell(0, kName), QStringLiteral("A*"));
}

void TestFilterTable::enterEndsTheEditAndNotTheDialog()
{
    showNew();
    type(0, kName, QStringLiteral("A*"));
    QVERIFY(dialog().isVisible());
    QVERIFY(table().hasFocus());
}

void TestFilterTable::plotStylesAndTheFirstColumnAreNotEdited()
{
    enterViewport();
    showNew();
    dialog().resize(1400, 700);
    for (const int column : {kMark, kPlotStyle, kVpPlotStyle}) {
        click(0, column);
        QVERIFY(!editor());
        QVERIFY(!combo().isVisible());
    }
    QVERIFY(host().pickRequests.empty());
    QCOMPARE(lines(), 1);
}

void TestFilterTable::eachEditRebuildsTheExpressionOfAllRows()
{
    showNew();
    type(0, kName, QStringLiteral("A*"));
    choose(1, kOn, 2);
    host().pickedColor = OdCmColor::fromIndex(1);
    click(1, kColor);
    QCOMPARE(expression(), QStringLiteral("NAME==\"A*\"  OR OFF==\"True\"  AND COLOR==\"1\" "));
    QCOMPARE(previewed(), QStringLiteral("A-Doors A-Walls E-Light"));
}

void TestFilterTable::offersItsMenuOnRealLinesOnly()
{
    fillFour();
    QVERIFY(menuCommand(1, kName, 0));
    QCOMPARE(table().currentRow(), 1);
    QCOMPARE(table().currentColumn(), int(kName));
    QVERIFY(!menuCommand(4, kName, 0)); // the entry line
    QVERIFY(!menuCommand(-1, 0, 0)); // beside the lines
    menuCommand(0, kOn, 0);
    const std::unique_ptr<QMenu> menu = table().contextMenu();
    QVERIFY(menu);
    QStringList texts;
    for (const QAction* action : menu->actions())
        texts << QStringLiteral("%1 %2").arg(action->data().toInt()).arg(action->text());
    QCOMPARE(
        texts,
        (QStringList{QStringLiteral("2000 Duplicate Row"), QStringLiteral("2001 Delete Row")}));
}

void TestFilterTable::duplicatesALineWithoutRebuilding()
{
    fillFour();
    filter().setFilterExpression(QStringLiteral("NAME==\"watched\" "));
    QVERIFY(menuCommand(1, kName, 2000));
    QCOMPARE(names(), QStringLiteral("A* B* C* D* B* "));
    QCOMPARE(expression(), QStringLiteral("NAME==\"watched\" "));
    choose(0, kOn, 1);
    QCOMPARE(expression(),
             QStringLiteral("NAME==\"A*\"  AND OFF==\"False\"  OR NAME==\"B*\"  OR "
                            "NAME==\"C*\"  OR NAME==\"D*\"  OR NAME==\"B*\" "));
}

void TestFilterTable::deletesTheLineThatWasClicked()
{
    fillFour();
    QVERIFY(menuCommand(2, kName, 2001));
    QCOMPARE(names(), QStringLiteral("A* B* D* "));
    QCOMPARE(expression(), QStringLiteral("NAME==\"A*\"  OR NAME==\"B*\"  OR NAME==\"D*\" "));
}

void TestFilterTable::deletesTheSecondAndThirdOfFourWhereThreeAreSelected()
{
    fillFour();
    table().chooseRows({0, 2, 3});
    QVERIFY(menuCommand(3, kOn, 2001));
    QCOMPARE(names(), QStringLiteral("A* D* "));
    QCOMPARE(expression(), QStringLiteral("NAME==\"A*\"  OR NAME==\"D*\" "));
}

void TestFilterTable::deletesNothingOfOneLineOrWithoutASelection()
{
    fillFour();
    QVERIFY(menuCommand(1, kName, 0));
    table().clearSelection();
    table().command(2001);
    QCOMPARE(names(), QStringLiteral("A* B* C* D* "));
    closeDialog();
    showExisting("One", "NAME==\"A*\" ");
    QVERIFY(menuCommand(0, kName, 2001));
    QCOMPARE(names(), QStringLiteral("A* "));
    QCOMPARE(expression(), QStringLiteral("NAME==\"A*\" "));
}

void TestFilterTable::aClickThatEndsAnEditWhichTakesALineAwayHitsNoOther()
{
    fillFour();
    click(0, kName);
    editor()->clear();
    const QPoint place = table().visualRect(index(1, kOn)).center();
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, place);
    QVERIFY(!combo().isVisible());
    settle();
    QCOMPARE(names(), QStringLiteral("B* C* D* "));
    click(0, kOn); // the next one counts
    QVERIFY(isListOpen());
    combo().hidePopup();
    settle();
}

void TestFilterTable::showsViewportColumnsInLayoutsOnly()
{
    showNew();
    for (int column = 0; column < kFilterColumnCount; ++column)
        QCOMPARE(table().isColumnHidden(column), column >= kVpFreeze);
    closeDialog();
    enterViewport();
    showNew();
    for (int column = 0; column < kFilterColumnCount; ++column)
        QVERIFY(!table().isColumnHidden(column));
    closeDialog();
    host().unreadable.insert(QStringLiteral("TILEMODE"));
    showNew();
    QVERIFY(table().isColumnHidden(kVpFreeze));
}

void TestFilterTable::hasItsWidthsWholeRowsAndGridLines()
{
    showNew();
    QCOMPARE(table().selectionBehavior(), QAbstractItemView::SelectRows);
    QVERIFY(table().showGrid());
    for (int column = 0; column < kVpFreeze; ++column) {
        if (column != kDescription)
            QCOMPARE(table().columnWidth(column),
                     column == kMark       ? 25
                         : column == kName ? 100
                                           : 50);
    }
    QVERIFY(table().columnWidth(kDescription) >= 50);
}

void TestFilterTable::keepsItsLinesWhenTheSelectionHoldsTheBlankOne()
{
    fillFour();
    table().chooseRange(0, 4);
    QVERIFY(menuCommand(2, kOn, 2001));
    QCOMPARE(names(), QStringLiteral("A* "));
    QCOMPARE(expression(), QStringLiteral("NAME==\"A*\" "));
}

void TestFilterTable::aPatternOfAMillionCharactersIsDrawnByItsBeginning()
{
    const auto drawn = [this](qsizetype length) {
        showExisting("F", ("NAME==\"" + QByteArray(length, 'x') + "\" ").constData());
        QImage image = table().viewport()->grab().toImage();
        closeDialog();
        return image;
    };
    QCOMPARE(drawn(1000000), drawn(300));
    QVERIFY(drawn(300) != drawn(3));
}

QTEST_MAIN(TestFilterTable)
#include "test_filter_table.moc"
