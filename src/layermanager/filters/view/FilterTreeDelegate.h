#pragma once

#include "layermanager/resources/LayerIcons.h"

#include <QStyledItemDelegate>

/// Paints the nodes of the filter tree with their icons and edits their labels. What was typed is
/// handed on when the editor is gone, so that a message about it finds no editor open.
class FilterTreeDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

signals:
    void labelTyped(const QModelIndex& index, const QString& text) const;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    LayerIcons m_icons;
};
