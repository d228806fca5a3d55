#include "FilterEditorFixture.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QContextMenuEvent>
#include <QTimer>

/// The dialog without a mouse, and for who cannot see it.
class TestFilterDialogKeys : public FilterEditorFixture
{
    Q_OBJECT

private slots:
    void arrowsAndTabWalkThroughTheTable();
    void tabReachesEveryControlInOrder();
    void keysOpenAValueList_data();
    void keysOpenAValueList();
    void keysOpenAText_data();
    void keysOpenAText();
    void typingOnATextCellReplacesIt();
    void whatAltGrTypesIsTypedAndCommandsAreNot();
    void enterOpensAPicker();
    void deleteEmptiesACell_data();
    void deleteEmptiesACell();
    void deleteTakesALineAwayThatItEmpties();
    void theMenuKeyOpensTheMenuOfTheLine();
    void ctrlASelectsAllRealLinesFromAnywhere_data();
    void ctrlASelectsAllRealLinesFromAnywhere();
    void ctrlAInTheBlankLineSelectsNothingAndGoesNoFurther();
    void enterInTheTableDoesNotAcceptAndEscapeCancels();
    void cellsAreReadWithColumnLineAndValue();
    void mnemonicsDoNotClash();

private:
    void focusCell(int row, int column);
};

void TestFilterDialogKeys::focusCell(int row, int column)
{
    table().setFocus();
    table().focusCell(row, column);
}

void TestFilterDialogKeys::arrowsAndTabWalkThroughTheTable()
{
    showExisting("F", "NAME==\"A*\"  OR OFF==\"True\" ");
    focusCell(0, kStatus);
    press(Qt::Key_Right);
    QCOMPARE(table().currentIndex(), index(0, kName));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    QCOMPARE(table().currentIndex(), index(2, kName));
    press(Qt::Key_Tab);
    QCOMPARE(table().currentIndex(), index(2, kOn));
    press(Qt::Key_Up);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(table().currentIndex(), index(1, kName));
    QCOMPARE(lines(), 3);
}

void TestFilterDialogKeys::tabReachesEveryControlInOrder()
{
    showNew();
    nameEdit().setFocus();
    QList<int> reached;
    const QList<int> wanted{1010, 1011, 1013, 1012, 1, 2, 1014};
    for (int step = 0; step < 60 && reached.size() < wanted.size(); ++step) {
        for (const int id : wanted) {
            if (QApplication::focusWidget() == control<QWidget>(id) && !reached.contains(id))
                reached << id;
        }
        press(Qt::Key_Tab);
    }
    QCOMPARE(reached, wanted);
}

void TestFilterDialogKeys::keysOpenAValueList_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("F2") << int(Qt::Key_F2) << 0;
    QTest::newRow("Enter") << int(Qt::Key_Return) << 0;
    QTest::newRow("Space") << int(Qt::Key_Space) << 0;
    QTest::newRow("Alt+Down") << int(Qt::Key_Down) << int(Qt::AltModifier);
}

void TestFilterDialogKeys::keysOpenAValueList()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    showNew();
    focusCell(0, kOn);
    press(Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QVERIFY(isListOpen());
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    QVERIFY(!combo().isVisible());
    QCOMPARE(expression(), QStringLiteral("OFF==\"False\" "));
    QVERIFY(table().hasFocus());
    QCOMPARE(table().currentIndex(), index(0, kOn));
    QVERIFY(dialog().isVisible());
}

void TestFilterDialogKeys::keysOpenAText_data()
{
    keysOpenAValueList_data();
}

void TestFilterDialogKeys::keysOpenAText()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    showNew();
    focusCell(0, kDescription);
    press(Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QVERIFY(editor());
    QTest::keyClicks(editor(), QStringLiteral("Steel"));
    press(Qt::Key_Return);
    QVERIFY(!editor());
    QCOMPARE(expression(), QStringLiteral("DESC==\"Steel\" "));
    QCOMPARE(previewed(), QStringLiteral("S-Beams"));
    QVERIFY(dialog().isVisible());
}

void TestFilterDialogKeys::typingOnATextCellReplacesIt()
{
    showExisting("F", "NAME==\"A*\" ");
    focusCell(0, kName);
    press(Qt::Key_S, Qt::ShiftModifier);
    QVERIFY(editor());
    QTest::keyClicks(editor(), QStringLiteral("*"));
    press(Qt::Key_Return);
    QCOMPARE(cell(0, kName).toUpper(), QStringLiteral("S*"));
    focusCell(0, kOn);
    press(Qt::Key_S);
    QVERIFY(!editor());
}

void TestFilterDialogKeys::whatAltGrTypesIsTypedAndCommandsAreNot()
{
    showNew();
    focusCell(0, kName);
    const auto type = [this](Qt::KeyboardModifiers modifiers) {
        QTest::sendKeyEvent(QTest::Click, &table(), Qt::Key_AsciiTilde, QStringLiteral("~"),
                            modifiers);
    };
    type(Qt::ControlModifier);
    QVERIFY(!editor());
    type(Qt::AltModifier);
    QVERIFY(!editor());
    type(Qt::ControlModifier | Qt::AltModifier);
    QVERIFY(editor());
    QCOMPARE(editor()->text(), QStringLiteral("~"));
}

void TestFilterDialogKeys::enterOpensAPicker()
{
    showNew();
    host().pickedColor = OdCmColor::fromIndex(1);
    focusCell(0, kColor);
    press(Qt::Key_Return);
    QCOMPARE(expression(), QStringLiteral("COLOR==\"1\" "));
    QVERIFY(dialog().isVisible());
}

void TestFilterDialogKeys::deleteEmptiesACell_data()
{
    QTest::addColumn<int>("column");
    for (const int column : {kName, kOn, kColor, kLinetype, kLineweight, kDescription})
        QTest::addRow("%d", column) << column;
}

void TestFilterDialogKeys::deleteEmptiesACell()
{
    QFETCH(int, column);
    showExisting("F",
                 "NAME==\"*\"  AND OFF==\"False\"  AND COLOR==\"1\"  AND LINETYPE==\"DASHED\"  AND "
                 "LINEWEIGHT==\"0.25 mm\" DESC==\"x\" ");
    QCOMPARE(notice(), QString());
    for (int other = kStatus; other < kVpFreeze; ++other)
        QCOMPARE(cell(0, other).isEmpty(),
                 !QList<int>({kName, kOn, kColor, kLinetype, kLineweight, kDescription})
                      .contains(other));
    focusCell(0, column);
    press(Qt::Key_Delete);
    for (int other = kStatus; other < kVpFreeze; ++other)
        QCOMPARE(cell(0, other).isEmpty(),
                 other == column
                     || !QList<int>({kName, kOn, kColor, kLinetype, kLineweight, kDescription})
                             .contains(other));
    QCOMPARE(lines(), 2);
}

void TestFilterDialogKeys::deleteTakesALineAwayThatItEmpties()
{
    showExisting("F", "NAME==\"A*\"  OR NAME==\"S*\" ");
    focusCell(0, kName);
    press(Qt::Key_Delete);
    QCOMPARE(lines(), 2);
    QCOMPARE(expression(), QStringLiteral("NAME==\"S*\" "));
}

void TestFilterDialogKeys::theMenuKeyOpensTheMenuOfTheLine()
{
    showExisting("F", "NAME==\"A*\"  OR NAME==\"S*\" ");
    focusCell(1, kName);
    QTimer::singleShot(0, &table(), [] {
        QWidget* menu = QApplication::activePopupWidget();
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(table().viewport(), &event);
    settle();
    QCOMPARE(lines(), 4);
    QCOMPARE(cell(2, kName), QStringLiteral("S*"));
}

void TestFilterDialogKeys::ctrlASelectsAllRealLinesFromAnywhere_data()
{
    QTest::addColumn<int>("id");
    for (const int id : {1010, 1011, 1012, 1013, 1, 1014})
        QTest::addRow("%d", id) << id;
}

void TestFilterDialogKeys::ctrlASelectsAllRealLinesFromAnywhere()
{
    QFETCH(int, id);
    showExisting("F", "NAME==\"A*\"  OR NAME==\"S*\" ");
    table().clearSelection();
    preview().clearSelection();
    nameEdit().deselect();
    control<QWidget>(id)->setFocus();
    nameEdit().deselect();
    press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(table().chosenRows(), (std::vector<int>{0, 1}));
    QVERIFY(!nameEdit().hasSelectedText());
    QCOMPARE(preview().chosenRowCount(), 0);
}

void TestFilterDialogKeys::ctrlAInTheBlankLineSelectsNothingAndGoesNoFurther()
{
    showNew();
    nameEdit().setFocus();
    nameEdit().deselect();
    press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(table().chosenRowCount(), 0);
    QVERIFY(!nameEdit().hasSelectedText());
}

void TestFilterDialogKeys::enterInTheTableDoesNotAcceptAndEscapeCancels()
{
    showNew();
    focusCell(0, kPlotStyle);
    press(Qt::Key_Return);
    QVERIFY(dialog().isVisible());
    press(Qt::Key_Escape);
    QVERIFY(!dialog().isVisible());
    QCOMPARE(dialog().result(), int(QDialog::Rejected));
}

void TestFilterDialogKeys::cellsAreReadWithColumnLineAndValue()
{
    showNew();
    choose(0, kOn, 1);
    QAccessibleInterface* grid = QAccessible::queryAccessibleInterface(&table());
    QVERIFY(grid && grid->tableInterface());
    QCOMPARE(grid->text(QAccessible::Name), QStringLiteral("Filter definition"));
    const auto name = [&](int row, int column) {
        return grid->tableInterface()->cellAt(row, column)->text(QAccessible::Name);
    };
    QCOMPARE(name(0, kOn), QStringLiteral("On, line 1: on"));
    QCOMPARE(name(1, kOn), QStringLiteral("On, line 2: not set"));
    click(0, kFreeze);
    QCOMPARE(combo().accessibleName(), QStringLiteral("Freeze, line 1: not set"));
    QTest::keyClick(combo().view(), Qt::Key_Escape);
    settle();
}

void TestFilterDialogKeys::mnemonicsDoNotClash()
{
    showNew();
    QStringList keys;
    for (const QLabel* label : dialog().findChildren<QLabel*>()) {
        const QKeySequence key = QKeySequence::mnemonic(label->text());
        if (label->buddy() && !key.isEmpty())
            keys << key.toString();
    }
    for (const QAbstractButton* button : dialog().findChildren<QAbstractButton*>()) {
        const QKeySequence key = QKeySequence::mnemonic(button->text());
        if (button->isVisible() && !key.isEmpty())
            keys << key.toString();
    }
    QStringList once = keys;
    once.removeDuplicates();
    QCOMPARE(keys, once);
    QVERIFY(keys.size() >= 4);
}

QTEST_MAIN(TestFilterDialogKeys)
#include "test_filter_dialog_keys.moc"
