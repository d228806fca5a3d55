#pragma once

#include <QObject>

class CXTPDockingPaneManager;
class QWidget;

/// F6 and Shift+F6: the keyboard focus goes round between the window's contents and the panes that
/// are open, by their ids. One that is hidden to a side slides out.
class PaneCycle : public QObject
{
    Q_OBJECT
public:
    /// Adds the keys to the manager's window.
    explicit PaneCycle(CXTPDockingPaneManager& manager);

    void go(int step);

private:
    /// Places of the round: 0 is the contents, from 1 on the open panes.
    int placeOf(const QWidget* focus) const;

    CXTPDockingPaneManager& m_manager;
};
