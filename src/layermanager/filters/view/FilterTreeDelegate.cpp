#include "layermanager/filters/view/FilterTreeDelegate.h"

#include "layermanager/filters/tree/FilterNode.h"

#include <QLineEdit>
#include <QPalette>
#include <QWidget>

namespace {

LayerIcon iconOf(FilterNodeKind kind)
{
    switch (kind) {
    case FilterNodeKind::All:
        return LayerIcon::FilterAll;
    case FilterNodeKind::UsedLayers:
        return LayerIcon::FilterUsed;
    case FilterNodeKind::Property:
        return LayerIcon::FilterProperty;
    case FilterNodeKind::Group:
        return LayerIcon::FilterGroup;
    case FilterNodeKind::ExternalReference:
        return LayerIcon::FilterReference;
    case FilterNodeKind::Unreconciled:
        return LayerIcon::FilterUnreconciled;
    }
    return LayerIcon::FilterProperty;
}

LayerIconGround groundOf(const QStyleOptionViewItem& option)
{
    return (option.state & QStyle::State_Selected) != 0
        ? iconGroundOfSelection(option.palette.color(QPalette::HighlightedText))
        : iconGround(option.palette.color(QPalette::Base));
}

} // namespace

QWidget* FilterTreeDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                          const QModelIndex& index) const
{
    QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
    editor->setObjectName(QStringLiteral("filterLabelEditor"));
    editor->setAccessibleName(tr("Name of the filter"));
    return editor;
}

void FilterTreeDelegate::setModelData(QWidget* editor, QAbstractItemModel*,
                                      const QModelIndex& index) const
{
    if (const auto* line = qobject_cast<QLineEdit*>(editor))
        emit labelTyped(index, line->text());
}

void FilterTreeDelegate::initStyleOption(QStyleOptionViewItem* option,
                                         const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const int size = option->decorationSize.height();
    const qreal ratio = option->widget ? option->widget->devicePixelRatioF() : 1.0;
    const auto kind = static_cast<FilterNodeKind>(index.data(Qt::UserRole).toInt());
    const QPixmap pixmap = m_icons.pixmap(iconOf(kind), size, ratio, groundOf(*option));
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->decorationSize = QSize(size, size);
    option->icon = QIcon(pixmap);
    // The pixmap has the colours of its background already.
    option->icon.addPixmap(pixmap, QIcon::Selected);
}
