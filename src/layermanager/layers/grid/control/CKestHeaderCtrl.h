#pragma once

#include <QHeaderView>

/// Header of the grid's columns: texts that are too wide end in an ellipsis.
class CKestHeaderCtrl : public QHeaderView
{
    Q_OBJECT
public:
    explicit CKestHeaderCtrl(QWidget* parent = nullptr);

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const override;
};
