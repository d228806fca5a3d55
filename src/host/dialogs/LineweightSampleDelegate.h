#pragma once

#include <QStyledItemDelegate>

/// Draws a line of a lineweight's thickness, as on paper, to the right of its text.
class LineweightSampleDelegate : public QStyledItemDelegate
{
public:
    static constexpr int kWeightRole = Qt::UserRole + 1;

    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// Pixels for a weight in hundredths of a millimetre; one at least.
    static int thickness(int weight, int dotsPerInch);
};
