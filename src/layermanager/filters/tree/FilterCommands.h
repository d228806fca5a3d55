#pragma once

#include "layermanager/filters/tree/FilterNode.h"

#include <QString>

#include <span>

/// Commands of the filter tree by their identifiers.
enum FilterCommandId {
    kFreezeInViewport = 40084,
    kThawInViewport = 40082,
    kThawOthersInViewport = 40089,
    kTurnOff = 40072,
    kTurnOn = 40074,
    kThaw = 40076,
    kFreeze = 40077,
    kLock = 40079,
    kUnlock = 40080,
    kFreezeOthers = 40086,
    kNewPropertyFilter = 40091,
    kNewGroupFilter = 40093,
    kConvertToGroup = 40095,
    kRenameFilter = 40096,
    kDeleteFilter = 40097,
    kEditPropertyFilter = 40098,
    kReplaceFromDrawing = 40099,
    kAddFromDrawing = 40100,
    kToolbarNewGroupFilter = 40024,
    kToolbarNewPropertyFilter = 40025,
};

/// Where in the context menu a command stands.
enum class FilterMenu { Top, Visibility, Lock, Viewport, SelectLayers };

struct FilterCommand
{
    int id;
    FilterMenu menu;
    const char* text;
    const char* shortcut; ///< shown, and handled by the tree; null for none
    bool separatorBefore; ///< in front of its submenu where it is the first of one
};

/// The context menu's commands in their order.
std::span<const FilterCommand> filterCommands();
QString filterCommandText(const FilterCommand& command);
/// The label of a submenu; empty for the menu itself.
QString filterMenuText(FilterMenu menu);

enum class FilterCommandState { Enabled, Disabled, Removed };

/// What the menu offers on a node. `modelSpace`: TILEMODE is 1.
FilterCommandState filterCommandState(int id, const FilterNode& node, bool modelSpace);
