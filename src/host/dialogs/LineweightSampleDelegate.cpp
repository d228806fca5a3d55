#include "host/dialogs/LineweightSampleDelegate.h"

#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace {
constexpr int kInset = 8;
constexpr double kHundredthsPerInch = 2540;
} // namespace

int LineweightSampleDelegate::thickness(int weight, int dotsPerInch)
{
    return std::max(1, qRound(weight * dotsPerInch / kHundredthsPerInch));
}

void LineweightSampleDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const int weight = index.data(kWeightRole).toInt();
    if (weight < 0)
        return;
    const bool isSelected = option.state & QStyle::State_Selected;
    const QColor colour =
        option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    const int dots = option.widget ? option.widget->logicalDpiY() : 96;
    const int height = thickness(weight, dots);
    const QRect half(option.rect.center().x(), option.rect.top(), option.rect.width() / 2,
                     option.rect.height());
    const int top = half.top() + (half.height() - height) / 2;
    painter->fillRect(QRect(half.left() + kInset, top, half.width() - 2 * kInset, height), colour);
}
