#pragma once

#include "toolkit/CXTPDockingPane.h"
#include "toolkit/docking/AutoHideState.h"

#include <QHash>
#include <QObject>
#include <QPointer>

class CPaneFlyout;
class QMainWindow;
class CSideBar;

/// The panes of a window that are hidden to its sides: a bar of tabs per side, and the flyout in
/// which one of them at a time slides out over the window's contents.
class AutoHideSides : public QObject
{
    Q_OBJECT
public:
    explicit AutoHideSides(QMainWindow& window);
    ~AutoHideSides() override;

    bool contains(int id) const { return m_entries.contains(id); }
    std::optional<AutoHideEntry> entry(int id) const;
    void add(CXTPDockingPane& pane, const AutoHideEntry& entry);
    /// Ends the pane's stay at the side; its view is in the pane again.
    AutoHideEntry take(CXTPDockingPane& pane);
    /// The pane was deleted.
    void forget(int id);
    void setClosed(CXTPDockingPane& pane, bool closed);
    void titleChanged(const CXTPDockingPane& pane);

    /// Slides the pane out and gives it the keyboard focus.
    void slideOut(CXTPDockingPane& pane);
    void slideIn();
    /// Without animation, if it is this pane that is out: its view is in the pane afterwards.
    void slideInAtOnce(const CXTPDockingPane& pane);

    /// Entries restored for panes that do not exist yet.
    void setPending(int id, const AutoHideEntry& entry);
    std::optional<AutoHideEntry> takePending(int id);

    AutoHideState state() const;

signals:
    void closeRequested(CXTPDockingPane* pane);
    void pinRequested(CXTPDockingPane* pane);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeBars();
    void connectFlyout();
    /// Null once the window has begun to end.
    CSideBar* barOf(Qt::DockWidgetArea side) const;
    void keepBarAtSide(Qt::DockWidgetArea side);
    void tabClicked(CXTPDockingPane* pane);
    void placeFlyout();
    void focusMoved(const QWidget* now);
    void giveViewBack();

    QPointer<QMainWindow> m_window;
    QHash<Qt::DockWidgetArea, QPointer<CSideBar>> m_bars;
    QPointer<CPaneFlyout> m_flyout;
    QHash<int, AutoHideEntry> m_entries;
    QHash<int, AutoHideEntry> m_pending;
    QHash<int, QPointer<CXTPDockingPane>> m_panes;
    QPointer<CXTPDockingPane> m_open;
};
