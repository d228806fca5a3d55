#pragma once

#include "toolkit/CXTPDockingPane.h"

#include <QHash>
#include <QObject>

class QMainWindow;
class QToolBar;

/// Where a pane is created.
enum XTPDockingPaneDirection : int {
    xtpPaneDockLeft = 0,
    xtpPaneDockRight = 1,
    xtpPaneDockTop = 2,
    xtpPaneDockBottom = 3,
};

/// Docking panes of a main window by identifier. The window holds its manager in the dynamic
/// property "DockingPane" (a QObject*).
class CXTPDockingPaneManager : public QObject
{
    Q_OBJECT
public:
    /// Installs the manager on the window.
    explicit CXTPDockingPaneManager(QMainWindow& window);
    ~CXTPDockingPaneManager() override;

    /// The manager of a main window, or null.
    static CXTPDockingPaneManager* of(const QWidget* mainWindow);

    /// A new, hidden pane of that initial rectangle (its size counts); the existing one if the id is taken.
    CXTPDockingPane* CreatePane(int id, QRect rect, XTPDockingPaneDirection direction);
    CXTPDockingPane* FindPane(int id) const;
    void ShowPane(CXTPDockingPane* pane);
    void ClosePane(CXTPDockingPane* pane);
    bool IsPaneClosed(int id) const;
    void ToggleAutoHide(CXTPDockingPane* pane);
    XTPDockingPaneState paneState(const CXTPDockingPane& pane) const;
    QMainWindow& window() const { return m_window; }

signals:
    /// A pane was shown, closed, hidden to the side or pinned.
    void paneStateChanged(int id);

private:
    struct Hidden;

    QMainWindow& m_window;
    QHash<int, CXTPDockingPane*> m_panes;
    QHash<int, Hidden> m_hidden;
    QHash<int, QToolBar*> m_sideBars;
};
