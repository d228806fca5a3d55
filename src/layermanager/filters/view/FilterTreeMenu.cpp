#include "layermanager/filters/view/FilterTreeMenu.h"

#include "layermanager/filters/tree/FilterCommands.h"
#include "toolkit/CommandMenu.h"

#include <QCoreApplication>

std::unique_ptr<QMenu> makeFilterMenu(const FilterNode& node, bool modelSpace,
                                      const std::function<void(int)>& run)
{
    std::vector<CommandMenuRow> rows;
    for (const FilterCommand& command : filterCommands()) {
        const FilterCommandState state = filterCommandState(command.id, node, modelSpace);
        if (state == FilterCommandState::Removed)
            continue;
        rows.push_back({command.id, filterCommandText(command), filterMenuText(command.menu),
                        command.shortcut, command.separatorBefore,
                        state == FilterCommandState::Enabled});
    }
    auto menu = makeCommandMenu(rows, run);
    menu->setObjectName(QStringLiteral("filterMenu"));
    menu->setAccessibleName(QCoreApplication::translate("FilterTree", "Filter commands"));
    return menu;
}
