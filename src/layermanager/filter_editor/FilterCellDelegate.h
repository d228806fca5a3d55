#pragma once

#include "layermanager/filter_editor/FilterValueIcons.h"
#include "layermanager/filter_editor/core/FilterRowsModel.h"

#include <QStyledItemDelegate>

struct CellLook;

/// Draws the cells of the filter table.
class FilterCellDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit FilterCellDelegate(const FilterRowsModel& model, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    void paintValue(QPainter& painter, const CellLook& look, const QModelIndex& index) const;
    static void paintColor(QPainter& painter, const CellLook& look, int color, const QString& text);
    static void paintLineweight(QPainter& painter, const CellLook& look, int weight);

    const FilterRowsModel& m_model;
    FilterValueIcons m_icons;
};

/// Thickness in pixels of the line that stands for a lineweight in the filter table. `weight` is in
/// hundredths of a millimetre, negative for the named ones; `dpi` the device's pixels per inch;
/// `lwUnits` LWUNITS, 0 for inches.
double filterLineThickness(int weight, int dpi, int lwUnits);
