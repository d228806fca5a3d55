#include "toolkit/docking/AutoHideSides.h"

#include "toolkit/CXTPDockingPane.h"
#include "toolkit/docking/CPaneFlyout.h"
#include "toolkit/docking/CSideBar.h"

#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QMainWindow>

namespace {

struct Side
{
    Qt::DockWidgetArea area;
    Qt::ToolBarArea bar;
    const char* name;
};

constexpr Side kSides[] = {
    {Qt::LeftDockWidgetArea, Qt::LeftToolBarArea, "left"},
    {Qt::RightDockWidgetArea, Qt::RightToolBarArea, "right"},
    {Qt::TopDockWidgetArea, Qt::TopToolBarArea, "top"},
    {Qt::BottomDockWidgetArea, Qt::BottomToolBarArea, "bottom"},
};

Qt::ToolBarArea barArea(Qt::DockWidgetArea area)
{
    for (const Side& side : kSides) {
        if (side.area == area)
            return side.bar;
    }
    return Qt::LeftToolBarArea;
}

} // namespace

AutoHideSides::AutoHideSides(QMainWindow& window)
    : m_window(&window)
    , m_flyout(new CPaneFlyout(&window))
{
    makeBars();
    connectFlyout();
    window.installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget*, const QWidget* now) { focusMoved(now); });
}

AutoHideSides::~AutoHideSides()
{
    giveViewBack();
    delete m_flyout.data();
    for (const QPointer<CSideBar>& bar : std::as_const(m_bars))
        delete bar.data();
}

void AutoHideSides::makeBars()
{
    // All four exist from the start, so that every saved window state knows them.
    for (const Side& side : kSides) {
        auto* bar = new CSideBar(side.area, m_window);
        bar->setObjectName(QStringLiteral("side_bar_") + QLatin1String(side.name));
        m_window->addToolBar(side.bar, bar);
        bar->hide();
        bar->installEventFilter(this);
        m_bars.insert(side.area, bar);
        connect(bar, &CSideBar::tabClicked, this,
                [this](int id) { tabClicked(m_panes.value(id)); });
    }
}

CSideBar* AutoHideSides::barOf(Qt::DockWidgetArea side) const
{
    return m_bars.value(side);
}

void AutoHideSides::connectFlyout()
{
    connect(m_flyout, &CPaneFlyout::slidIn, this, &AutoHideSides::giveViewBack);
    connect(m_flyout, &CPaneFlyout::leaveRequested, this, [this] {
        if (m_window && m_window->centralWidget())
            m_window->centralWidget()->setFocus();
        slideIn();
    });
    connect(m_flyout, &CPaneFlyout::closeRequested, this, [this] { emit closeRequested(m_open); });
    connect(m_flyout, &CPaneFlyout::pinRequested, this, [this] { emit pinRequested(m_open); });
    connect(m_flyout, &CPaneFlyout::extentDragged, this, [this](int extent) {
        if (!m_open)
            return;
        m_entries[m_open->GetID()].extent = extent;
        placeFlyout();
    });
}

std::optional<AutoHideEntry> AutoHideSides::entry(int id) const
{
    const auto found = m_entries.constFind(id);
    return found == m_entries.cend() ? std::nullopt : std::optional<AutoHideEntry>(*found);
}

void AutoHideSides::add(CXTPDockingPane& pane, const AutoHideEntry& entry)
{
    const int id = pane.GetID();
    m_entries.insert(id, entry);
    m_panes.insert(id, &pane);
    if (!entry.closed)
        barOf(entry.side)->setTab(id, pane.GetTitle());
    keepBarAtSide(entry.side);
}

AutoHideEntry AutoHideSides::take(CXTPDockingPane& pane)
{
    slideInAtOnce(pane);
    const AutoHideEntry entry = m_entries.value(pane.GetID());
    forget(pane.GetID());
    return entry;
}

void AutoHideSides::forget(int id)
{
    const auto found = m_entries.constFind(id);
    if (found == m_entries.cend())
        return;
    const Qt::DockWidgetArea side = found->side;
    m_entries.erase(found);
    m_panes.remove(id);
    if (CSideBar* bar = barOf(side)) {
        bar->removeTab(id);
        keepBarAtSide(side);
    }
}

void AutoHideSides::setClosed(CXTPDockingPane& pane, bool closed)
{
    if (closed)
        slideInAtOnce(pane);
    AutoHideEntry& entry = m_entries[pane.GetID()];
    entry.closed = closed;
    if (closed)
        barOf(entry.side)->removeTab(pane.GetID());
    else
        barOf(entry.side)->setTab(pane.GetID(), pane.GetTitle());
    keepBarAtSide(entry.side);
}

void AutoHideSides::titleChanged(const CXTPDockingPane& pane)
{
    const auto known = entry(pane.GetID());
    if (!known || known->closed)
        return;
    barOf(known->side)->setTab(pane.GetID(), pane.GetTitle());
    if (m_open == &pane)
        m_flyout->setTitle(pane.GetTitle());
}

void AutoHideSides::keepBarAtSide(Qt::DockWidgetArea side)
{
    CSideBar* bar = barOf(side);
    // A restored window state that is older than the bars moves them to the top.
    if (m_window->toolBarArea(bar) != barArea(side))
        m_window->addToolBar(barArea(side), bar);
}

void AutoHideSides::tabClicked(CXTPDockingPane* pane)
{
    if (!pane)
        return;
    if (m_open == pane && !m_flyout->isSlidingIn())
        slideIn();
    else
        slideOut(*pane);
}

void AutoHideSides::slideOut(CXTPDockingPane& pane)
{
    if (m_open == &pane && !m_flyout->isSlidingIn())
        return;
    const AutoHideEntry known = m_entries.value(pane.GetID());
    // One that is on its way in turns round.
    if (m_open != &pane) {
        giveViewBack();
        m_open = &pane;
        m_flyout->setTitle(pane.GetTitle());
        m_flyout->setView(pane.lendView());
    }
    barOf(known.side)->setOpen(pane.GetID());
    // A bar that has just come up has no place in the window before its layout ran.
    m_window->layout()->activate();
    placeFlyout();
    m_flyout->slideOut();
}

void AutoHideSides::slideIn()
{
    if (!m_open)
        return;
    if (const auto known = entry(m_open->GetID()))
        barOf(known->side)->setOpen(-1);
    m_flyout->slideIn();
}

void AutoHideSides::slideInAtOnce(const CXTPDockingPane& pane)
{
    if (m_open == &pane)
        giveViewBack();
}

void AutoHideSides::giveViewBack()
{
    if (!m_open || !m_flyout)
        return;
    CXTPDockingPane& pane = *m_open;
    // Cleared first: hiding the flyout moves the focus, which asks to slide in again.
    m_open.clear();
    if (const auto known = entry(pane.GetID()))
        barOf(known->side)->setOpen(-1);
    m_flyout->stop();
    m_flyout->setView(nullptr);
    pane.returnView();
}

void AutoHideSides::placeFlyout()
{
    if (!m_open)
        return;
    const AutoHideEntry known = m_entries.value(m_open->GetID());
    const QRect bar = barOf(known.side)->geometry();
    m_flyout->place(known.side, bar, known.extent, m_open->GetMinTrackSize(),
                    m_open->GetMaxTrackSize());
}

void AutoHideSides::focusMoved(const QWidget* now)
{
    // No focus at all means that another program is in front, a modal dialog that the pane may have
    // asked for it: both leave the pane out.
    if (!m_open || !now || QApplication::activeModalWidget() || QApplication::activePopupWidget())
        return;
    for (const QWidget* widget = now; widget; widget = widget->parentWidget()) {
        if (widget == m_flyout)
            return;
    }
    slideIn();
}

bool AutoHideSides::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        placeFlyout();
    return QObject::eventFilter(watched, event);
}

void AutoHideSides::setPending(int id, const AutoHideEntry& entry)
{
    m_pending.insert(id, entry);
}

std::optional<AutoHideEntry> AutoHideSides::takePending(int id)
{
    const auto found = m_pending.constFind(id);
    if (found == m_pending.cend())
        return std::nullopt;
    const AutoHideEntry entry = *found;
    m_pending.erase(found);
    return entry;
}

AutoHideState AutoHideSides::state() const
{
    AutoHideState result;
    for (const QPointer<CSideBar>& bar : m_bars) {
        for (const int id : bar->ids())
            result.push_back({id, m_entries.value(id)});
    }
    for (auto it = m_entries.cbegin(); it != m_entries.cend(); ++it) {
        if (it->closed)
            result.push_back({it.key(), *it});
    }
    for (auto it = m_pending.cbegin(); it != m_pending.cend(); ++it)
        result.push_back({it.key(), *it});
    return result;
}
