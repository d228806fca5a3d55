#include "toolkit/docking/CSideBar.h"

#include "toolkit/docking/CSideTabButton.h"

#include <QAction>

CSideBar::CSideBar(Qt::DockWidgetArea side, QWidget* parent)
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

void CSideBar::setTab(int id, const QString& title)
{
    for (const Tab& tab : std::as_const(m_tabs)) {
        if (tab.id != id)
            continue;
        tab.button->setText(title);
        tab.button->setAccessibleName(title);
        tab.button->updateGeometry();
        return;
    }
    auto* button = new CSideTabButton(m_side, this);
    button->setObjectName(QStringLiteral("side_tab_%1").arg(id));
    button->setText(title);
    button->setAccessibleName(title);
    m_tabs.append({id, button, addWidget(button)});
    setVisible(true);
    connect(button, &CSideTabButton::clicked, this, [this, id] { emit tabClicked(id); });
}

void CSideBar::removeTab(int id)
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

void CSideBar::setOpen(int id)
{
    for (const Tab& tab : std::as_const(m_tabs))
        tab.button->setChecked(tab.id == id);
}

QList<int> CSideBar::ids() const
{
    QList<int> result;
    for (const Tab& tab : m_tabs)
        result.append(tab.id);
    return result;
}

void CSideBar::setVisible(bool /*visible*/)
{
    QToolBar::setVisible(!m_tabs.isEmpty());
}
