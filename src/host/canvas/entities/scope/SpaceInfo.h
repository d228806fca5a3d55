#pragma once

#include <QtGlobal>

/// What readers need to know about the block they read.
struct SpaceInfo
{
    bool isLayout = false; ///< model space or a sheet
    quint32 overallViewport =
        0xFFFFFFFFu; ///< slot of the viewport that stands for the sheet itself
};
