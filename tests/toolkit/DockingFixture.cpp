#include "DockingFixture.h"

#include "support/StillStyle.h"

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
