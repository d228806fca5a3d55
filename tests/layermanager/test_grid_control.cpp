#include "layermanager/layers/grid/CInPlaceEdit.h"
#include "layermanager/layers/grid/CKestListCtrl.h"
#include "support/GuardedTest.h"
#include "toolkit/ControlRegistry.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>
#include <QVBoxLayout>

using Cell = CKestListCtrl::Cell;
using InPlaceEdit = CKestListCtrl::CInPlaceEdit;

namespace {

/// A grid that notes which cells were clicked.
class CRecordingGrid : public CKestListCtrl
{
public:
    QList<QPair<int, int>> clicked;
    bool swallow = false;
    bool take = false;
    int uncheckedColumn = -1;

protected:
    bool CellAction(int row, int column) override
    {
        clicked.append({row, column});
        return take;
    }
    bool PreCheck() override { return swallow; }
    bool checksCharacters(int column) const override { return column != uncheckedColumn; }
};

} // namespace

class TestGridControl : public GuardedTest
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

    void walksThroughTheRowsWithKeys();
    void walksThroughTheShownColumnsWithKeys();
    void extendsTheSelectionWithShiftAndKeys();
    void movesTheFocusAloneWithControl();
    void clicksTheFocusedCellWithSpace();
    void letsTabLeaveAtTheLastColumn();
    void isQuietWithoutRows();

    void opensTheEditorOverTheCell();
    void opensNoEditorWhereThereIsNoCell();
    void opensNoEditorInAColumnNarrowerThanFivePixels();
    void scrollsToTheCellItEdits();
    void reportsTheTypedTextWhenTheFocusIsLost();
    void reportsTheTextFromBeforeOnEscape();
    void reportsNoTextWhenTheEditorIsEmpty();
    void endsTheEditOnEnterWithoutInsertingIt();
    void keepsAnEditorWithAForbiddenCharacter_data();
    void keepsAnEditorWithAForbiddenCharacter();
    void letsEscapeOutOfAForbiddenCharacter();
    void acceptsAnyCharacterWhereTheColumnIsNotChecked();
    void closesAnEditorOnlyWhenItsTextIsClean();
    void reportsOnceWhenItClosesTheEditor();
    void growsTheEditorUpToTheGridsEdge();
    void keepsKeysOfTheEditorFromTheRows();
    void discardsTheEditorWithTheRows();

protected:
    void prepare() override;
    void finish() override;

private:
    QPoint center(int row, int column) const;
    void click(int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    InPlaceEdit* edit(int row, int column);
    QList<int> chosen() const
    {
        const auto rows = m_grid->chosenRows();
        return QList<int>(rows.begin(), rows.end());
    }
    Cell current() const { return {m_grid->currentIndex().row(), m_grid->currentIndex().column()}; }

    std::unique_ptr<QWidget> m_window;
    CRecordingGrid* m_grid = nullptr;
    QLineEdit* m_neighbour = nullptr;
    std::unique_ptr<QStandardItemModel> m_model;
};

void TestGridControl::prepare()
{
    m_model = std::make_unique<QStandardItemModel>(30, 4);
    for (int row = 0; row < 30; ++row) {
        for (int column = 0; column < 4; ++column)
            m_model->setItem(row, column,
                             new QStandardItem(QStringLiteral("r%1c%2").arg(row).arg(column)));
    }
    m_window = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(m_window.get());
    m_grid = new CRecordingGrid;
    m_neighbour = new QLineEdit;
    layout->addWidget(m_grid);
    layout->addWidget(m_neighbour);
    m_grid->setModel(m_model.get());
    for (int column = 0; column < 4; ++column)
        m_grid->setColumnWidth(column, 60);
    m_window->resize(420, 300);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_grid->setFocus();
}

void TestGridControl::finish()
{
    m_window.reset();
    m_model.reset();
}

QPoint TestGridControl::center(int row, int column) const
{
    return m_grid->visualRect(m_model->index(row, column)).center();
}

void TestGridControl::click(int row, int column, Qt::KeyboardModifiers modifiers)
{
    QTest::mouseClick(m_grid->viewport(), Qt::LeftButton, modifiers, center(row, column));
}

InPlaceEdit* TestGridControl::edit(int row, int column)
{
    InPlaceEdit* editor = m_grid->OpenEditor(row, column);
    if (editor)
        editor->selectAll();
    return editor;
}

// Hit test

void TestGridControl::findsTheCellUnderAPoint()
{
    for (const Cell cell : {Cell{0, 0}, Cell{3, 2}, Cell{7, 3}})
        QVERIFY(m_grid->HitTest(center(cell.row, cell.column)) == cell);
}

void TestGridControl::findsNoCellBesideTheCells()
{
    QCOMPARE(m_grid->HitTest({-1, 5}).row, -1);
    const Cell right = m_grid->HitTest({260, 5});
    QCOMPARE(right.row, 0);
    QCOMPARE(right.column, -1);
    QVERIFY(!right.isValid());
    m_model->setRowCount(2);
    QCOMPARE(m_grid->HitTest({5, m_grid->viewport()->height() - 2}).row, -1);
    m_model->setRowCount(0);
    QVERIFY(!m_grid->HitTest({5, 5}).isValid());
}

void TestGridControl::findsCellsWhenScrolled()
{
    m_grid->verticalScrollBar()->setValue(m_grid->rowHeight(0) * 10 + 3);
    QCOMPARE(m_grid->HitTest({70, 0}).row, 10);
    QCOMPARE(m_grid->HitTest({70, 0}).column, 1);
    for (int column = 0; column < 4; ++column)
        m_grid->setColumnWidth(column, 150);
    QTRY_VERIFY(m_grid->horizontalScrollBar()->maximum() >= 160);
    m_grid->horizontalScrollBar()->setValue(160);
    QCOMPARE(m_grid->HitTest({5, 0}).column, 1);
    // The row that is cut off at the bottom counts as well.
    const Cell last = m_grid->HitTest({5, m_grid->viewport()->height() - 1});
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

// In-place editing

void TestGridControl::opensTheEditorOverTheCell()
{
    InPlaceEdit* editor = m_grid->OpenEditor(3, 1);
    QVERIFY(editor);
    QCOMPARE(m_grid->editor(), editor);
    QCOMPARE(controlById(m_grid, 2422), editor);
    QCOMPARE(editor->geometry(), m_grid->visualRect(m_model->index(3, 1)));
    QCOMPARE(editor->text(), QStringLiteral("r3c1"));
    QVERIFY(editor->cell() == (Cell{3, 1}));
    QVERIFY(editor->hasFocus());
}

void TestGridControl::opensNoEditorWhereThereIsNoCell()
{
    for (const Cell cell : {Cell{-1, 0}, Cell{30, 0}, Cell{0, -1}, Cell{0, 4}})
        QVERIFY(!m_grid->OpenEditor(cell.row, cell.column));
    QVERIFY(!m_grid->editor());
}

void TestGridControl::opensNoEditorInAColumnNarrowerThanFivePixels()
{
    m_grid->horizontalHeader()->setMinimumSectionSize(1);
    m_grid->setColumnWidth(1, 4);
    QVERIFY(!m_grid->OpenEditor(3, 1));
    m_grid->setColumnWidth(1, 5);
    QVERIFY(m_grid->OpenEditor(3, 1));
    m_grid->CloseEditor();
    m_grid->setColumnHidden(1, true);
    QVERIFY(!m_grid->OpenEditor(3, 1));
}

void TestGridControl::scrollsToTheCellItEdits()
{
    for (int column = 0; column < 4; ++column)
        m_grid->setColumnWidth(column, 200);
    InPlaceEdit* editor = m_grid->OpenEditor(25, 3);
    QVERIFY(editor);
    QVERIFY(m_grid->viewport()->rect().contains(editor->geometry()));
    QCOMPARE(editor->geometry(), m_grid->visualRect(m_model->index(25, 3)));
}

void TestGridControl::reportsTheTypedTextWhenTheFocusIsLost()
{
    QSignalSpy ended(m_grid, &CKestListCtrl::endLabelEdit);
    QTest::keyClicks(edit(3, 1), QStringLiteral("new text"));
    QVERIFY(ended.isEmpty());
    m_neighbour->setFocus();
    QCOMPARE(ended.size(), 1);
    QCOMPARE(ended[0], (QVariantList{3, 1, QStringLiteral("new text")}));
    QVERIFY(!m_grid->editor());
    QVERIFY(m_neighbour->hasFocus());
}

void TestGridControl::reportsTheTextFromBeforeOnEscape()
{
    QSignalSpy ended(m_grid, &CKestListCtrl::endLabelEdit);
    QTest::keyClicks(edit(3, 1), QStringLiteral("new"));
    QTest::keyClick(m_grid->editor(), Qt::Key_Escape);
    QCOMPARE(ended.size(), 1);
    QCOMPARE(ended[0], (QVariantList{3, 1, QStringLiteral("r3c1")}));
    QVERIFY(!m_grid->editor());
    QVERIFY(m_grid->hasFocus());
}

void TestGridControl::reportsNoTextWhenTheEditorIsEmpty()
{
    QSignalSpy ended(m_grid, &CKestListCtrl::endLabelEdit);
    QTest::keyClick(edit(3, 1), Qt::Key_Delete);
    m_grid->setFocus();
    QCOMPARE(ended.size(), 1);
    QVERIFY(ended[0][2].toString().isNull());
    QVERIFY(!m_grid->editor());
}

void TestGridControl::endsTheEditOnEnterWithoutInsertingIt()
{
    QSignalSpy ended(m_grid, &CKestListCtrl::endLabelEdit);
    QTest::keyClicks(edit(3, 1), QStringLiteral("done"));
    QTest::keyClick(m_grid->editor(), Qt::Key_Return);
    QCOMPARE(ended.size(), 1);
    QCOMPARE(ended[0][2].toString(), QStringLiteral("done"));
    QVERIFY(!m_grid->editor());
}

void TestGridControl::keepsAnEditorWithAForbiddenCharacter_data()
{
    QTest::addColumn<QString>("character");
    QTest::addColumn<bool>("forbidden");
    QCOMPARE(InPlaceEdit::forbiddenCharacters().size(), 13);
    for (const QChar c : QStringLiteral("<>/\":;?*|,=`\\"))
        QTest::newRow(qPrintable(QString(c))) << QString(c) << true;
    for (const QChar c : QStringLiteral("'[](){}.-_$#@!%^&+~ "))
        QTest::newRow(qPrintable(QString(c))) << QString(c) << false;
}

void TestGridControl::keepsAnEditorWithAForbiddenCharacter()
{
    QFETCH(QString, character);
    QFETCH(bool, forbidden);
    QSignalSpy ended(m_grid, &CKestListCtrl::endLabelEdit);
    QTest::keyClicks(edit(3, 1), QLatin1Char('a') + character + QLatin1Char('b'));
    m_neighbour->setFocus();
    QCOMPARE(ended.size(), 1);
    QCOMPARE(m_grid->editor() != nullptr, forbidden);
}

void TestGridControl::letsEscapeOutOfAForbiddenCharacter()
{
    QTest::keyClicks(edit(3, 1), QStringLiteral("a*b"));
    QTest::keyClick(m_grid->editor(), Qt::Key_Escape);
    QVERIFY(!m_grid->editor());
}

void TestGridControl::acceptsAnyCharacterWhereTheColumnIsNotChecked()
{
    m_grid->uncheckedColumn = 1;
    QTest::keyClicks(edit(3, 1), QStringLiteral("a*b"));
    m_neighbour->setFocus();
    QVERIFY(!m_grid->editor());
}

void TestGridControl::closesAnEditorOnlyWhenItsTextIsClean()
{
    QSignalSpy ended(m_grid, &CKestListCtrl::endLabelEdit);
    QTest::keyClicks(edit(3, 1), QStringLiteral("a?b"));
    m_grid->CloseEditor();
    QVERIFY(m_grid->editor());
    QVERIFY(ended.isEmpty());
    QVERIFY2(!m_grid->OpenEditor(4, 1), "one editor at a time");
    m_grid->editor()->setText(QStringLiteral("ab"));
    m_grid->CloseEditor();
    QVERIFY(!m_grid->editor());
    QCOMPARE(ended.size(), 1);
    QCOMPARE(ended[0], (QVariantList{3, 1, QStringLiteral("ab")}));
}

void TestGridControl::reportsOnceWhenItClosesTheEditor()
{
    QSignalSpy ended(m_grid, &CKestListCtrl::endLabelEdit);
    QTest::keyClicks(edit(3, 1), QStringLiteral("once"));
    click(6, 2);
    QCOMPARE(ended.size(), 1);
    m_grid->CloseEditor();
    QCOMPARE(ended.size(), 1);
}

void TestGridControl::growsTheEditorUpToTheGridsEdge()
{
    InPlaceEdit* editor = edit(3, 1);
    const int width = editor->width();
    QTest::keyClicks(editor, QStringLiteral("ab"));
    QCOMPARE(editor->width(), width);
    QTest::keyClicks(editor, QStringLiteral("cdefghijklmnop"));
    const int grown = editor->width();
    QVERIFY(grown > width);
    QCOMPARE(grown, m_grid->fontMetrics().horizontalAdvance(editor->text()) + 5);
    QCOMPARE(editor->x(), 60);
    QTest::keyClicks(editor, QString(80, QLatin1Char('m')));
    QCOMPARE(editor->geometry().right(), m_grid->viewport()->rect().right());
    QTest::keyClick(editor, Qt::Key_Backspace);
    QCOMPARE(editor->geometry().right(), m_grid->viewport()->rect().right());
}

void TestGridControl::keepsKeysOfTheEditorFromTheRows()
{
    click(3, 1);
    InPlaceEdit* editor = edit(3, 1);
    for (const auto key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_Space})
        QTest::keyClick(editor, key);
    QVERIFY(current() == (Cell{3, 1}));
    QVERIFY(m_grid->editor());
    QCOMPARE(m_grid->clicked.size(), 1);
}

void TestGridControl::discardsTheEditorWithTheRows()
{
    QSignalSpy ended(m_grid, &CKestListCtrl::endLabelEdit);
    edit(3, 1);
    m_model->removeRow(10);
    QVERIFY(m_grid->editor());
    m_model->removeRow(3);
    QVERIFY(!m_grid->editor());
    edit(3, 1);
    m_model->setRowCount(0);
    QVERIFY(!m_grid->editor());
    QVERIFY(ended.isEmpty());
}

QTEST_MAIN(TestGridControl)
#include "test_grid_control.moc"
