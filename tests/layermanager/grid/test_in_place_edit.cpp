#include "GridControlFixture.h"
#include "base/NameCharacters.h"
#include "toolkit/ControlRegistry.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>

class TestInPlaceEdit : public GridControlFixture
{
    Q_OBJECT

private slots:
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
    void growsTheEditorNoFurtherThanTheGridsNewEdge();
    void takesTheColumnsAlignment_data();
    void takesTheColumnsAlignment();
    void goesWithItsCell();
    void keepsTheFocusWithARefusedText();
    void keepsKeysOfTheEditorFromTheRows();
    void discardsTheEditorWithTheRows();
};

void TestInPlaceEdit::opensTheEditorOverTheCell()
{
    InPlaceEdit* editor = m_grid->openInPlaceEditor(3, 1);
    QVERIFY(editor);
    QCOMPARE(m_grid->editor(), editor);
    QCOMPARE(controlById(m_grid, 2422), editor);
    QCOMPARE(editor->geometry(), m_grid->visualRect(m_model->index(3, 1)));
    QCOMPARE(editor->text(), QStringLiteral("r3c1"));
    QVERIFY(editor->cell() == (Cell{3, 1}));
    QVERIFY(editor->hasFocus());
}

void TestInPlaceEdit::opensNoEditorWhereThereIsNoCell()
{
    for (const Cell cell : {Cell{-1, 0}, Cell{30, 0}, Cell{0, -1}, Cell{0, 4}})
        QVERIFY(!m_grid->openInPlaceEditor(cell.row, cell.column));
    QVERIFY(!m_grid->editor());
}

void TestInPlaceEdit::opensNoEditorInAColumnNarrowerThanFivePixels()
{
    m_grid->horizontalHeader()->setMinimumSectionSize(1);
    m_grid->setColumnWidth(1, 4);
    QVERIFY(!m_grid->openInPlaceEditor(3, 1));
    m_grid->setColumnWidth(1, 5);
    QVERIFY(m_grid->openInPlaceEditor(3, 1));
    m_grid->closeInPlaceEditor();
    m_grid->setColumnHidden(1, true);
    QVERIFY(!m_grid->openInPlaceEditor(3, 1));
}

void TestInPlaceEdit::scrollsToTheCellItEdits()
{
    for (int column = 0; column < 4; ++column)
        m_grid->setColumnWidth(column, 200);
    InPlaceEdit* editor = m_grid->openInPlaceEditor(25, 3);
    QVERIFY(editor);
    QVERIFY(m_grid->viewport()->rect().contains(editor->geometry()));
    QCOMPARE(editor->geometry(), m_grid->visualRect(m_model->index(25, 3)));
}

void TestInPlaceEdit::reportsTheTypedTextWhenTheFocusIsLost()
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

void TestInPlaceEdit::reportsTheTextFromBeforeOnEscape()
{
    QSignalSpy ended(m_grid, &CKestListCtrl::endLabelEdit);
    QTest::keyClicks(edit(3, 1), QStringLiteral("new"));
    QTest::keyClick(m_grid->editor(), Qt::Key_Escape);
    QCOMPARE(ended.size(), 1);
    QCOMPARE(ended[0], (QVariantList{3, 1, QStringLiteral("r3c1")}));
    QVERIFY(!m_grid->editor());
    QVERIFY(m_grid->hasFocus());
}

void TestInPlaceEdit::reportsNoTextWhenTheEditorIsEmpty()
{
    QSignalSpy ended(m_grid, &CKestListCtrl::endLabelEdit);
    QTest::keyClick(edit(3, 1), Qt::Key_Delete);
    m_grid->setFocus();
    QCOMPARE(ended.size(), 1);
    QVERIFY(ended[0][2].toString().isNull());
    QVERIFY(!m_grid->editor());
}

void TestInPlaceEdit::endsTheEditOnEnterWithoutInsertingIt()
{
    QSignalSpy ended(m_grid, &CKestListCtrl::endLabelEdit);
    QTest::keyClicks(edit(3, 1), QStringLiteral("done"));
    QTest::keyClick(m_grid->editor(), Qt::Key_Return);
    QCOMPARE(ended.size(), 1);
    QCOMPARE(ended[0][2].toString(), QStringLiteral("done"));
    QVERIFY(!m_grid->editor());
}

void TestInPlaceEdit::keepsAnEditorWithAForbiddenCharacter_data()
{
    QTest::addColumn<QString>("character");
    QTest::addColumn<bool>("forbidden");
    QCOMPARE(name_characters::kNotInLayers.size(), 13);
    for (const QChar c : QStringLiteral("<>/\":;?*|,=`\\"))
        QTest::newRow(qPrintable(QString(c))) << QString(c) << true;
    for (const QChar c : QStringLiteral("'[](){}.-_$#@!%^&+~ "))
        QTest::newRow(qPrintable(QString(c))) << QString(c) << false;
}

void TestInPlaceEdit::keepsAnEditorWithAForbiddenCharacter()
{
    QFETCH(QString, character);
    QFETCH(bool, forbidden);
    QSignalSpy ended(m_grid, &CKestListCtrl::endLabelEdit);
    QTest::keyClicks(edit(3, 1), QLatin1Char('a') + character + QLatin1Char('b'));
    m_neighbour->setFocus();
    QCOMPARE(ended.size(), 1);
    QCOMPARE(m_grid->editor() != nullptr, forbidden);
}

void TestInPlaceEdit::letsEscapeOutOfAForbiddenCharacter()
{
    QTest::keyClicks(edit(3, 1), QStringLiteral("a*b"));
    QTest::keyClick(m_grid->editor(), Qt::Key_Escape);
    QVERIFY(!m_grid->editor());
}

void TestInPlaceEdit::acceptsAnyCharacterWhereTheColumnIsNotChecked()
{
    m_grid->uncheckedColumn = 1;
    QTest::keyClicks(edit(3, 1), QStringLiteral("a*b"));
    m_neighbour->setFocus();
    QVERIFY(!m_grid->editor());
}

void TestInPlaceEdit::closesAnEditorOnlyWhenItsTextIsClean()
{
    QSignalSpy ended(m_grid, &CKestListCtrl::endLabelEdit);
    QTest::keyClicks(edit(3, 1), QStringLiteral("a?b"));
    m_grid->closeInPlaceEditor();
    QVERIFY(m_grid->editor());
    QVERIFY(ended.isEmpty());
    QVERIFY2(!m_grid->openInPlaceEditor(4, 1), "one editor at a time");
    m_grid->editor()->setText(QStringLiteral("ab"));
    m_grid->closeInPlaceEditor();
    QVERIFY(!m_grid->editor());
    QCOMPARE(ended.size(), 1);
    QCOMPARE(ended[0], (QVariantList{3, 1, QStringLiteral("ab")}));
}

void TestInPlaceEdit::reportsOnceWhenItClosesTheEditor()
{
    QSignalSpy ended(m_grid, &CKestListCtrl::endLabelEdit);
    QTest::keyClicks(edit(3, 1), QStringLiteral("once"));
    click(6, 2);
    QCOMPARE(ended.size(), 1);
    m_grid->closeInPlaceEditor();
    QCOMPARE(ended.size(), 1);
}

void TestInPlaceEdit::growsTheEditorUpToTheGridsEdge()
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

void TestInPlaceEdit::growsTheEditorNoFurtherThanTheGridsNewEdge()
{
    InPlaceEdit* editor = edit(3, 1);
    QTest::keyClicks(editor, QString(80, QLatin1Char('m')));
    m_window->resize(500, 300);
    QTRY_COMPARE(editor->geometry().right(), m_grid->viewport()->rect().right());
    m_window->resize(380, 300);
    QTRY_COMPARE(editor->geometry().right(), m_grid->viewport()->rect().right());
    QCOMPARE(editor->x(), 60);
}

void TestInPlaceEdit::takesTheColumnsAlignment_data()
{
    QTest::addColumn<int>("alignment");
    QTest::newRow("left") << int(Qt::AlignLeft);
    QTest::newRow("right") << int(Qt::AlignRight);
    QTest::newRow("center") << int(Qt::AlignHCenter);
}

void TestInPlaceEdit::takesTheColumnsAlignment()
{
    QFETCH(int, alignment);
    m_model->setHeaderData(1, Qt::Horizontal, QVariant::fromValue(Qt::Alignment(alignment)),
                           Qt::TextAlignmentRole);
    QCOMPARE(int(edit(3, 1)->alignment() & Qt::AlignHorizontal_Mask), alignment);
}

void TestInPlaceEdit::goesWithItsCell()
{
    InPlaceEdit* editor = edit(3, 1);
    const auto cell = [this] { return m_grid->visualRect(m_model->index(3, 1)); };
    m_grid->setColumnWidth(0, 90);
    QTRY_COMPARE(editor->geometry(), cell());
    QCOMPARE(editor->x(), 90);
    m_grid->setColumnWidth(1, 110);
    QTRY_COMPARE(editor->geometry(), cell());
    m_grid->verticalScrollBar()->setValue(15);
    QCOMPARE(editor->geometry(), cell());
}

void TestInPlaceEdit::keepsTheFocusWithARefusedText()
{
    QTest::keyClicks(edit(3, 1), QStringLiteral("a*b"));
    QTest::keyClick(m_grid->editor(), Qt::Key_Return);
    QVERIFY(m_grid->editor() && m_grid->editor()->hasFocus());
    // Whoever goes elsewhere with it is not called back.
    m_neighbour->setFocus();
    QVERIFY(m_grid->editor());
    QVERIFY(m_neighbour->hasFocus());
}

void TestInPlaceEdit::keepsKeysOfTheEditorFromTheRows()
{
    click(3, 1);
    InPlaceEdit* editor = edit(3, 1);
    for (const auto key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_Space})
        QTest::keyClick(editor, key);
    QVERIFY(current() == (Cell{3, 1}));
    QVERIFY(m_grid->editor());
    QCOMPARE(m_grid->clicked.size(), 1);
}

void TestInPlaceEdit::discardsTheEditorWithTheRows()
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

QTEST_MAIN(TestInPlaceEdit)
#include "test_in_place_edit.moc"
