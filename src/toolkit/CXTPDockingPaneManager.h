#pragma once

#include "toolkit/CXTPDockingPane.h"

#include <QHash>
#include <QObject>
#include <QPointer>

#include <memory>

class AutoHideSides;
class PaneCycle;
class QMainWindow;

/// Where a pane is created.
enum XTPDockingPaneDirection : int {
    xtpPaneDockLeft = 0,
    xtpPaneDockRight = 1,
    xtpPaneDockTop = 2,
    xtpPaneDockBottom = 3,
};

/// Docking panes of a main window by identifier. The window holds its manager in the dynamic
/// property "DockingPane" (a QObject*). Whoever makes the manager owns it; it should end before the
/// window.
class CXTPDockingPaneManager : public QObject
{
    Q_OBJECT
public:
    /// Installs the manager on the window.
    explicit CXTPDockingPaneManager(QMainWindow& window);
    /// Takes the panes with it, and the views that are attached to them.
    ~CXTPDockingPaneManager() override;

    /// The manager of a main window, or null.
    static CXTPDockingPaneManager* of(const QWidget* mainWindow);

    /// A new, hidden pane of that initial rectangle (its size counts); the existing one if the id
    /// is taken. It comes to the place that a restored window state keeps for it.
    CXTPDockingPane* CreatePane(int id, QRect rect, XTPDockingPaneDirection direction);
    CXTPDockingPane* FindPane(int id) const;
    /// Opens the pane in the state it was closed in; one that is hidden to the side slides out.
    void ShowPane(CXTPDockingPane* pane);
    void ClosePane(CXTPDockingPane* pane);
    /// True also when there is no such pane.
    bool IsPaneClosed(int id) const;
    /// Pins a pane that is hidden to the side where it was docked, opening it where it was closed;
    /// hides a docked one to the side it is docked at. A floating pane stays as it is.
    void ToggleAutoHide(CXTPDockingPane* pane);
    XTPDockingPaneState paneState(const CXTPDockingPane& pane) const;
    QMainWindow& window() const;
    /// The panes that are not closed, by their ids.
    QList<CXTPDockingPane*> openPanes() const;
    /// Moves floating panes that no screen shows any more to one that is there.
    void keepOnScreens();

    /// Which panes are hidden to the side, and how far they slide out; the rest is in
    /// QMainWindow::saveState(). Restore this after the window's state; floating panes come
    /// to a screen that is there. Panes that are created later come up in the state that was
    /// restored for them. False when the bytes are not such a state.
    QByteArray saveState() const;
    bool restoreState(const QByteArray& state);

signals:
    /// A pane was shown, closed, hidden to the side, pinned, floated or docked.
    void paneStateChanged(int id);

private:
    friend class CXTPDockingPane;
    bool isClosed(const CXTPDockingPane& pane) const;
    void visibilityChanged(CXTPDockingPane& pane);
    void dropShownTab(int id);
    void releaseView(CXTPDockingPane& pane);
    void hideToSide(CXTPDockingPane& pane, Qt::DockWidgetArea side, int extent, bool closed);
    void pin(CXTPDockingPane& pane, bool show);

    QPointer<QMainWindow> m_window;
    QHash<int, QPointer<CXTPDockingPane>> m_panes;
    std::unique_ptr<AutoHideSides> m_sides;
    QPointer<PaneCycle> m_cycle;
    /// While the manager itself shows or hides a pane's dock, that is no closing or opening.
    bool m_switching = false;
};
