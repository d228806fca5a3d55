#include "GridControlFixture.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>

class TestGridControl : public GridControlFixture
{
    Q_OBJECT

private slots:
    void findsTheCellUnderAPoint();
    void findsNoCellBesideTheCells();
    void findsCellsWhenScrolled();

    void callsTheCellActionForAClick();
    void swallowsAClickByThePreCheck();
    void leavesTheSelectionToAnActionThatTakesTheClick();
    void selectsTheClickedRow();
    void selectsFromTheAnchorWithShift();
    void togglesARowWithControl();
    void clearsTheSelectionByAClickBesideTheRows();
    void ignoresOtherButtons();
    void countsTheSecondPressOfADoubleClick();
    void leavesADoubleClickToTheGridThatTakesIt();
    void swallowsADoubleClickByThePreCheck();
    void anchorsAtTheFirstRowThatIsSelectedWithShift();
    void keepsTheAnchorAtItsRowWhenRowsGo();
    void selectsARowForAMenu();

    void walksThroughTheRowsWithKeys();
    void walksThroughTheShownColumnsWithKeys();
    void extendsTheSelectionWithShiftAndKeys();
    void movesTheFocusAloneWithControl();
    void clicksTheFocusedCellWithSpace();
    void clicksTheFocusedCellWithEnter();
    void letsTabLeaveAtTheLastColumn();
    void isQuietWithoutRows();
};

// Hit test

void TestGridControl::findsTheCellUnderAPoint()
{
    for (const Cell cell : {Cell{0, 0}, Cell{3, 2}, Cell{7, 3}})
        QVERIFY(m_grid->hitTest(center(cell.row, cell.column)) == cell);
}

void TestGridControl::findsNoCellBesideTheCells()
{
    QCOMPARE(m_grid->hitTest({-1, 5}).row, -1);
    const Cell right = m_grid->hitTest({260, 5});
    QCOMPARE(right.row, 0);
    QCOMPARE(right.column, -1);
    QVERIFY(!right.isValid());
    m_model->setRowCount(2);
    QCOMPARE(m_grid->hitTest({5, m_grid->viewport()->height() - 2}).row, -1);
    m_model->setRowCount(0);
    QVERIFY(!m_grid->hitTest({5, 5}).isValid());
}

void TestGridControl::findsCellsWhenScrolled()
{
    m_grid->verticalScrollBar()->setValue(m_grid->rowHeight(0) * 10 + 3);
    QCOMPARE(m_grid->hitTest({70, 0}).row, 10);
    QCOMPARE(m_grid->hitTest({70, 0}).column, 1);
    for (int column = 0; column < 4; ++column)
        m_grid->setColumnWidth(column, 150);
    QTRY_VERIFY(m_grid->horizontalScrollBar()->maximum() >= 160);
    m_grid->horizontalScrollBar()->setValue(160);
    QCOMPARE(m_grid->hitTest({5, 0}).column, 1);
    // The row that is cut off at the bottom counts as well.
    const Cell last = m_grid->hitTest({5, m_grid->viewport()->height() - 1});
    QVERIFY(last.row > 10);
    QVERIFY(m_grid->visualRect(m_model->index(last.row, 1)).bottom()
            >= m_grid->viewport()->height() - 1);
}

// Mouse

void TestGridControl::callsTheCellActionForAClick()
{
    click(3, 2);
    QCOMPARE(m_grid->clicked, (QList<QPair<int, int>>{{3, 2}}));
    QVERIFY(m_grid->lastClicked() == (Cell{3, 2}));
    QVERIFY(current() == (Cell{3, 2}));
}

void TestGridControl::swallowsAClickByThePreCheck()
{
    m_grid->swallow = true;
    click(3, 2);
    QVERIFY(m_grid->clicked.isEmpty());
    QVERIFY(chosen().isEmpty());
    QCOMPARE(m_grid->anchorRow(), -1);
}

void TestGridControl::leavesTheSelectionToAnActionThatTakesTheClick()
{
    m_grid->chooseRows({1, 3, 5});
    m_grid->take = true;
    click(3, 2);
    QCOMPARE(chosen(), (QList<int>{1, 3, 5}));
    QCOMPARE(m_grid->anchorRow(), 3);
}

void TestGridControl::selectsTheClickedRow()
{
    click(3, 2);
    click(5, 0);
    QCOMPARE(chosen(), QList<int>{5});
    QCOMPARE(m_grid->anchorRow(), 5);
}

void TestGridControl::selectsFromTheAnchorWithShift()
{
    click(3, 0);
    click(6, 1, Qt::ShiftModifier);
    QCOMPARE(chosen(), (QList<int>{3, 4, 5, 6}));
    QCOMPARE(m_grid->anchorRow(), 3);
    click(1, 1, Qt::ShiftModifier);
    QCOMPARE(chosen(), (QList<int>{1, 2, 3}));
}

void TestGridControl::togglesARowWithControl()
{
    click(3, 0);
    click(5, 0, Qt::ControlModifier);
    QCOMPARE(chosen(), (QList<int>{3, 5}));
    QCOMPARE(m_grid->anchorRow(), 5);
    click(3, 0, Qt::ControlModifier);
    QCOMPARE(chosen(), QList<int>{5});
}

void TestGridControl::clearsTheSelectionByAClickBesideTheRows()
{
    m_model->setRowCount(3);
    click(1, 0);
    const QPoint below(10, m_grid->viewport()->height() - 3);
    QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, Qt::ControlModifier, below);
    QCOMPARE(chosen(), QList<int>{1});
    QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, {}, below);
    QVERIFY(chosen().isEmpty());
}

void TestGridControl::ignoresOtherButtons()
{
    click(1, 0);
    QTest::mouseClick(m_grid->viewport(), Qt::RightButton, {}, center(4, 1));
    QTest::mouseClick(m_grid->viewport(), Qt::MiddleButton, {}, center(4, 1));
    QCOMPARE(chosen(), QList<int>{1});
    QCOMPARE(m_grid->clicked.size(), 1);
}

void TestGridControl::countsTheSecondPressOfADoubleClick()
{
    click(3, 2);
    QTest::mouseDClick(m_grid->viewport(), Qt::LeftButton, {}, center(3, 2));
    QCOMPARE(m_grid->doubleClicked, (QList<QPair<int, int>>{{3, 2}}));
    QCOMPARE(m_grid->clicked, (QList<QPair<int, int>>{{3, 2}, {3, 2}}));
    QCOMPARE(m_grid->preChecks, 2);
    QTest::mouseDClick(m_grid->viewport(), Qt::RightButton, {}, center(3, 2));
    QCOMPARE(m_grid->doubleClicked.size(), 1);
}

void TestGridControl::leavesADoubleClickToTheGridThatTakesIt()
{
    m_grid->takeDouble = true;
    m_grid->chooseRows({1, 5});
    QTest::mouseDClick(m_grid->viewport(), Qt::LeftButton, {}, center(3, 2));
    QVERIFY(m_grid->clicked.isEmpty());
    QCOMPARE(chosen(), (QList<int>{1, 5}));
    // Beside the cells there is nothing to take.
    QTest::mouseDClick(m_grid->viewport(), Qt::LeftButton, {}, QPoint(300, 5));
    QCOMPARE(m_grid->doubleClicked.size(), 1);
}

void TestGridControl::swallowsADoubleClickByThePreCheck()
{
    m_grid->swallow = true;
    QTest::mouseDClick(m_grid->viewport(), Qt::LeftButton, {}, center(3, 2));
    QVERIFY(m_grid->doubleClicked.isEmpty());
    QVERIFY(m_grid->clicked.isEmpty());
    QCOMPARE(m_grid->preChecks, 1);
}

void TestGridControl::anchorsAtTheFirstRowThatIsSelectedWithShift()
{
    click(4, 0, Qt::ShiftModifier);
    QCOMPARE(chosen(), QList<int>{4});
    QCOMPARE(m_grid->anchorRow(), 4);
    click(6, 0, Qt::ShiftModifier);
    QCOMPARE(chosen(), (QList<int>{4, 5, 6}));
}

void TestGridControl::keepsTheAnchorAtItsRowWhenRowsGo()
{
    click(6, 1);
    m_model->removeRows(0, 4);
    QCOMPARE(m_grid->anchorRow(), 2);
    click(4, 1, Qt::ShiftModifier);
    QCOMPARE(chosen(), (QList<int>{2, 3, 4}));
    m_model->removeRows(2, 24);
    QCOMPARE(m_grid->anchorRow(), -1);
    click(1, 1, Qt::ShiftModifier);
    QCOMPARE(chosen(), (QList<int>{1}));
}

void TestGridControl::selectsARowForAMenu()
{
    click(1, 2);
    m_grid->clicked.clear();
    m_grid->chooseForMenu(4);
    QCOMPARE(chosen(), QList<int>{4});
    QVERIFY(current() == (Cell{4, 2}));
    QVERIFY(m_grid->clicked.isEmpty());
    click(6, 0, Qt::ShiftModifier);
    QCOMPARE(chosen(), (QList<int>{4, 5, 6}));
}

// Keyboard

void TestGridControl::walksThroughTheRowsWithKeys()
{
    click(0, 1);
    QTest::keyClick(m_grid, Qt::Key_Down);
    QTest::keyClick(m_grid, Qt::Key_Down);
    QVERIFY(current() == (Cell{2, 1}));
    QCOMPARE(chosen(), QList<int>{2});
    QTest::keyClick(m_grid, Qt::Key_End);
    QVERIFY(current() == (Cell{29, 1}));
    QVERIFY(m_grid->viewport()->rect().contains(center(29, 1)));
    QTest::keyClick(m_grid, Qt::Key_Down);
    QVERIFY(current() == (Cell{29, 1}));
    QTest::keyClick(m_grid, Qt::Key_PageUp);
    QVERIFY(current().row < 29 && current().row > 15);
    QTest::keyClick(m_grid, Qt::Key_Home);
    QVERIFY(current() == (Cell{0, 1}));
    QTest::keyClick(m_grid, Qt::Key_Up);
    QVERIFY(current() == (Cell{0, 1}));
    QCOMPARE(chosen(), QList<int>{0});
}

void TestGridControl::walksThroughTheShownColumnsWithKeys()
{
    m_grid->setColumnHidden(2, true);
    click(4, 0);
    QTest::keyClick(m_grid, Qt::Key_Right);
    QVERIFY(current() == (Cell{4, 1}));
    QTest::keyClick(m_grid, Qt::Key_Tab);
    QVERIFY(current() == (Cell{4, 3}));
    QTest::keyClick(m_grid, Qt::Key_Right);
    QVERIFY(current() == (Cell{4, 3}));
    QTest::keyClick(m_grid, Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(current() == (Cell{4, 1}));
    QTest::keyClick(m_grid, Qt::Key_Left);
    QTest::keyClick(m_grid, Qt::Key_Left);
    QVERIFY(current() == (Cell{4, 0}));
    QCOMPARE(chosen(), QList<int>{4});
}

void TestGridControl::extendsTheSelectionWithShiftAndKeys()
{
    click(4, 0);
    QTest::keyClick(m_grid, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(m_grid, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(chosen(), (QList<int>{4, 5, 6}));
    QTest::keyClick(m_grid, Qt::Key_Home, Qt::ShiftModifier);
    QCOMPARE(chosen(), (QList<int>{0, 1, 2, 3, 4}));
    QTest::keyClick(m_grid, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(chosen().size(), 30);
}

void TestGridControl::movesTheFocusAloneWithControl()
{
    click(4, 0);
    QTest::keyClick(m_grid, Qt::Key_Down, Qt::ControlModifier);
    QVERIFY(current() == (Cell{5, 0}));
    QCOMPARE(chosen(), QList<int>{4});
    QTest::keyClick(m_grid, Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(chosen(), (QList<int>{4, 5}));
}

void TestGridControl::clicksTheFocusedCellWithSpace()
{
    click(4, 0);
    QTest::keyClick(m_grid, Qt::Key_Right);
    m_grid->clicked.clear();
    QTest::keyClick(m_grid, Qt::Key_Space);
    QCOMPARE(m_grid->clicked, (QList<QPair<int, int>>{{4, 1}}));
}

void TestGridControl::clicksTheFocusedCellWithEnter()
{
    click(4, 1);
    m_grid->clicked.clear();
    QTest::keyClick(m_grid, Qt::Key_Return);
    QTest::keyClick(m_grid, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(m_grid->clicked, (QList<QPair<int, int>>{{4, 1}, {4, 1}}));
}

void TestGridControl::letsTabLeaveAtTheLastColumn()
{
    click(4, 3);
    QTest::keyClick(m_grid, Qt::Key_Tab);
    QVERIFY(m_neighbour->hasFocus());
    QTest::keyClick(m_neighbour, Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(m_grid->hasFocus());
}

void TestGridControl::isQuietWithoutRows()
{
    m_model->setRowCount(0);
    for (const auto key : {Qt::Key_Down, Qt::Key_Space, Qt::Key_End, Qt::Key_Right, Qt::Key_F2})
        QTest::keyClick(m_grid, key);
    QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, {}, {5, 5});
    QVERIFY(m_grid->clicked.isEmpty());
}

QTEST_MAIN(TestGridControl)
#include "test_grid_control.moc"
