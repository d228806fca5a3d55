#pragma once

#include <QStyledItemDelegate>

#include <vector>

class QPainter;

/// Draws a piece of a linetype across the cell.
class LinetypePreview : public QStyledItemDelegate
{
public:
    static constexpr int kDashesRole = Qt::UserRole + 1; ///< a QVariantList of doubles

    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

    /// Pixels of the dashes (even positions) and gaps (odd ones) of one period, as the preview of
    /// that width shows them; empty for a continuous line. More than one period fits, and no dash
    /// or gap is too short to be seen.
    static std::vector<double> period(const std::vector<double>& dashes, double width);
};
