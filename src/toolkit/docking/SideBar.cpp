#include "toolkit/docking/SideBar.h"

#include "toolkit/docking/SideTabButton.h"

#include <QAction>

SideBar::SideBar(Qt::DockWidgetArea side, QWidget* parent)
    : QToolBar(parent)
    , m_side(side)
{
    setMovable(false);
    setFloatable(false);
    setWindowTitle(tr("Hidden panes"));
    setAccessibleName(windowTitle());
    // It comes and goes with its tabs; the window's menu of tool bars does not offer it.
    toggleViewAction()->setVisible(false);
}

void SideBar::setTab(int id, const QString& title)
{
    for (const Tab& tab : std::as_const(m_tabs)) {
        if (tab.id != id)
            continue;
        tab.button->setText(title);
        tab.button->setAccessibleName(title);
        tab.button->updateGeometry();
        return;
    }
    auto* button = new SideTabButton(m_side, this);
    button->setObjectName(QStringLiteral("side_tab_%1").arg(id));
    button->setText(title);
    button->setAccessibleName(title);
    m_tabs.append({id, button, addWidget(button)});
    setVisible(true);
    connect(button, &SideTabButton::clicked, this, [this, id] { emit tabClicked(id); });
}

void SideBar::removeTab(int id)
{
    for (qsizetype i = 0; i < m_tabs.size(); ++i) {
        if (m_tabs[i].id != id)
            continue;
        const Tab tab = m_tabs.takeAt(i);
        removeAction(tab.action);
        // The removal may come out of the tab's own click.
        tab.action->deleteLater();
        setVisible(!m_tabs.isEmpty());
        return;
    }
}

void SideBar::setOpen(int id)
{
    for (const Tab& tab : std::as_const(m_tabs))
        tab.button->setChecked(tab.id == id);
}

QList<int> SideBar::ids() const
{
    QList<int> result;
    for (const Tab& tab : m_tabs)
        result.append(tab.id);
    return result;
}

void SideBar::setVisible(bool /*visible*/)
{
    QToolBar::setVisible(!m_tabs.isEmpty());
}
