#include "DockingFixture.h"
#include "toolkit/docking/CPaneFlyout.h"
#include "toolkit/docking/CSideTabButton.h"

#include <QApplication>
#include <QTest>

class TestAutoHideRestoring : public DockingFixture
{
    Q_OBJECT

private slots:
    void comesBackFromASavedState();
    void comesBackWhenThePaneIsCreatedLater();
    void comesBackFromAStateWithoutHiddenPanes();
    void refusesBrokenStates();
};

void TestAutoHideRestoring::comesBackFromASavedState()
{
    showWindow();
    CXTPDockingPane* pane = hiddenPalette();
    CXTPDockingPane* closed = createPane(7, xtpPaneDockRight);
    m_manager->ShowPane(closed);
    closed->ToggleAutoHide();
    m_manager->ClosePane(closed);
    const QByteArray windowState = m_window->saveState();
    const QByteArray state = m_manager->saveState();

    replaceWindow();
    showWindow();
    pane = createPalette();
    closed = createPane(7, xtpPaneDockRight);
    m_manager->ShowPane(pane);
    QVERIFY(m_window->restoreState(windowState));
    QVERIFY(m_manager->restoreState(state));
    QCOMPARE(pane->GetPaneState(), xtpPaneHidden);
    QVERIFY(!pane->IsClosed() && !pane->isVisible());
    QTRY_VERIFY(tab(kPaletteId)->isVisible());
    QCOMPARE(closed->GetPaneState(), xtpPaneHidden);
    QVERIFY(closed->IsClosed());
    QCOMPARE(tab(7), nullptr);
    QCOMPARE(m_manager->saveState(), state);
    pane->ToggleAutoHide();
    QTRY_COMPARE(pane->width(), 550);
}

void TestAutoHideRestoring::comesBackWhenThePaneIsCreatedLater()
{
    showWindow();
    hiddenPalette();
    const QByteArray windowState = m_window->saveState();
    const QByteArray state = m_manager->saveState();

    replaceWindow();
    showWindow();
    QVERIFY(m_window->restoreState(windowState));
    QVERIFY(m_manager->restoreState(state));
    QCOMPARE(m_manager->saveState(), state);
    CXTPDockingPane* pane = createPalette();
    QVERIFY(pane->IsClosed());
    QCOMPARE(pane->GetPaneState(), xtpPaneHidden);
    m_manager->ShowPane(pane);
    QVERIFY(isOut(pane));
    QVERIFY(tab(kPaletteId)->isVisible());
    QVERIFY(!pane->isVisible());
}

void TestAutoHideRestoring::comesBackFromAStateWithoutHiddenPanes()
{
    showWindow();
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    const QByteArray windowState = m_window->saveState();
    const QByteArray state = m_manager->saveState();
    pane->ToggleAutoHide();
    QVERIFY(m_window->restoreState(windowState));
    QVERIFY(m_manager->restoreState(state));
    QCOMPARE(pane->GetPaneState(), xtpPaneDocked);
    QVERIFY(pane->isVisible());
    QVERIFY(pane->isAncestorOf(pane->GetView()));
}

void TestAutoHideRestoring::refusesBrokenStates()
{
    showWindow();
    CXTPDockingPane* pane = hiddenPalette();
    QVERIFY(!m_manager->restoreState("nonsense"));
    QVERIFY(!m_manager->restoreState(QByteArray()));
    QCOMPARE(pane->GetPaneState(), xtpPaneHidden);
}

QTEST_MAIN(TestAutoHideRestoring)
#include "test_auto_hide_restoring.moc"
