#include "DockingFixture.h"

#include "support/pictures/StillStyle.h"
#include "toolkit/docking/CPaneFlyout.h"
#include "toolkit/docking/CSideTabButton.h"

#include <QApplication>
#include <QLayout>
#include <QTest>

void DockingFixture::prepare()
{
    QApplication::setStyle(new StillStyle);
    replaceWindow();
}

void DockingFixture::finish()
{
    m_manager.reset();
    m_window.reset();
}

void DockingFixture::replaceWindow()
{
    finish();
    m_window = std::make_unique<QMainWindow>();
    m_canvas = new QTextEdit(m_window.get());
    m_window->setCentralWidget(m_canvas);
    m_manager = std::make_unique<CXTPDockingPaneManager>(*m_window);
}

CXTPDockingPane* DockingFixture::createPalette()
{
    CXTPDockingPane* pane =
        m_manager->CreatePane(kPaletteId, QRect(0, 0, 550, 200), xtpPaneDockLeft);
    pane->SetMinTrackSize(QSize(355, 200));
    pane->SetMaxTrackSize(QSize(1280, 700));
    pane->SetTitle(QStringLiteral("Layer Properties Manager"));
    pane->AttachView(new QTextEdit);
    return pane;
}

CXTPDockingPane* DockingFixture::createPane(int id, XTPDockingPaneDirection direction)
{
    CXTPDockingPane* pane = m_manager->CreatePane(id, QRect(0, 0, 300, 150), direction);
    pane->SetTitle(QStringLiteral("Pane %1").arg(id));
    pane->AttachView(new QTextEdit);
    return pane;
}

void DockingFixture::resizeDock(CXTPDockingPane* pane, int extent, Qt::Orientation along)
{
    m_window->resizeDocks({pane}, {extent}, along);
    m_window->layout()->activate();
}

void DockingFixture::showWindow(QSize size)
{
    m_window->resize(size);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_canvas->setFocus();
}

CXTPDockingPane* DockingFixture::hiddenPalette()
{
    CXTPDockingPane* pane = createPalette();
    m_manager->ShowPane(pane);
    m_manager->ToggleAutoHide(pane);
    return pane;
}

CXTPDockingPane* DockingFixture::outPalette()
{
    CXTPDockingPane* pane = hiddenPalette();
    QTest::mouseClick(tab(kPaletteId), Qt::LeftButton);
    return pane;
}

CPaneFlyout* DockingFixture::flyout() const
{
    return m_window->findChild<CPaneFlyout*>();
}

QAbstractButton* DockingFixture::flyoutButton(const char* name) const
{
    return flyout()->findChild<QAbstractButton*>(QLatin1String(name));
}

CSideTabButton* DockingFixture::tab(int id) const
{
    return m_window->findChild<CSideTabButton*>(QStringLiteral("side_tab_%1").arg(id));
}

QWidget* DockingFixture::bar(const char* side) const
{
    return m_window->findChild<QWidget*>(QLatin1String("side_bar_") + QLatin1String(side));
}

bool DockingFixture::isOut(const CXTPDockingPane* pane) const
{
    return flyout()->isVisible() && flyout()->isAncestorOf(pane->GetView());
}
