#include "layermanager/layers/grid/LayerListMenu.h"

#include "toolkit/CommandMenu.h"

std::unique_ptr<QMenu> makeLayerMenu(const LayerCommandState& state,
                                     const std::function<void(int)>& run)
{
    std::vector<CommandMenuRow> rows;
    for (const LayerGridCommand& command : layerCommands()) {
        if (command.menu != LayerMenu::None)
            rows.push_back({command.id, layerCommandText(command), layerMenuText(command.menu),
                            command.shortcut, command.separatorBefore,
                            isLayerCommandEnabled(command.id, state)});
    }
    auto menu = makeCommandMenu(rows, run);
    menu->setObjectName(QStringLiteral("layerMenu"));
    return menu;
}
