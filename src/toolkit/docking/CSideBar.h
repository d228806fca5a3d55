#pragma once

#include <QList>
#include <QToolBar>

class CSideTabButton;

/// The tabs of the panes that are hidden to one side of the window.
class CSideBar : public QToolBar
{
    Q_OBJECT
public:
    CSideBar(Qt::DockWidgetArea side, QWidget* parent);

    /// Adds the pane's tab, or gives it another title.
    void setTab(int id, const QString& title);
    void removeTab(int id);
    /// Marks the tab of the pane that is out; -1 for none.
    void setOpen(int id);
    /// In the order of the tabs.
    QList<int> ids() const;
    /// It is visible while it has tabs, whatever a restored window state says.
    void setVisible(bool visible) override;

signals:
    void tabClicked(int id);

private:
    struct Tab
    {
        int id;
        CSideTabButton* button;
        QAction* action;
    };

    Qt::DockWidgetArea m_side;
    QList<Tab> m_tabs;
};
