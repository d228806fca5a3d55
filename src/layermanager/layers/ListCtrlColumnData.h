#pragma once

#include <QString>
#include <QtGlobal>

/// Column record of a grid: where a column's cells are and how it comes back after being hidden.
struct ListCtrlColumnData
{
    qint32 identifier = 0;
    QString header;
    qint32 width = 0; ///< pixels; restored when the hidden column is shown again
    qint32 subItem = 0; ///< grid sub-item of the column's cells
    qint32 displayOrder = -1; ///< place among the columns; -1 while hidden
    bool shown = false;
};
