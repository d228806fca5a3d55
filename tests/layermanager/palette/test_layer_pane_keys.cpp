#include "PaneFixture.h"
#include "layermanager/layers/grid/control/CInPlaceEdit.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>

class TestLayerPaneKeys : public PaneFixture
{
    Q_OBJECT

private slots:
    void f1IsEatenAndOpensTheHelp();
    void controlASelectsAllRows();
    void controlAIsEatenWhileACellIsEdited();
    void controlAIsEatenWhereItIsNotForTheGrid();
    void deleteOnTheTreeDeletesTheFilter();
    void deleteOnTheGridDeletesTheSelectedLayers();
    void deleteInACellIsTheEditors();
    void f2OnTheTreeRenamesTheFilter();
    void f2InALabelThatIsBeingEditedIsEaten();
    void f2OnTheGridEditsTheFocusedCell();
    void f2InACellIsTheEditors();
    void downAndUpMoveTheCurrentRow();
    void upScrollsTheRowAwayFromTheTop();
    void upAndDownStayAtTheEnds();
    void upAndDownInACellMoveNoRow();
    void withShiftTheGridExtendsTheSelection();
    void leftAndRightMoveTheColumn();
    void tabMovesTheColumnAndLeavesTheGridAtItsEnds();
    void escapeInACellCancelsTheEdit();
    void charactersForTheGridDoNotReachTheSearch();
    void keysGoBeforeShortcutsOfTheWindow();
    void keysElsewhereAreLeftAlone();

private:
    int row() const { return grid().currentIndex().row(); }
    int column() const { return grid().currentIndex().column(); }
    void enterGrid(const char* layer = "Doors")
    {
        choose({layer});
        grid().setFocus();
        QVERIFY(grid().hasFocus());
    }
};

void TestLayerPaneKeys::f1IsEatenAndOpensTheHelp()
{
    for (QWidget* part : {static_cast<QWidget*>(&grid()), static_cast<QWidget*>(&tree()),
                          static_cast<QWidget*>(&box())})
    {
        host().helpTopics.clear();
        part->setFocus();
        press(Qt::Key_F1);
        QCOMPARE(host().helpTopics, QList<int>{1000});
    }
}

void TestLayerPaneKeys::controlASelectsAllRows()
{
    enterGrid();
    press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(grid().chosenRowCount(), 5);
}

void TestLayerPaneKeys::controlAIsEatenWhileACellIsEdited()
{
    enterGrid();
    press(Qt::Key_F2);
    QVERIFY(grid().editor());
    QTest::keyClick(&grid(), Qt::Key_A, Qt::ControlModifier);
    QVERIFY(grid().editor());
    QCOMPARE(grid().chosenRowCount(), 1);
}

void TestLayerPaneKeys::controlAIsEatenWhereItIsNotForTheGrid()
{
    int fired = 0;
    auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_A), &window());
    connect(shortcut, &QShortcut::activated, this, [&fired] { ++fired; });
    choose({"Doors"});
    search("wal");
    press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(box().selectedText(), QString());
    QCOMPARE(box().text(), QStringLiteral("wal*"));
    QVERIFY(grid().chosenRowCount() <= 1);
    tree().setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    QVERIFY(grid().chosenRowCount() <= 1);
    enterGrid("Walls");
    press(Qt::Key_F2);
    grid().editor()->setCursorPosition(0);
    press(Qt::Key_A, Qt::ControlModifier);
    QVERIFY(grid().editor());
    QCOMPARE(grid().editor()->selectedText(), QString());
    QCOMPARE(grid().chosenRowCount(), 1);
    QCOMPARE(fired, 0);
}

void TestLayerPaneKeys::deleteOnTheTreeDeletesTheFilter()
{
    OdDbDatabase& d = *view()->database();
    addGroup("Group", {});
    click("Group");
    tree().setFocus();
    press(Qt::Key_Delete);
    settle();
    QVERIFY(!node("Group").isValid());
    QCOMPARE(listed().size(), 5);
    // What cannot be deleted stays, and no layer goes in its place.
    press(Qt::Key_Delete);
    QCOMPARE(d.layerTable().count(), 5);
    QVERIFY(node("All").isValid());
}

void TestLayerPaneKeys::deleteOnTheGridDeletesTheSelectedLayers()
{
    addSpareLayers();
    enterGrid();
    choose({"Spare-1", "Spare-2"});
    press(Qt::Key_Delete);
    QCOMPARE(listed().size(), 5);
    QVERIFY(!listed().contains(QStringLiteral("Spare-1")));
    view()->database()->undo();
    QCOMPARE(view()->database()->layerTable().count(), 7);
}

void TestLayerPaneKeys::deleteInACellIsTheEditors()
{
    enterGrid();
    press(Qt::Key_F2);
    grid().editor()->setCursorPosition(0);
    press(Qt::Key_Delete);
    QVERIFY(grid().editor());
    QCOMPARE(grid().editor()->text(), QStringLiteral("oors"));
    QCOMPARE(view()->database()->layerTable().count(), 5);
}

void TestLayerPaneKeys::f2OnTheTreeRenamesTheFilter()
{
    addGroup("Group", {});
    click("Group");
    tree().setFocus();
    press(Qt::Key_F2);
    QVERIFY(labelEditor());
    typeLabel("Ground floor");
    QVERIFY(node("Ground floor").isValid());
    QVERIFY(!grid().editor());
}

void TestLayerPaneKeys::f2InALabelThatIsBeingEditedIsEaten()
{
    f2OnTheTreeRenamesTheFilter();
    press(Qt::Key_F2);
    QVERIFY(labelEditor());
    labelEditor()->setText(QStringLiteral("Typed"));
    press(Qt::Key_F2);
    QVERIFY(labelEditor());
    QCOMPARE(labelEditor()->text(), QStringLiteral("Typed"));
}

void TestLayerPaneKeys::f2OnTheGridEditsTheFocusedCell()
{
    enterGrid();
    press(Qt::Key_F2);
    QVERIFY(grid().editor());
    QCOMPARE(grid().editor()->text(), QStringLiteral("Doors"));
    press(Qt::Key_Escape);
    grid().focusCell(grid().findRow(layer_drawing::id(*view()->database(), "Roof")),
                     static_cast<int>(LayerColumn::Description));
    press(Qt::Key_F2);
    QVERIFY(grid().editor());
    QCOMPARE(grid().editor()->cell(),
             (CKestListCtrl::Cell{row(), static_cast<int>(LayerColumn::Description)}));
    QTest::keyClicks(grid().editor(), QStringLiteral("Over all"));
    press(Qt::Key_Return);
    QCOMPARE(layer_drawing::read(*view()->database(), "Roof")->description(),
             QStringLiteral("Over all"));
}

void TestLayerPaneKeys::f2InACellIsTheEditors()
{
    enterGrid();
    press(Qt::Key_F2);
    QTest::keyClicks(grid().editor(), QStringLiteral("Gates"));
    press(Qt::Key_F2);
    QVERIFY(grid().editor());
    QCOMPARE(grid().editor()->text(), QStringLiteral("Gates"));
}

void TestLayerPaneKeys::downAndUpMoveTheCurrentRow()
{
    enterGrid();
    QCOMPARE(row(), 1);
    press(Qt::Key_Down);
    QCOMPARE(row(), 2);
    QCOMPARE(grid().chosenRows(), std::vector<int>{2});
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    QCOMPARE(row(), 0);
    QCOMPARE(grid().chosenRows(), std::vector<int>{0});
    QCOMPARE(column(), static_cast<int>(LayerColumn::Name));
}

void TestLayerPaneKeys::upScrollsTheRowAwayFromTheTop()
{
    QList<QByteArray> names;
    for (int i = 0; i < 300; ++i)
        names.append("L" + QByteArray::number(1000 + i));
    open(names);
    grid().setFocus();
    grid().chooseOnly(150);
    grid().focusCell(150, 1);
    QScrollBar* bar = grid().verticalScrollBar();
    const int height = grid().rowHeight(0);
    bar->setValue(150 * height); // row 150 stands at the very top
    press(Qt::Key_Up);
    QCOMPARE(row(), 149);
    // Its top lay one row above the top; it is scrolled by that less 22 pixels.
    QCOMPARE(bar->value(), 150 * height - height - 22);
    // Below, by what is hidden and 6 pixels.
    const int page = grid().viewport()->height();
    const int last = (bar->value() + page) / height; // the row that ends below
    grid().chooseOnly(last - 1);
    grid().focusCell(last - 1, 1);
    press(Qt::Key_Down);
    QCOMPARE(row(), last);
    QCOMPARE(bar->value(), (last + 1) * height - page + 6);
}

void TestLayerPaneKeys::upAndDownStayAtTheEnds()
{
    enterGrid("0");
    press(Qt::Key_Up);
    QCOMPARE(row(), 0);
    grid().chooseOnly(4);
    grid().focusCell(4, 1);
    press(Qt::Key_Down);
    QCOMPARE(row(), 4);
    QVERIFY(grid().hasFocus());
}

void TestLayerPaneKeys::upAndDownInACellMoveNoRow()
{
    enterGrid();
    press(Qt::Key_F2);
    press(Qt::Key_Down);
    press(Qt::Key_Up);
    QVERIFY(grid().editor());
    QCOMPARE(row(), 1);
    // Not either where the key is for the grid itself.
    QTest::keyClick(&grid(), Qt::Key_Tab);
    QVERIFY(grid().editor());
}

void TestLayerPaneKeys::withShiftTheGridExtendsTheSelection()
{
    enterGrid();
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {},
                      grid().visualRect(grid().model()->index(1, 0)).center());
    press(Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(grid().chosenRows(), (std::vector<int>{1, 2}));
}

void TestLayerPaneKeys::leftAndRightMoveTheColumn()
{
    enterGrid();
    press(Qt::Key_Right);
    QCOMPARE(column(), static_cast<int>(LayerColumn::On));
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    QCOMPARE(column(), static_cast<int>(LayerColumn::Status));
    press(Qt::Key_Left);
    QCOMPARE(column(), static_cast<int>(LayerColumn::Status));
    QVERIFY(grid().hasFocus());
}

void TestLayerPaneKeys::tabMovesTheColumnAndLeavesTheGridAtItsEnds()
{
    enterGrid();
    press(Qt::Key_Tab);
    QCOMPARE(column(), static_cast<int>(LayerColumn::On));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(column(), static_cast<int>(LayerColumn::Name));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(column(), static_cast<int>(LayerColumn::Status));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(!grid().hasFocus());
    QVERIFY(invert().hasFocus());
}

void TestLayerPaneKeys::escapeInACellCancelsTheEdit()
{
    enterGrid();
    press(Qt::Key_F2);
    QTest::keyClicks(grid().editor(), QStringLiteral("Gates"));
    press(Qt::Key_Escape);
    QVERIFY(!grid().editor());
    QVERIFY(listed().contains(QStringLiteral("Doors")));
    QVERIFY(grid().hasFocus());
}

void TestLayerPaneKeys::charactersForTheGridDoNotReachTheSearch()
{
    enterGrid();
    QTest::keyClicks(&grid(), QStringLiteral("w"));
    QCOMPARE(box().text(), QString());
    QCOMPARE(listed().size(), 5);
}

void TestLayerPaneKeys::keysGoBeforeShortcutsOfTheWindow()
{
    int fired = 0;
    for (const auto& keys : {QKeySequence(Qt::Key_Delete), QKeySequence(Qt::Key_F2),
                             QKeySequence(Qt::CTRL | Qt::Key_A)})
    {
        auto* shortcut = new QShortcut(keys, &window());
        connect(shortcut, &QShortcut::activated, this, [&fired] { ++fired; });
    }
    addSpareLayers();
    enterGrid();
    press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(grid().chosenRowCount(), 7);
    choose({"Spare-1"});
    press(Qt::Key_F2);
    QVERIFY(grid().editor());
    press(Qt::Key_Escape);
    press(Qt::Key_Delete);
    QCOMPARE(listed().size(), 6);
    search("w");
    press(Qt::Key_Delete);
    QCOMPARE(box().text(), QStringLiteral("w"));
    QCOMPARE(fired, 0);
}

void TestLayerPaneKeys::keysElsewhereAreLeftAlone()
{
    choose({"Doors"});
    elsewhere().setFocus();
    elsewhere().setText(QStringLiteral("abc"));
    elsewhere().setCursorPosition(0);
    press(Qt::Key_Delete);
    QCOMPARE(elsewhere().text(), QStringLiteral("bc"));
    press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(elsewhere().selectedText(), QStringLiteral("bc"));
    QCOMPARE(listed().size(), 5);
    QCOMPARE(host().helpTopics, QList<int>());
}

QTEST_MAIN(TestLayerPaneKeys)
#include "test_layer_pane_keys.moc"
