#include "toolkit/CXTPDockingPaneManager.h"

#include "toolkit/docking/AutoHideSides.h"
#include "toolkit/docking/PaneCycle.h"
#include "toolkit/docking/SideOrientation.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScopedValueRollback>
#include <QScreen>
#include <QVariant>

#include <algorithm>

namespace {

constexpr char kWindowProperty[] = "DockingPane";

Qt::DockWidgetArea areaOf(XTPDockingPaneDirection direction)
{
    switch (direction) {
    case xtpPaneDockRight:
        return Qt::RightDockWidgetArea;
    case xtpPaneDockTop:
        return Qt::TopDockWidgetArea;
    case xtpPaneDockBottom:
        return Qt::BottomDockWidgetArea;
    case xtpPaneDockLeft:
        break;
    }
    return Qt::LeftDockWidgetArea;
}

/// Whether some screen shows a piece of the title that a mouse can take hold of.
bool isReachable(const QRect& window)
{
    constexpr QSize kHandle(80, 24);
    const QRect title(window.topLeft(), QSize(window.width(), kHandle.height()));
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect seen = screen->availableGeometry().intersected(title);
        if (seen.width() >= std::min(kHandle.width(), window.width())
            && seen.height() >= kHandle.height() / 2)
            return true;
    }
    return false;
}

int extentOf(const CXTPDockingPane& pane, Qt::DockWidgetArea side)
{
    return isUpright(side) ? pane.width() : pane.height();
}

} // namespace

CXTPDockingPaneManager::CXTPDockingPaneManager(QMainWindow& window)
    : m_window(&window)
    , m_sides(std::make_unique<AutoHideSides>(window))
{
    window.setProperty(kWindowProperty, QVariant::fromValue<QObject*>(this));
    connect(m_sides.get(), &AutoHideSides::closeRequested, this,
            &CXTPDockingPaneManager::ClosePane);
    connect(m_sides.get(), &AutoHideSides::pinRequested, this,
            &CXTPDockingPaneManager::ToggleAutoHide);
    m_cycle = new PaneCycle(*this);
    // The windows of a screen that goes are moved about first.
    connect(qApp, &QGuiApplication::screenRemoved, this, &CXTPDockingPaneManager::keepOnScreens,
            Qt::QueuedConnection);
}

CXTPDockingPaneManager::~CXTPDockingPaneManager()
{
    m_switching = true;
    delete m_cycle.data();
    m_sides.reset();
    for (const QPointer<CXTPDockingPane>& pane : std::as_const(m_panes))
        delete pane.data();
    if (m_window)
        m_window->setProperty(kWindowProperty, QVariant());
}

CXTPDockingPaneManager* CXTPDockingPaneManager::of(const QWidget* mainWindow)
{
    if (!mainWindow)
        return nullptr;
    return qobject_cast<CXTPDockingPaneManager*>(
        mainWindow->property(kWindowProperty).value<QObject*>());
}

CXTPDockingPane* CXTPDockingPaneManager::CreatePane(int id, QRect rect,
                                                    XTPDockingPaneDirection direction)
{
    if (CXTPDockingPane* existing = FindPane(id))
        return existing;
    const QScopedValueRollback switching(m_switching, true);
    auto* pane = new CXTPDockingPane(*this, id, rect);
    m_panes.insert(id, pane);
    pane->m_hasSize = m_window->restoreDockWidget(pane);
    if (!pane->m_hasSize)
        m_window->addDockWidget(areaOf(direction), pane);
    keepOnScreens();
    pane->hide();
    connect(pane, &QObject::destroyed, this, [this, id] {
        m_panes.remove(id);
        if (m_sides)
            m_sides->forget(id);
    });
    connect(pane, &QDockWidget::windowTitleChanged, m_sides.get(),
            [this, pane] { m_sides->titleChanged(*pane); });
    if (const auto pending = m_sides->takePending(id))
        hideToSide(*pane, pending->side, pending->extent, true);
    return pane;
}

CXTPDockingPane* CXTPDockingPaneManager::FindPane(int id) const
{
    return m_panes.value(id);
}

QMainWindow& CXTPDockingPaneManager::window() const
{
    return *m_window;
}

QList<CXTPDockingPane*> CXTPDockingPaneManager::openPanes() const
{
    QList<CXTPDockingPane*> open;
    for (const QPointer<CXTPDockingPane>& pane : m_panes) {
        if (pane && !isClosed(*pane))
            open.append(pane);
    }
    std::sort(open.begin(), open.end(),
              [](const auto* a, const auto* b) { return a->GetID() < b->GetID(); });
    return open;
}

void CXTPDockingPaneManager::keepOnScreens()
{
    const QScreen* fallback = QGuiApplication::primaryScreen();
    for (const QPointer<CXTPDockingPane>& pane : std::as_const(m_panes)) {
        if (!pane || !pane->isFloating() || !fallback || isReachable(pane->geometry()))
            continue;
        const QRect room = fallback->availableGeometry();
        pane->resize(pane->size().boundedTo(room.size()).expandedTo(pane->minimumSize()));
        pane->move(room.center() - QPoint(pane->width() / 2, pane->height() / 2));
    }
}

void CXTPDockingPaneManager::ShowPane(CXTPDockingPane* pane)
{
    if (!pane)
        return;
    if (m_sides->contains(pane->GetID())) {
        const bool wasClosed = isClosed(*pane);
        m_sides->setClosed(*pane, false);
        m_sides->slideOut(*pane);
        if (wasClosed)
            emit paneStateChanged(pane->GetID());
        return;
    }
    pane->show();
    pane->takeInitialSize();
    pane->raise();
}

void CXTPDockingPaneManager::ClosePane(CXTPDockingPane* pane)
{
    if (!pane || isClosed(*pane))
        return;
    if (!m_sides->contains(pane->GetID())) {
        pane->hide();
        return;
    }
    m_sides->setClosed(*pane, true);
    emit paneStateChanged(pane->GetID());
}

bool CXTPDockingPaneManager::IsPaneClosed(int id) const
{
    const CXTPDockingPane* pane = FindPane(id);
    return !pane || isClosed(*pane);
}

bool CXTPDockingPaneManager::isClosed(const CXTPDockingPane& pane) const
{
    const auto entry = m_sides->entry(pane.GetID());
    return pane.isHidden() && (!entry || entry->closed);
}

XTPDockingPaneState CXTPDockingPaneManager::paneState(const CXTPDockingPane& pane) const
{
    if (m_sides->contains(pane.GetID()) && pane.isHidden())
        return xtpPaneHidden;
    return pane.isFloating() ? xtpPaneFloating : xtpPaneDocked;
}

void CXTPDockingPaneManager::ToggleAutoHide(CXTPDockingPane* pane)
{
    if (!pane)
        return;
    if (m_sides->contains(pane->GetID())) {
        pin(*pane, true);
        emit paneStateChanged(pane->GetID());
    } else if (!pane->isFloating() && !pane->isHidden()) {
        const Qt::DockWidgetArea side = m_window->dockWidgetArea(pane);
        hideToSide(*pane, side, extentOf(*pane, side), false);
        emit paneStateChanged(pane->GetID());
    }
}

void CXTPDockingPaneManager::hideToSide(CXTPDockingPane& pane, Qt::DockWidgetArea side, int extent,
                                        bool closed)
{
    // A hidden dock keeps its place among the others in the window's layout, which is where pinning
    // brings it back.
    const QScopedValueRollback switching(m_switching, true);
    pane.hide();
    m_sides->add(pane, {side, extent, closed});
}

void CXTPDockingPaneManager::pin(CXTPDockingPane& pane, bool show)
{
    const QScopedValueRollback switching(m_switching, true);
    const AutoHideEntry entry = m_sides->take(pane);
    if (!show)
        return;
    pane.show();
    pane.raise();
    const Qt::Orientation along = isUpright(entry.side) ? Qt::Horizontal : Qt::Vertical;
    m_window->resizeDocks({&pane}, {entry.extent}, along);
    pane.m_hasSize = true;
}

void CXTPDockingPaneManager::visibilityChanged(CXTPDockingPane& pane)
{
    if (m_switching)
        return;
    // The window's own menu, or a state that it restores, may show the dock of a pane that is
    // hidden to the side. The window's layout is at work then, so the tab goes a little later.
    if (!pane.isHidden() && m_sides->contains(pane.GetID())) {
        const auto drop = [this, id = pane.GetID()] { dropShownTab(id); };
        QMetaObject::invokeMethod(this, drop, Qt::QueuedConnection);
    }
    emit paneStateChanged(pane.GetID());
}

void CXTPDockingPaneManager::dropShownTab(int id)
{
    CXTPDockingPane* pane = FindPane(id);
    if (pane && !pane->isHidden() && m_sides->contains(id))
        m_sides->take(*pane);
}

void CXTPDockingPaneManager::releaseView(CXTPDockingPane& pane)
{
    if (m_sides)
        m_sides->slideInAtOnce(pane);
}

QByteArray CXTPDockingPaneManager::saveState() const
{
    return autoHideStateToBytes(m_sides->state());
}

bool CXTPDockingPaneManager::restoreState(const QByteArray& state)
{
    const auto wanted = autoHideStateFromBytes(state);
    if (!wanted)
        return false;
    keepOnScreens();
    QList<int> handled;
    for (const auto& [id, entry] : *wanted) {
        handled.append(id);
        CXTPDockingPane* pane = FindPane(id);
        if (!pane) {
            m_sides->setPending(id, entry);
            continue;
        }
        if (m_sides->contains(id))
            m_sides->take(*pane);
        hideToSide(*pane, entry.side, entry.extent, entry.closed);
        emit paneStateChanged(id);
    }
    for (const QPointer<CXTPDockingPane>& pane : std::as_const(m_panes)) {
        if (handled.contains(pane->GetID()) || !m_sides->contains(pane->GetID()))
            continue;
        pin(*pane, !isClosed(*pane));
        emit paneStateChanged(pane->GetID());
    }
    return true;
}
