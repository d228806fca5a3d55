#include "layermanager/layers/grid/LayerListMenu.h"

#include "toolkit/CommandMenu.h"

#include <QCoreApplication>

std::unique_ptr<QMenu> makeLayerMenu(const LayerCommandState& state,
                                     const std::function<void(int)>& run)
{
    std::vector<CommandMenuRow> rows;
    for (const LayerGridCommand& command : layerGridCommands()) {
        if (command.menu != LayerMenu::None)
            rows.push_back({command.id, layerGridCommandText(command),
                            layerGridMenuText(command.menu), command.shortcut,
                            command.separatorBefore, isLayerCommandEnabled(command.id, state)});
    }
    auto menu = makeCommandMenu(rows, run);
    menu->setObjectName(QStringLiteral("layerMenu"));
    menu->setAccessibleName(QCoreApplication::translate("LayerCommands", "Layer commands"));
    return menu;
}
