#include "DockingFixture.h"
#include "support/pictures/GoldenImage.h"
#include "support/pictures/GoldenLook.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

class TestDockingPanes : public DockingFixture
{
    Q_OBJECT

private slots:
    void areManagedByTheObjectInTheWindowsProperty();
    void comeUpHiddenUnderTheirIdentifier();
    void areCreatedOncePerIdentifier();
    void openAndCloseAndSaySo();
    void openAgainInFront();
    void startInTheirInitialWidthAndFillTheWindowsHeight();
    void keepTheirMinimumWhileDocked();
    void keepTheirMaximumWidthWhileDockedAtASide();
    void keepTheirMaximumHeightWhileDockedAtTheBottom();
    void keepBothLimitsWhileFloating();
    void fillTheirSideAgainAfterFloating();
    void ownTheirViewWhileAttached();
    void giveTheirViewBackOnDetach();
    void endAViewThatAnotherReplaces();
    void standTheLossOfTheirView();
    void surviveTheirWindow();
    void haveTitleBarsThatKeysReach();
    void floatAndDockByTheTitleBar();
    void comeBackToASavedPlace();
    void comeBackToASavedPlaceWhenTheyAreCreatedLater();
    void lookLikeTheirGoldenImages_data();
    void lookLikeTheirGoldenImages();

private:
    static QAbstractButton* button(CXTPDockingPane* pane, const char* name)
    {
        return pane->titleBarWidget()->findChild<QAbstractButton*>(QLatin1String(name));
    }
};

void TestDockingPanes::areManagedByTheObjectInTheWindowsProperty()
{
    QCOMPARE(m_window->property("DockingPane").value<QObject*>(), m_manager.get());
    QCOMPARE(CXTPDockingPaneManager::of(m_window.get()), m_manager.get());
    QCOMPARE(CXTPDockingPaneManager::of(m_canvas), nullptr);
    QCOMPARE(CXTPDockingPaneManager::of(nullptr), nullptr);
    m_manager.reset();
    QVERIFY(!m_window->property("DockingPane").isValid());
    QCOMPARE(CXTPDockingPaneManager::of(m_window.get()), nullptr);
}

void TestDockingPanes::comeUpHiddenUnderTheirIdentifier()
{
    showWindow();
    QCOMPARE(m_manager->FindPane(kPaletteId), nullptr);
    QVERIFY(m_manager->IsPaneClosed(kPaletteId));
    CXTPDockingPane* pane = createPalette();
    QCOMPARE(m_manager->FindPane(kPaletteId), pane);
    QCOMPARE(pane->GetID(), kPaletteId);
    QCOMPARE(pane->objectName(), QStringLiteral("pane_1000"));
    QCOMPARE(pane->GetTitle(), QStringLiteral("Layer Properties Manager"));
    QCOMPARE(pane->GetPaneState(), xtpPaneDocked);
    QVERIFY(pane->IsClosed());
    QVERIFY(!pane->isVisible());
    QCOMPARE(m_window->dockWidgetArea(pane), Qt::LeftDockWidgetArea);
}

void TestDockingPanes::areCreatedOncePerIdentifier()
{
    CXTPDockingPane* pane = createPalette();
    QCOMPARE(m_manager->CreatePane(kPaletteId, QRect(0, 0, 10, 10), xtpPaneDockRight), pane);
    QVERIFY(m_manager->CreatePane(7, QRect(0, 0, 10, 10), xtpPaneDockRight) != pane);
}

void TestDockingPanes::openAndCloseAndSaySo()
{
    showWindow();
    CXTPDockingPane* pane = createPalette();
    QSignalSpy changes(m_manager.get(), &CXTPDockingPaneManager::paneStateChanged);
    m_manager->ShowPane(pane);
    QVERIFY(!pane->IsClosed() && pane->isVisible());
    QVERIFY(!m_manager->IsPaneClosed(kPaletteId));
    QCOMPARE(changes.count(), 1);
    m_manager->ClosePane(pane);
    QVERIFY(pane->IsClosed() && !pane->isVisible());
    QCOMPARE(changes.count(), 2);
    m_manager->ClosePane(pane);
    QCOMPARE(changes.count(), 2);
    m_manager->ShowPane(pane);
    QTest::mouseClick(button(pane, "closeButton"), Qt::LeftButton);
    QVERIFY(pane->IsClosed());
    QCOMPARE(changes.count(), 4);
    QVERIFY(pane->GetView());
}

void TestDockingPanes::openAgainInFront()
{
    showWindow();
    CXTPDockingPane* palette = createPalette();
    CXTPDockingPane* other = createPane(7, xtpPaneDockLeft);
    m_manager->ShowPane(palette);
    m_manager->ShowPane(other);
    m_window->tabifyDockWidget(palette, other);
    m_manager->ShowPane(other);
    QVERIFY(palette->visibleRegion().isEmpty());
    QVERIFY(!palette->IsClosed());
    m_manager->ShowPane(palette);
    QVERIFY(!palette->visibleRegion().isEmpty());
}

void TestDockingPanes::startInTheirInitialWidthAndFillTheWindowsHeight()
{
    showWindow(QSize(1400, 900));
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    QCOMPARE(pane->width(), 550);
    QCOMPARE(pane->height(), m_canvas->height());
    QVERIFY(pane->height() > 700);
}

void TestDockingPanes::keepTheirMinimumWhileDocked()
{
    showWindow();
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    resizeDock(pane, 10);
    QCOMPARE(pane->width(), 355);
}

void TestDockingPanes::keepTheirMaximumWidthWhileDockedAtASide()
{
    showWindow(QSize(2000, 900));
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    resizeDock(pane, 1900);
    QCOMPARE(pane->width(), 1280);
}

void TestDockingPanes::keepTheirMaximumHeightWhileDockedAtTheBottom()
{
    showWindow(QSize(2000, 1000));
    CXTPDockingPane* pane = createPalette();
    m_window->addDockWidget(Qt::BottomDockWidgetArea, pane);
    m_manager->ShowPane(pane);
    resizeDock(pane, 990, Qt::Vertical);
    QCOMPARE(pane->height(), 700);
    QCOMPARE(pane->width(), m_window->width());
}

void TestDockingPanes::keepBothLimitsWhileFloating()
{
    showWindow(QSize(2000, 1000));
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    pane->setFloating(true);
    QCOMPARE(pane->GetPaneState(), xtpPaneFloating);
    QVERIFY(pane->height() <= 700);
    pane->resize(3000, 3000);
    QCOMPARE(pane->size(), QSize(1280, 700));
    pane->resize(1, 1);
    QCOMPARE(pane->size(), QSize(355, 200));
}

void TestDockingPanes::fillTheirSideAgainAfterFloating()
{
    showWindow(QSize(1400, 900));
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    pane->setFloating(true);
    pane->setFloating(false);
    QCOMPARE(pane->GetPaneState(), xtpPaneDocked);
    QTRY_COMPARE(pane->height(), m_canvas->height());
    QVERIFY(pane->height() > 700);
}

void TestDockingPanes::ownTheirViewWhileAttached()
{
    CXTPDockingPane* pane = createPalette();
    const QPointer<QWidget> view = pane->GetView();
    QVERIFY(view);
    QVERIFY(pane->isAncestorOf(view));
    m_manager.reset();
    QVERIFY(!view);
}

void TestDockingPanes::giveTheirViewBackOnDetach()
{
    showWindow();
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    const std::unique_ptr<QWidget> view(pane->Detach());
    QVERIFY(view);
    QCOMPARE(view->parentWidget(), nullptr);
    QVERIFY(!view->isVisible());
    QCOMPARE(pane->GetView(), nullptr);
    QCOMPARE(pane->Detach(), nullptr);
    const QPointer<QWidget> watched = view.get();
    m_manager.reset();
    QVERIFY(watched);
}

void TestDockingPanes::endAViewThatAnotherReplaces()
{
    CXTPDockingPane* pane = createPalette();
    const QPointer<QWidget> first = pane->GetView();
    pane->AttachView(first);
    pane->AttachView(nullptr);
    QCOMPARE(pane->GetView(), first.data());
    auto* second = new QTextEdit;
    pane->AttachView(second);
    QCOMPARE(pane->GetView(), second);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
}

void TestDockingPanes::standTheLossOfTheirView()
{
    showWindow();
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    delete pane->GetView();
    QCOMPARE(pane->GetView(), nullptr);
    m_manager->ClosePane(pane);
    m_manager->ShowPane(pane);
    QVERIFY(!pane->IsClosed());
}

void TestDockingPanes::surviveTheirWindow()
{
    showWindow();
    m_manager->ShowPane(createPalette());
    m_manager->ToggleAutoHide(m_manager->FindPane(kPaletteId));
    m_window.reset();
    QCOMPARE(m_manager->FindPane(kPaletteId), nullptr);
}

void TestDockingPanes::haveTitleBarsThatKeysReach()
{
    showWindow();
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    for (const char* name : {"autoHideButton", "floatButton", "closeButton"}) {
        QVERIFY(button(pane, name)->focusPolicy() & Qt::TabFocus);
        QVERIFY(!button(pane, name)->accessibleName().isEmpty());
        QCOMPARE(button(pane, name)->toolTip(), button(pane, name)->accessibleName());
    }
    button(pane, "closeButton")->setFocus();
    QTest::keyClick(button(pane, "closeButton"), Qt::Key_Space);
    QVERIFY(pane->IsClosed());
}

void TestDockingPanes::floatAndDockByTheTitleBar()
{
    showWindow();
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    QSignalSpy changes(m_manager.get(), &CXTPDockingPaneManager::paneStateChanged);
    QTest::mouseClick(button(pane, "floatButton"), Qt::LeftButton);
    QCOMPARE(pane->GetPaneState(), xtpPaneFloating);
    QVERIFY(changes.count() > 0);
    QVERIFY(button(pane, "autoHideButton")->isHidden());
    QTest::mouseClick(button(pane, "floatButton"), Qt::LeftButton);
    QCOMPARE(pane->GetPaneState(), xtpPaneDocked);
    QVERIFY(button(pane, "autoHideButton")->isVisible());
}

void TestDockingPanes::comeBackToASavedPlace()
{
    showWindow();
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    resizeDock(pane, 480);
    const QByteArray state = m_window->saveState();
    m_window->addDockWidget(Qt::RightDockWidgetArea, pane);
    m_manager->ClosePane(pane);
    QVERIFY(m_window->restoreState(state));
    QVERIFY(!pane->IsClosed());
    QCOMPARE(m_window->dockWidgetArea(pane), Qt::LeftDockWidgetArea);
    QCOMPARE(pane->width(), 480);
}

void TestDockingPanes::comeBackToASavedPlaceWhenTheyAreCreatedLater()
{
    showWindow();
    CXTPDockingPane* pane = createPalette();
    m_window->addDockWidget(Qt::RightDockWidgetArea, pane);
    m_manager->ShowPane(pane);
    resizeDock(pane, 480);
    const QByteArray state = m_window->saveState();

    replaceWindow();
    showWindow();
    QVERIFY(m_window->restoreState(state));
    pane = createPalette();
    QVERIFY(pane->IsClosed());
    m_manager->ShowPane(pane);
    QCOMPARE(m_window->dockWidgetArea(pane), Qt::RightDockWidgetArea);
    QCOMPARE(pane->width(), 480);
}

void TestDockingPanes::lookLikeTheirGoldenImages_data()
{
    QTest::addColumn<GoldenLook::Theme>("theme");
    QTest::newRow("light") << GoldenLook::Theme::Light;
    QTest::newRow("dark") << GoldenLook::Theme::Dark;
}

void TestDockingPanes::lookLikeTheirGoldenImages()
{
    QFETCH(const GoldenLook::Theme, theme);
    const GoldenLook look(theme);
    replaceWindow();
    showWindow(QSize(760, 420));
    m_manager->ShowPane(createPalette());
    m_manager->ShowPane(createPane(7, xtpPaneDockBottom));
    m_canvas->setPlainText(QStringLiteral("Drawing"));
    QVERIFY(
        goldenImage(m_window.get(), QStringLiteral("panes_docked_") + GoldenLook::suffix(theme)));
}

QTEST_MAIN(TestDockingPanes)
#include "test_docking_panes.moc"
