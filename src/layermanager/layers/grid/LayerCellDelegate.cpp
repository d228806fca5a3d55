#include "layermanager/layers/grid/LayerCellDelegate.h"

#include "database/OdDbLayerTableRecord.h"
#include "layermanager/layers/HostVariables.h"
#include "layermanager/layers/LineweightSample.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

using enum LayerColumn;

namespace {

/// Icons of a flag column, by the flag.
struct FlagIcons
{
    LayerColumn column;
    LayerIcon whenTrue;
    LayerIcon whenFalse;
};
constexpr FlagIcons kFlagIcons[] = {
    {On, LayerIcon::Off, LayerIcon::On},
    {Freeze, LayerIcon::Frozen, LayerIcon::Thawed},
    {Locked, LayerIcon::Locked, LayerIcon::Unlocked},
    {Plot, LayerIcon::Plot, LayerIcon::NoPlot},
    {NewVpFreeze, LayerIcon::NewViewportFrozen, LayerIcon::NewViewportThawed},
    {VpFreeze, LayerIcon::ViewportFrozen, LayerIcon::ViewportThawed},
};

constexpr LayerIcon kStatusIcons[] = {LayerIcon::StatusCurrent, LayerIcon::StatusNotInUse,
                                      LayerIcon::StatusInUse};

/// Average characters in the room kept for the text beside a lineweight sample.
constexpr int kLineweightDigits = 8;

constexpr qsizetype kMostDrawn = 2000; ///< characters; no cell has room for more

bool isDark(const QColor& colour)
{
    return qGray(colour.rgb()) < 128;
}

/// Texts of drawings that look like mark-up are none.
QString asPlainTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

} // namespace

/// Colours and measures of one cell.
struct LayerCellDelegate::Look
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
    int gap() const { return margin + 1; }
    int swatchSize() const { return std::min(metrics.ascent(), iconSize); }
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
    for (const FlagIcons& icons : kFlagIcons) {
        if (icons.column == column)
            return layerCellFlag(layer, column, context) ? icons.whenTrue : icons.whenFalse;
    }
    return std::nullopt;
}

void LayerCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    const Look look(option);
    if (look.selected)
        painter->fillRect(option.rect, look.ground);
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
            paintIcon(*painter, look, *picture);
        break;
    case LayerCellKind::Text:
        paintText(*painter, look, look.inner(), layerCellText(*layer, column, context));
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
    if (option.state & QStyle::State_HasFocus)
        paintFocus(*painter, look);
}

void LayerCellDelegate::paintFocus(QPainter& painter, const Look& look)
{
    painter.setPen(look.text);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(look.rect.adjusted(0, 0, -1, -1));
}

void LayerCellDelegate::paintIcon(QPainter& painter, const Look& look, LayerIcon icon) const
{
    const QPixmap pixmap = m_icons.pixmap(icon, look.iconSize, look.ratio, look.iconGround());
    const QPoint offset((look.rect.width() - look.iconSize) / 2,
                        (look.rect.height() - look.iconSize) / 2);
    painter.drawPixmap(look.rect.topLeft() + offset, pixmap);
}

void LayerCellDelegate::paintText(QPainter& painter, const Look& look, QRect rect,
                                  const QString& text)
{
    if (text.isEmpty() || rect.width() <= 0)
        return;
    painter.setPen(look.text);
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     look.metrics.elidedText(text.left(kMostDrawn), Qt::ElideRight, rect.width()));
}

void LayerCellDelegate::paintColor(QPainter& painter, const Look& look, const OdCmColor& color,
                                   const QString& text)
{
    QRect rect = look.inner();
    const int size = std::min(look.swatchSize(), rect.width());
    const QRect swatch(rect.left(), rect.top() + (rect.height() - size) / 2, size, size);
    painter.fillRect(swatch, QColor::fromRgb(color.rgb(isDark(look.ground))));
    // A thin frame keeps a swatch apart from a background of its own colour.
    QColor frame = look.text;
    frame.setAlphaF(0.5F);
    painter.setPen(frame);
    painter.drawRect(swatch.adjusted(0, 0, -1, -1));
    rect.setLeft(swatch.right() + 1 + look.gap());
    paintText(painter, look, rect, text);
}

void LayerCellDelegate::paintLineweight(QPainter& painter, const Look& look, int weight,
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
    paintText(painter, look, rect, text);
}

int LayerCellDelegate::neededWidth(const Look& look, LayerCellKind kind, const QString& text)
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
    const Look look(option);
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
    const Look look(option);
    if (isIcon || neededWidth(look, kind, text) > option.rect.width())
        QToolTip::showText(event->globalPos(), asPlainTip(text), view, option.rect);
    else
        QToolTip::hideText();
    return true;
}
