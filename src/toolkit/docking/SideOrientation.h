#pragma once

#include <Qt>

/// Whether panes and bars at that side of a window stand upright.
constexpr bool isUpright(Qt::DockWidgetArea side)
{
    return side == Qt::LeftDockWidgetArea || side == Qt::RightDockWidgetArea;
}
