#include "host/dialogs/linetype/LinetypePreview.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {
constexpr double kPeriods = 1.5; ///< at least, in the width
constexpr double kShortest = 2; ///< pixels
constexpr double kGap = 4; ///< pixels wanted for the shortest gap
constexpr double kDash = 8; ///< pixels wanted for the longest dash
constexpr double kLineWidth = 1.5;
constexpr int kInset = 6;

/// Joins neighbours of the same kind, so that dashes and gaps take turns, a dash first.
std::vector<double> alternating(const std::vector<double>& dashes, double scale)
{
    std::vector<double> result;
    for (const double dash : dashes) {
        const bool isGap = dash < 0;
        const double length = std::max(std::abs(dash) * scale, kShortest);
        const bool nextIsGap = result.size() % 2 == 1;
        if (isGap != nextIsGap && !result.empty())
            result.back() += length;
        else if (isGap && result.empty())
            continue;
        else
            result.push_back(length);
    }
    if (result.size() % 2 == 1)
        result.push_back(kShortest);
    return result;
}
} // namespace

std::vector<double> LinetypePreview::period(const std::vector<double>& dashes, double width)
{
    double length = 0;
    double shortestGap = 0;
    double longestDash = 0;
    for (const double dash : dashes) {
        length += std::abs(dash);
        longestDash = std::max(longestDash, dash);
        if (dash < 0)
            shortestGap = shortestGap > 0 ? std::min(shortestGap, -dash) : -dash;
    }
    if (!(shortestGap > 0) || !std::isfinite(length))
        return {};
    double scale = kGap / shortestGap;
    if (longestDash > 0)
        scale = std::max(scale, kDash / longestDash);
    return alternating(dashes, std::min(scale, width / kPeriods / length));
}

void LinetypePreview::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const QVariant data = index.data(kDashesRole);
    if (!data.isValid())
        return;
    std::vector<double> dashes;
    for (const QVariant& dash : data.toList())
        dashes.push_back(dash.toDouble());
    const bool isSelected = option.state & QStyle::State_Selected;
    const QColor colour =
        option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    const QRect place = option.rect.adjusted(kInset, 0, -kInset, 0);
    const double middle = place.top() + place.height() / 2.0;
    const auto draw = [&](double from, double to) {
        const double right = std::min(to, place.right() + 1.0);
        painter->fillRect(QRectF(from, middle - kLineWidth / 2, right - from, kLineWidth), colour);
    };
    const std::vector<double> lengths = period(dashes, place.width());
    if (lengths.empty())
        return draw(place.left(), place.right() + 1.0);
    double at = place.left();
    for (std::size_t i = 0; at <= place.right(); i = (i + 1) % lengths.size()) {
        if (i % 2 == 0)
            draw(at, at + lengths[i]);
        at += lengths[i];
    }
}
