#include "DockingFixture.h"
#include "toolkit/docking/CFlyoutGrip.h"
#include "toolkit/docking/CPaneFlyout.h"
#include "toolkit/docking/CSideTabButton.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QStyleFactory>
#include <QTest>

class TestAutoHide : public DockingFixture
{
    Q_OBJECT

private slots:
    void hidesADockedPaneToATab();
    void leavesAFloatingOrClosedPaneAsItIs();
    void slidesThePaneOutOverTheContents();
    void slidesInWhenTheFocusLeaves();
    void staysOutWhileADialogAsks();
    void slidesInWhenTheTabIsClickedAgain();
    void slidesInOnEscape();
    void slidesOneOutAtATime();
    void isWorkedByKeys();
    void pinsThePaneWhereItWas();
    void pinsByTheTitleBar();
    void pinsAmongItsNeighbours();
    void keepsAClosedPaneAtTheSide();
    void closesAPaneThatIsOutByTheTitleBar();
    void opensAndPinsAClosedPane();
    void slidesOutFromEverySide_data();
    void slidesOutFromEverySide();
    void followsTheWindowsSize();
    void isMadeWiderByItsEdge();
    void takesTheNewTitle();
    void givesTheViewBackOnDetachWhileOut();
    void endsWithAPaneThatIsDeletedWhileOut();
    void pinsAPaneThatTheWindowShows();
    void slidesWithAnAnimation();
};

void TestAutoHide::hidesADockedPaneToATab()
{
    showWindow();
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    QSignalSpy changes(m_manager.get(), &CXTPDockingPaneManager::paneStateChanged);
    pane->ToggleAutoHide();
    QCOMPARE(changes.count(), 1);
    QCOMPARE(pane->GetPaneState(), xtpPaneHidden);
    QVERIFY(!pane->IsClosed());
    QVERIFY(!pane->isVisible());
    QVERIFY(!flyout()->isVisible());
    QVERIFY(tab(kPaletteId)->isVisible());
    QCOMPARE(tab(kPaletteId)->text(), pane->GetTitle());
    QCOMPARE(tab(kPaletteId)->accessibleName(), pane->GetTitle());
    QVERIFY(tab(kPaletteId)->height() > tab(kPaletteId)->width());
    QVERIFY(tab(kPaletteId)->mapTo(m_window.get(), QPoint(0, 0)).x() < m_window->width() / 10);
}

void TestAutoHide::leavesAFloatingOrClosedPaneAsItIs()
{
    showWindow();
    CXTPDockingPane* pane = createPalette();
    pane->ToggleAutoHide();
    QCOMPARE(pane->GetPaneState(), xtpPaneDocked);
    QVERIFY(pane->IsClosed());
    m_manager->ShowPane(pane);
    pane->setFloating(true);
    pane->ToggleAutoHide();
    QCOMPARE(pane->GetPaneState(), xtpPaneFloating);
    QVERIFY(!pane->IsClosed());
}

void TestAutoHide::slidesThePaneOutOverTheContents()
{
    showWindow();
    CXTPDockingPane* pane = hiddenPalette();
    QCoreApplication::processEvents();
    const QRect contents = m_canvas->geometry();
    QTest::mouseClick(tab(kPaletteId), Qt::LeftButton);
    QVERIFY(isOut(pane));
    QVERIFY(tab(kPaletteId)->isChecked());
    QVERIFY(pane->GetView()->isVisible());
    QVERIFY(pane->GetView()->hasFocus());
    QCOMPARE(m_canvas->geometry(), contents);
    QCOMPARE(flyout()->width(), 550);
    QCOMPARE(flyout()->height(), contents.height());
    QVERIFY(flyout()->geometry().intersects(contents));
    QCOMPARE(pane->GetPaneState(), xtpPaneHidden);
    QCOMPARE(m_window->childAt(contents.left() + 60, contents.center().y())->window(),
             m_window.get());
    QVERIFY(flyout()->isAncestorOf(m_window->childAt(contents.left() + 60, contents.center().y())));
}

void TestAutoHide::slidesInWhenTheFocusLeaves()
{
    showWindow();
    CXTPDockingPane* pane = outPalette();
    QTest::mouseClick(m_canvas->viewport(), Qt::LeftButton, {}, QPoint(m_canvas->width() - 50, 50));
    QVERIFY(m_canvas->hasFocus());
    QVERIFY(!flyout()->isVisible());
    QVERIFY(!tab(kPaletteId)->isChecked());
    QVERIFY(pane->isAncestorOf(pane->GetView()));
    QVERIFY(!pane->GetView()->isVisible());
    QCOMPARE(pane->GetPaneState(), xtpPaneHidden);
    QVERIFY(!pane->IsClosed());
}

void TestAutoHide::staysOutWhileADialogAsks()
{
    showWindow();
    CXTPDockingPane* pane = outPalette();
    QDialog dialog(m_window.get());
    dialog.setModal(true);
    QLineEdit field(&dialog);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QTRY_VERIFY(field.hasFocus());
    QVERIFY(isOut(pane));
    dialog.accept();
    m_window->activateWindow();
    QTRY_VERIFY(pane->GetView()->hasFocus());
    QVERIFY(isOut(pane));
}

void TestAutoHide::slidesInWhenTheTabIsClickedAgain()
{
    showWindow();
    CXTPDockingPane* pane = outPalette();
    QTest::mouseClick(tab(kPaletteId), Qt::LeftButton);
    QVERIFY(!isOut(pane));
    QVERIFY(!tab(kPaletteId)->isChecked());
    QTest::mouseClick(tab(kPaletteId), Qt::LeftButton);
    QVERIFY(isOut(pane));
}

void TestAutoHide::slidesInOnEscape()
{
    showWindow();
    CXTPDockingPane* pane = outPalette();
    QTest::keyClick(pane->GetView(), Qt::Key_Escape);
    QVERIFY(!isOut(pane));
    QVERIFY(m_canvas->hasFocus());
}

void TestAutoHide::slidesOneOutAtATime()
{
    showWindow();
    CXTPDockingPane* palette = hiddenPalette();
    CXTPDockingPane* other = createPane(7, xtpPaneDockRight);
    m_manager->ShowPane(other);
    other->ToggleAutoHide();
    QTest::mouseClick(tab(kPaletteId), Qt::LeftButton);
    QTest::mouseClick(tab(7), Qt::LeftButton);
    QVERIFY(isOut(other));
    QVERIFY(!isOut(palette));
    QVERIFY(!tab(kPaletteId)->isChecked());
    QVERIFY(tab(7)->isChecked());
    QVERIFY(palette->isAncestorOf(palette->GetView()));
}

void TestAutoHide::isWorkedByKeys()
{
    showWindow();
    CXTPDockingPane* pane = hiddenPalette();
    QVERIFY(tab(kPaletteId)->focusPolicy() & Qt::TabFocus);
    tab(kPaletteId)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(tab(kPaletteId), Qt::Key_Space);
    QVERIFY(isOut(pane));
    QVERIFY(pane->GetView()->hasFocus());
    flyoutButton("autoHideButton")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(flyoutButton("autoHideButton"), Qt::Key_Space);
    QCOMPARE(pane->GetPaneState(), xtpPaneDocked);
}

void TestAutoHide::pinsThePaneWhereItWas()
{
    showWindow();
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    resizeDock(pane, 430);
    const QRect before = pane->geometry();
    pane->ToggleAutoHide();
    QSignalSpy changes(m_manager.get(), &CXTPDockingPaneManager::paneStateChanged);
    pane->ToggleAutoHide();
    QCOMPARE(changes.count(), 1);
    QCOMPARE(pane->GetPaneState(), xtpPaneDocked);
    QVERIFY(pane->isVisible());
    QVERIFY(pane->isAncestorOf(pane->GetView()));
    QVERIFY(pane->GetView()->isVisible());
    QTRY_COMPARE(pane->geometry(), before);
    QVERIFY(!bar("left")->isVisible());
}

void TestAutoHide::pinsByTheTitleBar()
{
    showWindow();
    CXTPDockingPane* pane = outPalette();
    QTest::mouseClick(flyoutButton("autoHideButton"), Qt::LeftButton);
    QCOMPARE(pane->GetPaneState(), xtpPaneDocked);
    QVERIFY(pane->isVisible());
    QVERIFY(pane->isAncestorOf(pane->GetView()));
    QVERIFY(!flyout()->isVisible());
    auto* docked =
        pane->titleBarWidget()->findChild<QAbstractButton*>(QStringLiteral("autoHideButton"));
    QTest::mouseClick(docked, Qt::LeftButton);
    QCOMPARE(pane->GetPaneState(), xtpPaneHidden);
}

void TestAutoHide::pinsAmongItsNeighbours()
{
    showWindow();
    CXTPDockingPane* upper = createPane(1, xtpPaneDockLeft);
    CXTPDockingPane* middle = createPane(2, xtpPaneDockLeft);
    CXTPDockingPane* lower = createPane(3, xtpPaneDockLeft);
    for (CXTPDockingPane* pane : {upper, middle, lower})
        m_manager->ShowPane(pane);
    QTRY_VERIFY(upper->y() < middle->y() && middle->y() < lower->y());
    const int before = lower->y();
    middle->ToggleAutoHide();
    QTRY_VERIFY(lower->y() < before);
    middle->ToggleAutoHide();
    QTRY_VERIFY(upper->y() < middle->y() && middle->y() < lower->y());
}

void TestAutoHide::keepsAClosedPaneAtTheSide()
{
    showWindow();
    CXTPDockingPane* pane = hiddenPalette();
    QSignalSpy changes(m_manager.get(), &CXTPDockingPaneManager::paneStateChanged);
    m_manager->ClosePane(pane);
    QCOMPARE(changes.count(), 1);
    QVERIFY(pane->IsClosed());
    QCOMPARE(pane->GetPaneState(), xtpPaneHidden);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(tab(kPaletteId), nullptr);
    m_manager->ShowPane(pane);
    QCOMPARE(changes.count(), 2);
    QVERIFY(!pane->IsClosed());
    QCOMPARE(pane->GetPaneState(), xtpPaneHidden);
    QVERIFY(tab(kPaletteId)->isVisible());
    QVERIFY(isOut(pane));
}

void TestAutoHide::closesAPaneThatIsOutByTheTitleBar()
{
    showWindow();
    CXTPDockingPane* pane = outPalette();
    QTest::mouseClick(flyoutButton("closeButton"), Qt::LeftButton);
    QVERIFY(pane->IsClosed());
    QVERIFY(!flyout()->isVisible());
    QVERIFY(pane->isAncestorOf(pane->GetView()));
}

void TestAutoHide::opensAndPinsAClosedPane()
{
    showWindow();
    CXTPDockingPane* pane = hiddenPalette();
    m_manager->ClosePane(pane);
    // The way of the palette command: show, then pin what is hidden to the side.
    m_manager->ShowPane(pane);
    if (pane->GetPaneState() == xtpPaneHidden)
        pane->ToggleAutoHide();
    QVERIFY(!pane->IsClosed());
    QCOMPARE(pane->GetPaneState(), xtpPaneDocked);
    QVERIFY(pane->GetView()->isVisible());
    QVERIFY(pane->isAncestorOf(pane->GetView()));
    pane->ToggleAutoHide();
    m_manager->ClosePane(pane);
    pane->ToggleAutoHide();
    QVERIFY(!pane->IsClosed());
    QCOMPARE(pane->GetPaneState(), xtpPaneDocked);
}

void TestAutoHide::slidesOutFromEverySide_data()
{
    QTest::addColumn<XTPDockingPaneDirection>("direction");
    QTest::addColumn<bool>("upright");
    QTest::newRow("left") << xtpPaneDockLeft << true;
    QTest::newRow("right") << xtpPaneDockRight << true;
    QTest::newRow("top") << xtpPaneDockTop << false;
    QTest::newRow("bottom") << xtpPaneDockBottom << false;
}

void TestAutoHide::slidesOutFromEverySide()
{
    QFETCH(const XTPDockingPaneDirection, direction);
    QFETCH(const bool, upright);
    showWindow(QSize(1000, 700));
    CXTPDockingPane* pane = createPane(7, direction);
    m_manager->ShowPane(pane);
    const QSize docked = pane->size();
    pane->ToggleAutoHide();
    QCoreApplication::processEvents();
    QTest::mouseClick(tab(7), Qt::LeftButton);
    const QRect bar = tab(7)->parentWidget()->geometry();
    const QRect out = flyout()->geometry();
    QVERIFY(m_window->rect().contains(out));
    QVERIFY(!out.intersects(bar));
    QVERIFY(m_canvas->geometry().intersects(out));
    QCOMPARE(upright ? out.width() : out.height(), upright ? docked.width() : docked.height());
    QCOMPARE(upright ? out.height() : out.width(), upright ? bar.height() : bar.width());
    QVERIFY(pane->GetView()->isAncestorOf(m_window->childAt(out.center())));
}

void TestAutoHide::followsTheWindowsSize()
{
    showWindow(QSize(1400, 900));
    CXTPDockingPane* pane = outPalette();
    m_window->resize(1400, 500);
    QTRY_COMPARE(flyout()->height(), tab(kPaletteId)->parentWidget()->height());
    QVERIFY(flyout()->height() <= 500);
    m_window->resize(500, 500);
    QTRY_VERIFY(m_window->rect().contains(flyout()->geometry()));
    QVERIFY(isOut(pane));
}

void TestAutoHide::isMadeWiderByItsEdge()
{
    showWindow(QSize(1900, 900));
    CXTPDockingPane* pane = outPalette();
    auto* grip = flyout()->findChild<CFlyoutGrip*>();
    QCOMPARE(grip->mapTo(flyout(), QPoint(grip->width(), 0)).x() > flyout()->width() - 10, true);
    const QPoint at = grip->rect().center();
    const auto drag = [&](int distance) {
        QTest::mousePress(grip, Qt::LeftButton, {}, at);
        QTest::mouseMove(grip, at + QPoint(distance, 0));
        QTest::mouseRelease(grip, Qt::LeftButton, {}, grip->rect().center());
    };
    drag(100);
    QCOMPARE(flyout()->width(), 650);
    drag(-5000);
    QCOMPARE(flyout()->width(), 355);
    drag(5000);
    QCOMPARE(flyout()->width(), 1280);
    drag(-600);
    QCOMPARE(flyout()->width(), 680);
    pane->ToggleAutoHide();
    QTRY_COMPARE(pane->width(), 680);
}

void TestAutoHide::takesTheNewTitle()
{
    showWindow();
    CXTPDockingPane* pane = outPalette();
    pane->SetTitle(QStringLiteral("Other"));
    QCOMPARE(tab(kPaletteId)->text(), QStringLiteral("Other"));
    QCOMPARE(flyout()->accessibleName(), QStringLiteral("Other"));
}

void TestAutoHide::givesTheViewBackOnDetachWhileOut()
{
    showWindow();
    CXTPDockingPane* pane = outPalette();
    const std::unique_ptr<QWidget> view(pane->Detach());
    QVERIFY(view);
    QCOMPARE(view->parentWidget(), nullptr);
    QVERIFY(!flyout()->isVisible());
    QTest::mouseClick(tab(kPaletteId), Qt::LeftButton);
    QVERIFY(flyout()->isVisible());
}

void TestAutoHide::endsWithAPaneThatIsDeletedWhileOut()
{
    showWindow();
    CXTPDockingPane* pane = outPalette();
    const QPointer<QWidget> view = pane->GetView();
    delete pane;
    QVERIFY(!view);
    QVERIFY(!flyout()->isVisible());
    QCOMPARE(m_manager->FindPane(kPaletteId), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(tab(kPaletteId), nullptr);
    QVERIFY(createPalette()->IsClosed());
}

void TestAutoHide::pinsAPaneThatTheWindowShows()
{
    showWindow();
    CXTPDockingPane* pane = hiddenPalette();
    pane->toggleViewAction()->trigger();
    QCOMPARE(pane->GetPaneState(), xtpPaneDocked);
    QVERIFY(pane->isVisible());
    QVERIFY(!pane->IsClosed());
    QCoreApplication::processEvents();
    QVERIFY(!bar("left")->isVisible());
    QCOMPARE(pane->GetPaneState(), xtpPaneDocked);
}

void TestAutoHide::slidesWithAnAnimation()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    showWindow();
    CXTPDockingPane* pane = hiddenPalette();
    QSignalSpy slidIn(flyout(), &CPaneFlyout::slidIn);
    QTest::mouseClick(tab(kPaletteId), Qt::LeftButton);
    QVERIFY(flyout()->width() < 550);
    QTRY_COMPARE(flyout()->width(), 550);
    m_canvas->setFocus();
    QVERIFY(flyout()->isVisible());
    QVERIFY(slidIn.wait());
    QVERIFY(!flyout()->isVisible());
    QVERIFY(pane->isAncestorOf(pane->GetView()));
    // Clicked again on its way in, it turns round.
    QTest::mouseClick(tab(kPaletteId), Qt::LeftButton);
    QTRY_COMPARE(flyout()->width(), 550);
    QTest::mouseClick(tab(kPaletteId), Qt::LeftButton);
    QVERIFY(flyout()->isSlidingIn());
    QTest::mouseClick(tab(kPaletteId), Qt::LeftButton);
    QVERIFY(!flyout()->isSlidingIn());
    QTRY_COMPARE(flyout()->width(), 550);
    QVERIFY(isOut(pane));
}

QTEST_MAIN(TestAutoHide)
#include "test_auto_hide.moc"
