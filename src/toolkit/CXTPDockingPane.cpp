#include "toolkit/CXTPDockingPane.h"

#include "toolkit/CXTPDockingPaneManager.h"
#include "toolkit/docking/CPaneTitleBar.h"
#include "toolkit/docking/SideOrientation.h"

#include <QEvent>
#include <QLayout>
#include <QMainWindow>

#include <utility>

namespace {

constexpr int kFloatingStep = 24;

} // namespace

CXTPDockingPane::CXTPDockingPane(CXTPDockingPaneManager& manager, int id, QRect initial)
    : QDockWidget(&manager.window())
    , m_manager(manager)
    , m_id(id)
    , m_initial(initial)
    , m_minTrack(0, 0)
    , m_maxTrack(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX)
    , m_titleBar(new CPaneTitleBar(this))
{
    setObjectName(QStringLiteral("pane_%1").arg(id));
    setTitleBarWidget(m_titleBar);
    connectTitleBar();
}

CXTPDockingPane::~CXTPDockingPane()
{
    // A view that has slid out with the flyout comes back first, to end with its pane.
    m_manager.releaseView(*this);
}

void CXTPDockingPane::connectTitleBar()
{
    connect(this, &QDockWidget::windowTitleChanged, m_titleBar, &CPaneTitleBar::setTitle);
    connect(this, &QDockWidget::dockLocationChanged, this, &CXTPDockingPane::applyTrackSizes);
    connect(this, &QDockWidget::topLevelChanged, this, [this](bool floating) {
        m_titleBar->setMode(floating ? CPaneTitleBar::Mode::Floating : CPaneTitleBar::Mode::Docked);
        applyTrackSizes();
        emit m_manager.paneStateChanged(m_id);
    });
    connect(m_titleBar, &CPaneTitleBar::closeRequested, this,
            [this] { m_manager.ClosePane(this); });
    connect(m_titleBar, &CPaneTitleBar::autoHideRequested, this, &CXTPDockingPane::ToggleAutoHide);
    connect(m_titleBar, &CPaneTitleBar::floatRequested, this, &CXTPDockingPane::toggleFloating);
}

void CXTPDockingPane::toggleFloating()
{
    if (isFloating()) {
        m_floating = geometry();
        return setFloating(false);
    }
    const QPoint docked = mapToGlobal(QPoint(0, 0));
    setFloating(true);
    // One that floats where it was docked looks as if nothing had happened.
    if (m_floating.isValid())
        setGeometry(m_floating);
    else if ((pos() - docked).manhattanLength() < kFloatingStep)
        move(pos() + QPoint(kFloatingStep, kFloatingStep));
    m_manager.keepOnScreens();
}

void CXTPDockingPane::SetTitle(const QString& title)
{
    setWindowTitle(title);
    setAccessibleName(title);
}

void CXTPDockingPane::SetMinTrackSize(QSize size)
{
    m_minTrack = size;
    applyTrackSizes();
}

void CXTPDockingPane::SetMaxTrackSize(QSize size)
{
    m_maxTrack = size;
    applyTrackSizes();
}

void CXTPDockingPane::applyTrackSizes()
{
    QSize maximum = m_maxTrack;
    if (!isFloating()) {
        // A limit along the side would leave a hole in the window beneath or beside the pane.
        if (isUpright(m_manager.window().dockWidgetArea(this)))
            maximum.setHeight(QWIDGETSIZE_MAX);
        else
            maximum.setWidth(QWIDGETSIZE_MAX);
    }
    setMinimumSize(m_minTrack);
    setMaximumSize(maximum.expandedTo(m_minTrack));
}

void CXTPDockingPane::takeInitialSize()
{
    if (std::exchange(m_hasSize, true))
        return;
    QMainWindow& window = m_manager.window();
    const Qt::DockWidgetArea area = window.dockWidgetArea(this);
    // A side where another pane is open already has its size.
    for (QDockWidget* other : window.findChildren<QDockWidget*>()) {
        if (other != this && !other->isHidden() && !other->isFloating()
            && window.dockWidgetArea(other) == area)
            return;
    }
    if (isUpright(area))
        window.resizeDocks({this}, {m_initial.width()}, Qt::Horizontal);
    else
        window.resizeDocks({this}, {m_initial.height()}, Qt::Vertical);
    window.layout()->activate();
}

void CXTPDockingPane::AttachView(QWidget* view)
{
    if (!view || view == m_view)
        return;
    if (QWidget* before = Detach())
        before->deleteLater();
    m_view = view;
    setWidget(view);
}

QWidget* CXTPDockingPane::Detach()
{
    m_manager.releaseView(*this);
    QWidget* view = m_view;
    m_view.clear();
    if (view) {
        setWidget(nullptr);
        view->setParent(nullptr);
    }
    return view;
}

QWidget* CXTPDockingPane::lendView()
{
    if (m_view)
        setWidget(nullptr);
    return m_view;
}

void CXTPDockingPane::returnView()
{
    if (m_view)
        setWidget(m_view);
}

bool CXTPDockingPane::IsClosed() const
{
    return m_manager.isClosed(*this);
}

XTPDockingPaneState CXTPDockingPane::GetPaneState() const
{
    return m_manager.paneState(*this);
}

void CXTPDockingPane::ToggleAutoHide()
{
    m_manager.ToggleAutoHide(this);
}

bool CXTPDockingPane::event(QEvent* event)
{
    const bool handled = QDockWidget::event(event);
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
        m_manager.visibilityChanged(*this);
    return handled;
}
