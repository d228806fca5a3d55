#include "layermanager/filters/tree/FilterTreeMenu.h"

#include "layermanager/filters/tree/FilterCommands.h"

#include <QHash>

#include <algorithm>

namespace {

/// A submenu without a single enabled command is gray itself.
void grayEmpty(QMenu& submenu)
{
    const QList<QAction*> actions = submenu.actions();
    submenu.menuAction()->setEnabled(std::any_of(
        actions.begin(), actions.end(), [](const QAction* action) { return action->isEnabled(); }));
}

} // namespace

std::unique_ptr<QMenu> makeFilterMenu(const FilterNode& node, bool modelSpace,
                                      const std::function<void(int)>& run)
{
    auto menu = std::make_unique<QMenu>();
    menu->setObjectName(QStringLiteral("filterMenu"));
    QHash<int, QMenu*> submenus;
    for (const FilterCommand& command : filterCommands()) {
        const FilterCommandState state = filterCommandState(command.id, node, modelSpace);
        if (state == FilterCommandState::Removed)
            continue;
        QMenu*& submenu = submenus[static_cast<int>(command.menu)];
        const bool opensMenu = command.menu != FilterMenu::Top && !submenu;
        QMenu* place = command.menu == FilterMenu::Top || opensMenu ? menu.get() : submenu;
        if (command.separatorBefore)
            place->addSeparator();
        if (opensMenu)
            place = submenu = menu->addMenu(filterMenuText(command.menu));
        QAction* action = place->addAction(filterCommandText(command));
        action->setData(command.id);
        action->setEnabled(state == FilterCommandState::Enabled);
        if (command.shortcut)
            action->setShortcut(QKeySequence(QLatin1String(command.shortcut)));
        QObject::connect(action, &QAction::triggered, menu.get(),
                         [run, id = command.id] { run(id); });
    }
    for (QMenu* submenu : std::as_const(submenus)) {
        if (submenu)
            grayEmpty(*submenu);
    }
    return menu;
}
