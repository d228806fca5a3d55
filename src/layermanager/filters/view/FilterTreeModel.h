#pragma once

#include "layermanager/filters/tree/FilterNode.h"

#include <QAbstractItemModel>

/// The filter tree of one drawing: names and kinds, as read last.
class FilterTreeModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    using QAbstractItemModel::QAbstractItemModel;

    /// Shows other nodes, or nothing for null. False, and no view is told, where they are the same
    /// as before.
    bool show(std::unique_ptr<FilterNode> root);

    /// Null for an invalid index.
    const FilterNode* node(const QModelIndex& index) const;
    QModelIndex indexOf(const FilterNode* node) const;
    /// The index of a filter, or of an external reference; invalid where there is none.
    QModelIndex find(const FilterKey& key, bool externalReference = false) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    /// Names; the kind as item data (Qt::UserRole) and in words for accessibility and tool tips.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Filters that the drawing keeps can be renamed.
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    std::unique_ptr<FilterNode> m_root;
};
