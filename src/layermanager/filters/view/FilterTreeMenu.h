#pragma once

#include "layermanager/filters/tree/FilterNode.h"

#include <QMenu>

#include <functional>
#include <memory>

/// The context menu on a node of the filter tree. Each action's data is its command's identifier.
/// `modelSpace`: TILEMODE is 1.
std::unique_ptr<QMenu> makeFilterMenu(const FilterNode& node, bool modelSpace,
                                      const std::function<void(int)>& run);
