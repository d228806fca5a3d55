#pragma once

#include "layermanager/layer_states/parts/StateDialogParts.h"

#include <QStyledItemDelegate>

/// Rows as high as those of the layer grid, with some room behind each text.
class StateRowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const int room = 2 * option.fontMetrics.averageCharWidth();
        return {QStyledItemDelegate::sizeHint(option, index).width() + room,
                stateRowHeight(*option.widget)};
    }
};
