#include "layermanager/filters/view/FilterTreeModel.h"

#include "layermanager/filters/FilterTexts.h"

namespace {

/// The fixed nodes are named in the user's language; the drawing keeps their own names.
QString label(const FilterNode& node)
{
    if (node.kind == FilterNodeKind::Unreconciled)
        return KsResString(filterTexts(), 84538);
    static constexpr const char* kFixedNames[] = {
        QT_TRANSLATE_NOOP("FilterTreeModel", "All"),
        QT_TRANSLATE_NOOP("FilterTreeModel", "All used layers"),
        QT_TRANSLATE_NOOP("FilterTreeModel", "External References"),
    };
    const bool isFixed = node.kind == FilterNodeKind::All || node.kind == FilterNodeKind::UsedLayers
        || (node.kind == FilterNodeKind::ExternalReference && node.block.isNull());
    for (const char* name : kFixedNames) {
        if (isFixed && node.key.name == QLatin1String(name))
            return FilterTreeModel::tr(name);
    }
    return node.key.name;
}

QString kindInWords(const FilterNode& node)
{
    switch (node.kind) {
    case FilterNodeKind::All:
        return FilterTreeModel::tr("All layers");
    case FilterNodeKind::UsedLayers:
        return FilterTreeModel::tr("Layers in use");
    case FilterNodeKind::Property:
        return node.isEditable ? FilterTreeModel::tr("Property filter")
                               : FilterTreeModel::tr("Property filter of another program");
    case FilterNodeKind::Group:
        return FilterTreeModel::tr("Group filter");
    case FilterNodeKind::ExternalReference:
        return node.block.isNull() ? FilterTreeModel::tr("Layers of external references")
                                   : FilterTreeModel::tr("External reference");
    case FilterNodeKind::Unreconciled:
        return FilterTreeModel::tr("New layers that were not reviewed");
    }
    return {};
}

} // namespace

bool FilterTreeModel::show(std::unique_ptr<FilterNode> root)
{
    if (!root && !m_root)
        return false;
    if (root && m_root && root->isSame(*m_root))
        return false;
    beginResetModel();
    m_root = std::move(root);
    endResetModel();
    return true;
}

const FilterNode* FilterTreeModel::node(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<const FilterNode*>(index.internalPointer()) : nullptr;
}

QModelIndex FilterTreeModel::indexOf(const FilterNode* node) const
{
    return node ? createIndex(node->row, 0, node) : QModelIndex();
}

QModelIndex FilterTreeModel::find(const FilterKey& key, bool externalReference) const
{
    return indexOf(m_root ? m_root->find(key, externalReference) : nullptr);
}

QModelIndex FilterTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    if (!parent.isValid())
        return createIndex(0, 0, m_root.get());
    return createIndex(row, 0, node(parent)->children[static_cast<std::size_t>(row)].get());
}

QModelIndex FilterTreeModel::parent(const QModelIndex& index) const
{
    const FilterNode* child = node(index);
    return child ? indexOf(child->parent) : QModelIndex();
}

int FilterTreeModel::rowCount(const QModelIndex& parent) const
{
    if (parent.column() > 0)
        return 0;
    if (!parent.isValid())
        return m_root ? 1 : 0;
    return static_cast<int>(node(parent)->children.size());
}

int FilterTreeModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant FilterTreeModel::data(const QModelIndex& index, int role) const
{
    const FilterNode* shown = node(index);
    if (!shown)
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return label(*shown);
    case Qt::UserRole:
        return static_cast<int>(shown->kind);
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
        return kindInWords(*shown);
    default:
        return {};
    }
}

Qt::ItemFlags FilterTreeModel::flags(const QModelIndex& index) const
{
    const FilterNode* shown = node(index);
    if (!shown)
        return Qt::NoItemFlags;
    const bool isOwn =
        shown->kind == FilterNodeKind::Property || shown->kind == FilterNodeKind::Group;
    const bool hasLabel = !shown->key.name.isEmpty();
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable
        | (isOwn && hasLabel ? Qt::ItemIsEditable : Qt::NoItemFlags);
}
