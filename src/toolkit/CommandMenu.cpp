#include "toolkit/CommandMenu.h"

#include <QHash>

#include <algorithm>

namespace {

bool isOffered(const QAction* action)
{
    return action->isEnabled() && !action->isSeparator();
}

void grayEmpty(QMenu& submenu)
{
    const QList<QAction*> actions = submenu.actions();
    submenu.menuAction()->setEnabled(std::any_of(actions.begin(), actions.end(), isOffered));
}

} // namespace

std::unique_ptr<QMenu> makeCommandMenu(std::span<const CommandMenuRow> rows,
                                       const std::function<void(int)>& run)
{
    auto menu = std::make_unique<QMenu>();
    QHash<QString, QMenu*> submenus;
    for (const CommandMenuRow& row : rows) {
        const bool opensMenu = !row.submenu.isEmpty() && !submenus.contains(row.submenu);
        const bool isTop = row.submenu.isEmpty() || opensMenu;
        if (row.separatorBefore)
            (isTop ? menu.get() : submenus.value(row.submenu))->addSeparator();
        if (opensMenu)
            submenus.insert(row.submenu, menu->addMenu(row.submenu));
        QMenu* place = row.submenu.isEmpty() ? menu.get() : submenus.value(row.submenu);
        QAction* action = place->addAction(row.text);
        action->setData(row.id);
        action->setEnabled(row.enabled);
        if (row.shortcut)
            action->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
        QObject::connect(action, &QAction::triggered, menu.get(), [run, id = row.id] { run(id); });
    }
    for (QMenu* submenu : std::as_const(submenus))
        grayEmpty(*submenu);
    return menu;
}
