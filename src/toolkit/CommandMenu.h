#pragma once

#include <QMenu>

#include <functional>
#include <memory>
#include <span>

/// A command as a menu offers it.
struct CommandMenuRow
{
    int id;
    QString text;
    QString submenu; ///< its label; empty for the menu itself
    const char* shortcut; ///< shown only, in portable text; null for none
    bool separatorBefore; ///< in front of its submenu where it is the first of one
    bool enabled;
};

/// A context menu with these commands in their order. Each action's data is its command's
/// identifier, which `run` is called with. A submenu without an enabled command is gray itself.
std::unique_ptr<QMenu> makeCommandMenu(std::span<const CommandMenuRow> rows,
                                       const std::function<void(int)>& run);
