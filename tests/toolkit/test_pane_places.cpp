#include "DockingFixture.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"
#include "toolkit/docking/CPaneFlyout.h"
#include "toolkit/docking/CPaneTitleBar.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScreen>
#include <QTest>

/// Where panes are: the menu of their titles, the keys that go round, and what comes back.
class TestPanePlaces : public DockingFixture
{
    Q_OBJECT

private:
    static constexpr int kOther = 7;

    static CPaneTitleBar& title(CXTPDockingPane* pane)
    {
        return *qobject_cast<CPaneTitleBar*>(pane->titleBarWidget());
    }
    /// "dock float close": what the menu offers now.
    static QString offered(CPaneTitleBar& bar)
    {
        const std::unique_ptr<QMenu> menu(bar.makeMenu());
        QStringList names;
        for (const QAction* action : menu->actions()) {
            if (!action->isSeparator() && action->isEnabled())
                names << action->objectName();
        }
        return names.join(QLatin1Char(' '));
    }
    static void trigger(CPaneTitleBar& bar, const char* name)
    {
        const std::unique_ptr<QMenu> menu(bar.makeMenu());
        menu->findChild<QAction*>(QLatin1String(name))->trigger();
        QCoreApplication::processEvents();
    }
    CPaneTitleBar& flyoutTitle() const { return *flyout()->findChild<CPaneTitleBar*>(); }
    void press(Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6, modifiers);
    }
    struct State
    {
        QByteArray window;
        QByteArray panes;
    };
    State save() const { return {m_window->saveState(), m_manager->saveState()}; }
    void restore(const State& state)
    {
        QVERIFY(m_window->restoreState(state.window));
        QVERIFY(m_manager->restoreState(state.panes));
        QCoreApplication::processEvents();
    }

private slots:
    void offerInTheirMenuWhatTheirStateAllows();
    void followTheirMenu();
    void standOutFromTheirDockWhenTheyFloat();
    void openTheirMenuByRightClickAndByKey();
    void goRoundByF6();
    void slideOutByF6();
    void comeToTheFrontOfTheirTabsByF6();
    void passOverPanesThatTakeNoFocus();
    void comeBackInTabs();
    void comeBackFloatingInTheirPlaceAndSize();
    void comeBackFloatingWhenTheyAreCreatedLater();
    void comeBackOnAScreenThatIsThere();
    void comeBackTheSameWhenTheStateIsRestoredTwice();
    void leaveAReachableFloatingPaneWhereItIs();
    void lookLikeTheirGoldenImages_data();
    void lookLikeTheirGoldenImages();
};

void TestPanePlaces::offerInTheirMenuWhatTheirStateAllows()
{
    showWindow();
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    QCOMPARE(offered(title(pane)), QStringLiteral("float hide close"));
    pane->setFloating(true);
    QCOMPARE(offered(title(pane)), QStringLiteral("dock close"));
    pane->setFloating(false);
    m_manager->ToggleAutoHide(pane);
    m_manager->ShowPane(pane);
    QCOMPARE(offered(flyoutTitle()), QStringLiteral("dock close"));
}

void TestPanePlaces::followTheirMenu()
{
    showWindow();
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    trigger(title(pane), "float");
    QCOMPARE(pane->GetPaneState(), xtpPaneFloating);
    trigger(title(pane), "dock");
    QCOMPARE(pane->GetPaneState(), xtpPaneDocked);
    trigger(title(pane), "hide");
    QCOMPARE(pane->GetPaneState(), xtpPaneHidden);
    m_manager->ShowPane(pane);
    trigger(flyoutTitle(), "dock");
    QCOMPARE(pane->GetPaneState(), xtpPaneDocked);
    QVERIFY(pane->isVisible());
    trigger(title(pane), "close");
    QVERIFY(pane->IsClosed());
}

void TestPanePlaces::standOutFromTheirDockWhenTheyFloat()
{
    showWindow(QSize(500, 400));
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    const QPoint docked = pane->mapToGlobal(QPoint(0, 0));
    trigger(title(pane), "float");
    QVERIFY((pane->pos() - docked).manhattanLength() >= 24);
    // Where the user put it is where it floats again.
    pane->move(200, 150);
    trigger(title(pane), "dock");
    trigger(title(pane), "float");
    QCOMPARE(pane->pos(), QPoint(200, 150));
}

void TestPanePlaces::openTheirMenuByRightClickAndByKey()
{
    showWindow();
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
        QContextMenuEvent event(reason, QPoint(20, 5), title(pane).mapToGlobal(QPoint(20, 5)));
        QCoreApplication::sendEvent(&title(pane), &event);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QTest::keyClick(menu, Qt::Key_Escape);
        QVERIFY(!QApplication::activePopupWidget());
    }
    // A button of the title hands the menu key on to the title.
    QWidget* close = title(pane).findChild<QWidget*>(QStringLiteral("closeButton"));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(2, 2),
                            close->mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(close, &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QTest::keyClick(menu, Qt::Key_C);
    QTRY_VERIFY(pane->IsClosed());
}

void TestPanePlaces::goRoundByF6()
{
    showWindow();
    CXTPDockingPane* palette = createPalette();
    CXTPDockingPane* other = createPane(kOther, xtpPaneDockBottom);
    m_manager->ShowPane(palette);
    m_manager->ShowPane(other);
    m_canvas->setFocus();
    press();
    QVERIFY(other->GetView()->hasFocus());
    press();
    QVERIFY(palette->GetView()->hasFocus());
    press();
    QVERIFY(m_canvas->hasFocus());
    press(Qt::ShiftModifier);
    QVERIFY(palette->GetView()->hasFocus());
    m_manager->ClosePane(other);
    press(Qt::ShiftModifier);
    QVERIFY(m_canvas->hasFocus());
}

void TestPanePlaces::slideOutByF6()
{
    showWindow();
    CXTPDockingPane* pane = hiddenPalette();
    m_canvas->setFocus();
    press();
    QVERIFY(isOut(pane));
    QVERIFY(pane->GetView()->hasFocus());
    press();
    QVERIFY(m_canvas->hasFocus());
    QTRY_VERIFY(!isOut(pane));
}

void TestPanePlaces::comeToTheFrontOfTheirTabsByF6()
{
    showWindow();
    CXTPDockingPane* palette = createPalette();
    CXTPDockingPane* other = createPane(kOther, xtpPaneDockLeft);
    m_manager->ShowPane(palette);
    m_manager->ShowPane(other);
    m_window->tabifyDockWidget(palette, other);
    m_manager->ShowPane(palette);
    m_canvas->setFocus();
    press();
    QVERIFY(!other->visibleRegion().isEmpty());
    QVERIFY(other->GetView()->hasFocus());
}

void TestPanePlaces::passOverPanesThatTakeNoFocus()
{
    showWindow();
    CXTPDockingPane* palette = createPalette();
    CXTPDockingPane* label = createPane(kOther, xtpPaneDockBottom);
    label->AttachView(new QWidget);
    m_manager->ShowPane(palette);
    m_manager->ShowPane(label);
    m_canvas->setFocus();
    press();
    QVERIFY(palette->GetView()->hasFocus());
}

void TestPanePlaces::comeBackInTabs()
{
    showWindow();
    CXTPDockingPane* palette = createPalette();
    CXTPDockingPane* other = createPane(kOther, xtpPaneDockRight);
    m_manager->ShowPane(palette);
    m_manager->ShowPane(other);
    m_window->tabifyDockWidget(palette, other);
    const State state = save();

    replaceWindow();
    showWindow();
    palette = createPalette();
    other = createPane(kOther, xtpPaneDockRight);
    restore(state);
    QCOMPARE(m_window->tabifiedDockWidgets(palette), QList<QDockWidget*>{other});
    QVERIFY(!palette->IsClosed() && !other->IsClosed());
}

void TestPanePlaces::comeBackFloatingInTheirPlaceAndSize()
{
    showWindow(QSize(500, 400));
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    pane->setFloating(true);
    pane->setGeometry(120, 90, 400, 260);
    const State state = save();

    replaceWindow();
    showWindow(QSize(500, 400));
    pane = createPalette();
    restore(state);
    QCOMPARE(pane->GetPaneState(), xtpPaneFloating);
    QVERIFY(pane->isVisible());
    QCOMPARE(pane->geometry(), QRect(120, 90, 400, 260));
}

void TestPanePlaces::comeBackFloatingWhenTheyAreCreatedLater()
{
    showWindow(QSize(500, 400));
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    pane->setFloating(true);
    pane->setGeometry(120, 90, 400, 260);
    const State state = save();

    replaceWindow();
    showWindow(QSize(500, 400));
    restore(state);
    pane = createPalette();
    QVERIFY(pane->IsClosed());
    m_manager->ShowPane(pane);
    QCOMPARE(pane->GetPaneState(), xtpPaneFloating);
    QCOMPARE(pane->geometry(), QRect(120, 90, 400, 260));
}

void TestPanePlaces::comeBackOnAScreenThatIsThere()
{
    showWindow(QSize(500, 400));
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    pane->setFloating(true);
    const QRect screen = pane->screen()->availableGeometry();
    for (const QPoint gone : {QPoint(9000, 100), QPoint(100, -4000), QPoint(-6000, -6000)}) {
        pane->move(gone);
        const State state = save();
        restore(state);
        QVERIFY(screen.contains(pane->geometry()));
        pane->move(gone);
        m_manager->keepOnScreens(); // as after a screen went
        QVERIFY(screen.contains(pane->geometry()));
    }
}

void TestPanePlaces::leaveAReachableFloatingPaneWhereItIs()
{
    showWindow(QSize(500, 400));
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    pane->setFloating(true);
    const QRect screen = pane->screen()->availableGeometry();
    const QPoint hanging(screen.right() - 120, screen.bottom() - 40);
    pane->move(hanging);
    m_manager->keepOnScreens();
    QCOMPARE(pane->pos(), hanging);
}

void TestPanePlaces::comeBackTheSameWhenTheStateIsRestoredTwice()
{
    showWindow(QSize(1200, 700));
    CXTPDockingPane* palette = createPalette();
    CXTPDockingPane* bottom = createPane(kOther, xtpPaneDockBottom);
    CXTPDockingPane* hidden = createPane(8, xtpPaneDockRight);
    for (CXTPDockingPane* pane : {palette, bottom, hidden})
        m_manager->ShowPane(pane);
    resizeDock(palette, 420);
    resizeDock(bottom, 180, Qt::Vertical);
    m_manager->ToggleAutoHide(hidden);
    const State state = save();
    for (int i = 0; i < 2; ++i) {
        palette->setFloating(true);
        m_manager->ClosePane(bottom);
        m_manager->ToggleAutoHide(hidden);
        restore(state);
        QCOMPARE(palette->GetPaneState(), xtpPaneDocked);
        QCOMPARE(hidden->GetPaneState(), xtpPaneHidden);
        QVERIFY(!bottom->IsClosed());
        QTRY_COMPARE(palette->width(), 420);
        QTRY_COMPARE(bottom->height(), 180);
    }
    restore(state);
    restore(state);
    QCOMPARE(save().panes, state.panes);
    QTRY_COMPARE(palette->width(), 420);
}

void TestPanePlaces::lookLikeTheirGoldenImages_data()
{
    QTest::addColumn<GoldenLook::Theme>("theme");
    QTest::newRow("light") << GoldenLook::Theme::Light;
    QTest::newRow("dark") << GoldenLook::Theme::Dark;
}

void TestPanePlaces::lookLikeTheirGoldenImages()
{
    QFETCH(const GoldenLook::Theme, theme);
    const GoldenLook look(theme);
    replaceWindow();
    showWindow(QSize(400, 300));
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    const std::unique_ptr<QMenu> menu(title(pane).makeMenu());
    menu->popup(QPoint(0, 0));
    menu->setActiveAction(menu->actions().at(1));
    QVERIFY(goldenImage(menu->grab().toImage(),
                        QStringLiteral("pane_menu_") + GoldenLook::suffix(theme)));
    menu->close();
}

QTEST_MAIN(TestPanePlaces)
#include "test_pane_places.moc"
