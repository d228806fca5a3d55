#include "layermanager/filter_editor/FilterCellDelegate.h"

#include "database/values/OdCmColor.h"
#include "layermanager/layers/HostVariables.h"
#include "layermanager/layers/grid/CellLook.h"

#include <QPainter>

#include <algorithm>

double filterLineThickness(int weight, int dpi, int lwUnits)
{
    constexpr double kMillimetresPerInch = 25.4;
    double width = weight / 100.0;
    if (lwUnits == 0)
        width /= kMillimetresPerInch;
    return std::max(1.0, width * dpi);
}

FilterCellDelegate::FilterCellDelegate(const FilterRowsModel& model, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_model(model)
{ }

void FilterCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const
{
    const CellLook look(option);
    look.paintGround(*painter);
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
        look.paintText(*painter, look.inner(), text);
        break;
    case FilterCellEditor::None:
        break;
    }
    look.paintFocus(*painter);
}

void FilterCellDelegate::paintValue(QPainter& painter, const CellLook& look,
                                    const QModelIndex& index) const
{
    look.paintIcon(painter,
                   m_icons.pixmap(index.column(), m_model.number(index), look.iconSize, look.ratio,
                                  look.iconGround()));
}

/// A color that is not set has a swatch without a frame in the color of the cell, which is white
/// wherever cells are: nothing is drawn.
void FilterCellDelegate::paintColor(QPainter& painter, const CellLook& look, int color,
                                    const QString& text)
{
    const bool isKnown = color >= 0 && color < static_cast<int>(aci::table().size());
    const QColor fill =
        isKnown ? QColor::fromRgb(OdCmColor::fromIndex(color).rgb(look.isGroundDark())) : QColor();
    look.paintSwatch(painter, fill, Qt::black, text);
}

void FilterCellDelegate::paintLineweight(QPainter& painter, const CellLook& look, int weight)
{
    const QRect rect = look.inner().adjusted(0, look.margin, 0, -look.margin);
    const int units = readHostInt(QStringLiteral("LWUNITS")).value_or(1);
    const double thickness = std::min<double>(
        filterLineThickness(weight, painter.device()->logicalDpiX(), units), rect.height());
    const double middle = rect.top() + rect.height() * 0.5;
    painter.fillRect(QRectF(rect.left(), middle - thickness * 0.5, rect.width(), thickness),
                     look.text);
}
