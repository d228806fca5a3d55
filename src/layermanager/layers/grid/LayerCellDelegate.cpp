#include "layermanager/layers/grid/LayerCellDelegate.h"

#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/layers/HostVariables.h"
#include "layermanager/layers/LineweightSample.h"
#include "layermanager/layers/grid/CellLook.h"
#include "layermanager/resources/LayerFlagIcons.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

using enum LayerColumn;

namespace {

constexpr LayerIcon kStatusIcons[] = {LayerIcon::StatusCurrent, LayerIcon::StatusNotInUse,
                                      LayerIcon::StatusInUse};

/// Average characters in the room kept for the text beside a lineweight sample.
constexpr int kLineweightDigits = 8;

/// Texts of drawings that look like mark-up are none.
QString asPlainTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

} // namespace

LayerCellDelegate::LayerCellDelegate(const LayerListModel& model, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_model(model)
{ }

std::optional<LayerIcon> LayerCellDelegate::icon(const OdDbLayerTableRecord& layer,
                                                 LayerColumn column) const
{
    if (column == Status)
        return kStatusIcons[static_cast<int>(m_model.status(layer))];
    const LayerCellContext& context = m_model.context();
    if (layerColumnInfo(column).layoutsOnly && !context.viewportReadable())
        return std::nullopt;
    // The flag of "On" is that the layer is off.
    return layerFlagIcon(column, layerCellFlag(layer, column, context) != (column == On));
}

void LayerCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    const CellLook look(option);
    look.paintGround(*painter);
    const auto layer = m_model.openRow(index.row());
    if (!layer)
        return;
    const auto column = static_cast<LayerColumn>(index.column());
    const LayerColumnInfo& info = layerColumnInfo(column);
    const LayerCellContext& context = m_model.context();
    const bool readable = !info.layoutsOnly || context.viewportReadable();
    switch (info.kind) {
    case LayerCellKind::StatusIcon:
    case LayerCellKind::Flag:
        if (const auto picture = icon(*layer, column))
            look.paintIcon(*painter,
                           m_icons.pixmap(*picture, look.iconSize, look.ratio, look.iconGround()));
        break;
    case LayerCellKind::Text:
        look.paintText(*painter, look.inner(), layerCellText(*layer, column, context));
        break;
    case LayerCellKind::Color:
        if (readable)
            paintColor(*painter, look, layerCellColor(*layer, column, context),
                       layerCellText(*layer, column, context));
        break;
    case LayerCellKind::Lineweight:
        if (readable)
            paintLineweight(*painter, look, layerCellLineWeight(*layer, column, context),
                            layerCellText(*layer, column, context));
        break;
    }
    look.paintFocus(*painter);
}

void LayerCellDelegate::paintColor(QPainter& painter, const CellLook& look, const OdCmColor& color,
                                   const QString& text)
{
    look.paintSwatch(painter, QColor::fromRgb(color.rgb(look.isGroundDark())), look.thinFrame(),
                     text);
}

void LayerCellDelegate::paintLineweight(QPainter& painter, const CellLook& look, int weight,
                                        const QString& text)
{
    QRect rect = look.inner();
    // The same for all usual texts, so that the samples of a column are of one length.
    const int textWidth = std::max(look.metrics.horizontalAdvance(text),
                                   kLineweightDigits * look.metrics.averageCharWidth());
    const int room = rect.width() - look.gap() - textWidth;
    const int length = std::min(rect.width(), std::clamp(room, look.iconSize, 3 * look.iconSize));
    const int units = readHostInt(QStringLiteral("LWUNITS")).value_or(1);
    const double thickness =
        lineweightSampleThickness(weight, painter.device()->logicalDpiX(), units);
    const double middle = rect.top() + rect.height() * 0.5;
    // The sample is black; where texts are not, it goes with them.
    if (thickness == 1.0) {
        painter.fillRect(QRectF(rect.left(), middle, length, 1.0), look.text);
    } else {
        const double half = lineweightBandHalfHeight(thickness);
        painter.fillRect(QRectF(rect.left(), middle - half, length, 2.0 * half), look.text);
    }
    rect.setLeft(rect.left() + length + look.gap());
    look.paintText(painter, rect, text);
}

int LayerCellDelegate::neededWidth(const CellLook& look, LayerCellKind kind, const QString& text)
{
    const int frame = 2 * look.margin;
    const int textWidth = look.metrics.horizontalAdvance(text);
    switch (kind) {
    case LayerCellKind::StatusIcon:
    case LayerCellKind::Flag:
        return frame + look.iconSize;
    case LayerCellKind::Color:
        return frame + look.swatchSize() + look.gap() + textWidth;
    case LayerCellKind::Lineweight:
        return frame + look.iconSize + look.gap() + textWidth;
    case LayerCellKind::Text:
        break;
    }
    return frame + textWidth;
}

QSize LayerCellDelegate::sizeHint(const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const
{
    const CellLook look(option);
    const LayerCellKind kind = layerColumnInfo(static_cast<LayerColumn>(index.column())).kind;
    const int height = std::max(look.metrics.height(), look.iconSize) + 2 * look.margin;
    return {neededWidth(look, kind, index.data().toString()), height};
}

bool LayerCellDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                  const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const LayerCellKind kind = layerColumnInfo(static_cast<LayerColumn>(index.column())).kind;
    const bool isIcon = kind == LayerCellKind::StatusIcon || kind == LayerCellKind::Flag;
    const QString text = index.data(Qt::ToolTipRole).toString();
    const CellLook look(option);
    if (isIcon || neededWidth(look, kind, text) > option.rect.width())
        QToolTip::showText(event->globalPos(), asPlainTip(text), view, option.rect);
    else
        QToolTip::hideText();
    return true;
}
