#include "GridFixture.h"
#include "layermanager/LayerDrawing.h"
#include "layermanager/layers/operations/LayerCommandTable.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QTimer>

#include <algorithm>
#include <functional>

using layer_drawing::read;
using layer_drawing::write;
using enum LayerColumn;

/// Context menu and keys of the grid.
class TestLayerGridMenu : public GridFixture
{
    Q_OBJECT

private slots:
    void selectsTheRowUnderTheMouse();
    void keepsASelectionThatHoldsTheRow();
    void clearsTheSelectionBesideTheRows();
    void runsTheCommandThatIsChosen();
    void opensAtTheFocusedCellByItsKey();
    void opensOnlyWhereTheGridTakesCommands();
    void offersWhatTheSelectionAllows();
    void graysASubmenuWithoutACommand();
    void holdsNoCommandTwice();

    void renamesWithF2();
    void describesWithF2OnADescription();
    void deletesWithDel();
    void selectsAllWithControlA();
    void leavesItsKeysToAnOpenEditor();
    void takesItsKeysBeforeTheWindowsShortcuts();

private:
    /// Opens the menu as the system does and calls `look` with it; it is closed afterwards.
    void openMenu(QContextMenuEvent::Reason reason, QPoint point,
                  const std::function<void(QMenu&)>& look = {});
    void rightClick(const char* layerName, const std::function<void(QMenu&)>& look = {});
    static QAction* action(const QMenu& menu, int id);

    bool m_opened = false;
    QPoint m_place;
};

void TestLayerGridMenu::openMenu(QContextMenuEvent::Reason reason, QPoint point,
                                 const std::function<void(QMenu&)>& look)
{
    m_opened = false;
    QTimer::singleShot(0, this, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        m_opened = true;
        m_place = menu->pos();
        if (look)
            look(*menu);
        menu->close();
    });
    QWidget* target = grid().viewport();
    if (reason == QContextMenuEvent::Keyboard)
        target = &grid();
    else
        QTest::mousePress(target, Qt::RightButton, {}, point);
    QContextMenuEvent event(reason, point, target->mapToGlobal(point));
    QApplication::sendEvent(target, &event);
    QCoreApplication::processEvents(); // the look, where no menu opened
}

void TestLayerGridMenu::rightClick(const char* layerName, const std::function<void(QMenu&)>& look)
{
    const QModelIndex index = grid().model()->index(row(layerName), static_cast<int>(Name));
    openMenu(QContextMenuEvent::Mouse, grid().visualRect(index).center(), look);
}

QAction* TestLayerGridMenu::action(const QMenu& menu, int id)
{
    for (QAction* found : menu.findChildren<QAction*>()) {
        if (found->data().toInt() == id)
            return found;
    }
    return nullptr;
}

void TestLayerGridMenu::selectsTheRowUnderTheMouse()
{
    choose({"Doors", "Roof"});
    rightClick("Walls");
    QVERIFY(m_opened);
    QCOMPARE(chosen(), QStringLiteral("Walls"));
    QCOMPARE(grid().currentIndex().row(), row("Walls"));
    QCOMPARE(grid().anchorRow(), row("Walls"));
    QVERIFY(!editor());
}

void TestLayerGridMenu::keepsASelectionThatHoldsTheRow()
{
    choose({"Doors", "Walls"});
    rightClick("Walls");
    QVERIFY(m_opened);
    QCOMPARE(chosen(), QStringLiteral("Doors Walls"));
}

void TestLayerGridMenu::clearsTheSelectionBesideTheRows()
{
    choose({"Doors"});
    openMenu(QContextMenuEvent::Mouse, {20, grid().viewport()->height() - 3}, [](QMenu& menu) {
        QVERIFY(!action(menu, kDeleteLayers)->isEnabled());
        QVERIFY(action(menu, kNewLayer)->isEnabled());
    });
    QVERIFY(m_opened);
    QCOMPARE(chosen(), QString());
}

void TestLayerGridMenu::runsTheCommandThatIsChosen()
{
    rightClick("Walls", [](QMenu& menu) { action(menu, kSetCurrentLayer)->trigger(); });
    QVERIFY(grid().currentLayer() == layer("Walls"));
}

void TestLayerGridMenu::opensAtTheFocusedCellByItsKey()
{
    choose({"Doors"});
    grid().focusCell(row("Doors"), static_cast<int>(Freeze));
    openMenu(QContextMenuEvent::Keyboard, {});
    QVERIFY(m_opened);
    const QRect cellRect = grid().visualRect(grid().currentIndex());
    QCOMPARE(m_place, grid().viewport()->mapToGlobal(cellRect.bottomLeft()));
    QCOMPARE(chosen(), QStringLiteral("Doors"));
}

void TestLayerGridMenu::opensOnlyWhereTheGridTakesCommands()
{
    grid().switchOff(true);
    rightClick("Walls");
    QVERIFY(!m_opened);
    grid().switchOff(false);
    grid().unbind();
    QVERIFY(!grid().contextMenu());
    openMenu(QContextMenuEvent::Mouse, {20, 20});
    QVERIFY(!m_opened);
}

void TestLayerGridMenu::offersWhatTheSelectionAllows()
{
    const auto enabled = [this](int id) { return action(*grid().contextMenu(), id)->isEnabled(); };
    choose({"Doors", "Walls"});
    QVERIFY(enabled(kDeleteLayers));
    QVERIFY(!enabled(kFreezeInAllViewports));
    QVERIFY(!enabled(kRemoveSelectedInViewport));
    const OdDbObjectId viewport = enterViewport();
    QVERIFY(enabled(kFreezeInAllViewports));
    QVERIFY(!enabled(kRemoveSelectedInViewport));
    write(db(), "Walls")->setColor(OdCmColor::fromIndex(1), viewport);
    QVERIFY(enabled(kRemoveSelectedInViewport));
    QVERIFY(enabled(kRemoveListedInAllViewports));
    choose({"Doors"});
    QVERIFY(!enabled(kRemoveSelectedInViewport));
    QVERIFY(enabled(kRemoveListedInAllViewports));
}

void TestLayerGridMenu::graysASubmenuWithoutACommand()
{
    const std::unique_ptr<QMenu> menu = grid().contextMenu();
    int gray = 0;
    for (const QMenu* submenu : menu->findChildren<QMenu*>()) {
        const QList<QAction*> actions = submenu->actions();
        const bool any = std::any_of(actions.begin(), actions.end(), [](const QAction* a) {
            return a->isEnabled() && !a->isSeparator();
        });
        QCOMPARE(submenu->menuAction()->isEnabled(), any);
        gray += any ? 0 : 1;
    }
    QCOMPARE(gray, 3); // all but the one that selects
}

void TestLayerGridMenu::holdsNoCommandTwice()
{
    QSet<int> ids;
    const std::unique_ptr<QMenu> menu = grid().contextMenu();
    for (const QAction* found : menu->findChildren<QAction*>()) {
        if (!found->data().isValid())
            continue; // a separator, or what opens a submenu
        const int id = found->data().toInt();
        QVERIFY(id >= kFirstLayerCommand && id <= kLastLayerCommand);
        QVERIFY2(!ids.contains(id), qPrintable(found->text()));
        QVERIFY(!found->text().isEmpty());
        ids.insert(id);
    }
    QCOMPARE(ids.size(), 21);
    QCOMPARE(menu->accessibleName(), QStringLiteral("Layer commands"));
}

// Keys

void TestLayerGridMenu::renamesWithF2()
{
    choose({"Walls"});
    grid().focusCell(row("Walls"), static_cast<int>(Lineweight));
    press(Qt::Key_F2);
    QVERIFY(editor());
    QCOMPARE(editor()->text(), QStringLiteral("Walls"));
}

void TestLayerGridMenu::describesWithF2OnADescription()
{
    write(db(), "Walls")->setDescription(QStringLiteral("of brick"));
    choose({"Walls"});
    grid().focusCell(row("Walls"), static_cast<int>(Description));
    press(Qt::Key_F2);
    QCOMPARE(editor()->text(), QStringLiteral("of brick"));
}

void TestLayerGridMenu::deletesWithDel()
{
    choose({"Beams"});
    press(Qt::Key_Delete);
    QCOMPARE(rows(), QStringLiteral("0 Doors Roof Walls"));
    grid().clearSelection();
    press(Qt::Key_Delete);
    QCOMPARE(rows(), QStringLiteral("0 Doors Roof Walls"));
}

void TestLayerGridMenu::selectsAllWithControlA()
{
    press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(grid().chosenRowCount(), 5);
}

void TestLayerGridMenu::leavesItsKeysToAnOpenEditor()
{
    choose({"Beams"});
    press(Qt::Key_F2);
    QTest::keyClick(editor(), Qt::Key_End);
    QTest::keyClick(editor(), Qt::Key_Delete);
    QTest::keyClick(editor(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(editor(), Qt::Key_F2);
    QVERIFY(editor());
    QCOMPARE(editor()->selectedText(), QStringLiteral("Beams"));
    QCOMPARE(rows(), QStringLiteral("0 Beams Doors Roof Walls"));
    QCOMPARE(chosen(), QStringLiteral("Beams"));
}

void TestLayerGridMenu::takesItsKeysBeforeTheWindowsShortcuts()
{
    QAction erase;
    erase.setShortcut(QKeySequence(Qt::Key_Delete));
    QAction other;
    other.setShortcut(QKeySequence(Qt::Key_F7));
    int erased = 0;
    int others = 0;
    connect(&erase, &QAction::triggered, this, [&] { ++erased; });
    connect(&other, &QAction::triggered, this, [&] { ++others; });
    grid().addActions({&erase, &other});
    choose({"Beams"});
    press(Qt::Key_Delete);
    press(Qt::Key_F7);
    QCOMPARE(erased, 0);
    QCOMPARE(others, 1);
    QCOMPARE(rows(), QStringLiteral("0 Doors Roof Walls"));
}

QTEST_MAIN(TestLayerGridMenu)
#include "test_layer_grid_menu.moc"
