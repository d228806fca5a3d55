#include "layermanager/palette/CLayerPaneTBar.h"

#include "layermanager/palette/pane/PaneCommandTarget.h"
#include "layermanager/palette/pane/PaneCommands.h"

#include <QAction>
#include <QEvent>
#include <QStyle>
#include <QWidget>

CLayerPaneTBar::CLayerPaneTBar(int id, QWidget* parent)
    : QToolBar(parent)
    , m_id(id)
{
    setObjectName(QStringLiteral("paneToolbar_%1").arg(id));
    setMovable(false);
    setFloatable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    setIconSize({size, size});
    for (const PaneTool& tool : paneTools()) {
        if (tool.toolbar != id)
            continue;
        QAction* action = addAction(paneToolText(tool));
        action->setObjectName(QStringLiteral("command_%1").arg(tool.id));
        action->setData(tool.id);
        action->setCheckable(tool.isCheckable);
        connect(action, &QAction::triggered, this, [this, command = tool.id] {
            const QPointer<CLayerPaneTBar> self(this); // a dialog may outlive the palette
            if (PaneCommandTarget* receiver = target())
                receiver->command(command);
            if (self)
                updateCommands();
        });
        // The keyboard reaches what no menu offers.
        widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    }
    updateIcons();
}

PaneCommandTarget* CLayerPaneTBar::target() const
{
    QWidget* widget = m_owner ? m_owner.data() : parentWidget();
    return dynamic_cast<PaneCommandTarget*>(widget);
}

void CLayerPaneTBar::updateCommands()
{
    const PaneCommandTarget* decider = target();
    for (QAction* action : actions()) {
        const int command = action->data().toInt();
        action->setEnabled(decider && decider->isCommandEnabled(command));
        if (action->isCheckable())
            action->setChecked(decider && decider->isCommandChecked(command));
    }
}

int CLayerPaneTBar::commandAt(QPoint point) const
{
    const QAction* action = actionAt(point);
    return action ? action->data().toInt() : 0;
}

void CLayerPaneTBar::updateIcons()
{
    for (const PaneTool& tool : paneTools()) {
        for (QAction* action : actions()) {
            if (action->data().toInt() == tool.id)
                action->setIcon(paneIcon(tool.icon, palette()));
        }
    }
}

void CLayerPaneTBar::changeEvent(QEvent* event)
{
    QToolBar::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        updateIcons();
}
