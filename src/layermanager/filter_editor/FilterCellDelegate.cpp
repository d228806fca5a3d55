#include "layermanager/filter_editor/FilterCellDelegate.h"

#include "database/OdCmColor.h"
#include "layermanager/layers/HostVariables.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace {

constexpr qsizetype kMostDrawn = 2000; ///< characters; no cell has room for more

bool isDark(const QColor& color)
{
    return qGray(color.rgb()) < 128;
}

} // namespace

double filterLineThickness(int weight, int dpi, int lwUnits)
{
    constexpr double kMillimetresPerInch = 25.4;
    double width = weight / 100.0;
    if (lwUnits == 0)
        width /= kMillimetresPerInch;
    return std::max(1.0, width * dpi);
}

/// Colors and measures of one cell.
struct FilterCellDelegate::Look
{
    explicit Look(const QStyleOptionViewItem& option)
        : rect(option.rect)
        , selected(option.state & QStyle::State_Selected)
        , ratio(option.widget ? option.widget->devicePixelRatioF() : 1.0)
        , metrics(option.fontMetrics)
    {
        const QPalette::ColorGroup group = !(option.state & QStyle::State_Enabled)
            ? QPalette::Disabled
            : option.state & QStyle::State_Active ? QPalette::Active
                                                  : QPalette::Inactive;
        ground = option.palette.color(group, selected ? QPalette::Highlight : QPalette::Base);
        text = option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
        const QStyle* style = option.widget ? option.widget->style() : QApplication::style();
        margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, option.widget) + 1;
        iconSize = style->pixelMetric(QStyle::PM_SmallIconSize, nullptr, option.widget);
    }

    QRect inner() const { return rect.adjusted(margin, 0, -margin, 0); }
    LayerIconGround iconGround() const
    {
        if (selected)
            return isDark(text) ? LayerIconGround::Light : LayerIconGround::Selection;
        return isDark(ground) ? LayerIconGround::Dark : LayerIconGround::Light;
    }

    QRect rect;
    bool selected;
    qreal ratio;
    QFontMetrics metrics;
    QColor ground;
    QColor text;
    int margin = 0;
    int iconSize = 0;
};

FilterCellDelegate::FilterCellDelegate(const FilterRowsModel& model, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_model(model)
{ }

void FilterCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const
{
    const Look look(option);
    if (look.selected)
        painter->fillRect(option.rect, look.ground);
    const QString text = index.data().toString();
    const FilterColumnInfo& info = filterColumns().at(static_cast<std::size_t>(index.column()));
    const int number = m_model.number(index);
    switch (info.editor) {
    case FilterCellEditor::ValueList:
        paintValue(*painter, look, index);
        break;
    case FilterCellEditor::Color:
        if (number != info.unset)
            paintColor(*painter, look, number, text);
        break;
    case FilterCellEditor::Lineweight:
        if (number != info.unset)
            paintLineweight(*painter, look, number);
        break;
    case FilterCellEditor::Text:
    case FilterCellEditor::Linetype:
        paintText(*painter, look, look.inner(), text);
        break;
    case FilterCellEditor::None:
        break;
    }
    if (option.state & QStyle::State_HasFocus) {
        painter->setPen(look.text);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(look.rect.adjusted(0, 0, -1, -1));
    }
}

void FilterCellDelegate::paintValue(QPainter& painter, const Look& look,
                                    const QModelIndex& index) const
{
    const QPixmap pixmap = m_icons.pixmap(index.column(), m_model.number(index), look.iconSize,
                                          look.ratio, look.iconGround());
    if (pixmap.isNull())
        return;
    const QPoint offset((look.rect.width() - look.iconSize) / 2,
                        (look.rect.height() - look.iconSize) / 2);
    painter.drawPixmap(look.rect.topLeft() + offset, pixmap);
}

/// A color that is not set has a swatch without a frame in the color of the cell, which is white
/// wherever cells are: nothing is drawn.
void FilterCellDelegate::paintColor(QPainter& painter, const Look& look, int color,
                                    const QString& text)
{
    QRect rect = look.inner();
    const int size = std::min({look.metrics.ascent(), look.iconSize, rect.width()});
    const QRect swatch(rect.left(), rect.top() + (rect.height() - size) / 2, size, size);
    if (color >= 0 && color < static_cast<int>(aci::table().size()))
        painter.fillRect(swatch,
                         QColor::fromRgb(OdCmColor::fromIndex(color).rgb(isDark(look.ground))));
    painter.setPen(Qt::black);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(swatch.adjusted(0, 0, -1, -1));
    rect.setLeft(swatch.right() + 2 + look.margin);
    paintText(painter, look, rect, text);
}

void FilterCellDelegate::paintLineweight(QPainter& painter, const Look& look, int weight)
{
    const QRect rect = look.inner().adjusted(0, look.margin, 0, -look.margin);
    const int units = readHostInt(QStringLiteral("LWUNITS")).value_or(1);
    const double thickness = std::min<double>(
        filterLineThickness(weight, painter.device()->logicalDpiX(), units), rect.height());
    const double middle = rect.top() + rect.height() * 0.5;
    painter.fillRect(QRectF(rect.left(), middle - thickness * 0.5, rect.width(), thickness),
                     look.text);
}

void FilterCellDelegate::paintText(QPainter& painter, const Look& look, QRect rect,
                                   const QString& text)
{
    if (text.isEmpty() || rect.width() <= 0)
        return;
    painter.setPen(look.text);
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     look.metrics.elidedText(text.left(kMostDrawn), Qt::ElideRight, rect.width()));
}
