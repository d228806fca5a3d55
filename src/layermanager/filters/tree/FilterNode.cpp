#include "layermanager/filters/tree/FilterNode.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/filters/FilterRecords.h"
#include "database/filters/OdLyLayerFilterManager.h"
#include "layermanager/filters/tree/ExternalReferences.h"

#include <QHash>

#include <algorithm>

namespace {

bool isNamed(const OdLyLayerFilter& filter, const QString& name)
{
    return filter.name().compare(name, Qt::CaseInsensitive) == 0;
}

class Builder
{
public:
    explicit Builder(OdLyLayerFilterPtr current)
        : m_current(std::move(current))
    { }

    FilterNode describe(const OdLyLayerFilter& filter)
    {
        FilterNode node;
        node.key = {filter.name(), m_seen[filter.name().toCaseFolded()]++};
        node.kind = kindOfFilter(filter);
        node.isEditable = node.kind == FilterNodeKind::Property && filter.isEditable();
        return node;
    }

    void nested(const OdLyLayerFilter& filter, FilterNode& node)
    {
        if (&filter == m_current.get())
            m_currentNode = &node;
        for (const OdLyLayerFilterPtr& child : filter.getNestedFilters())
            nested(*child, node.add(describe(*child)));
    }

    const FilterNode* currentNode() const { return m_currentNode; }

private:
    OdLyLayerFilterPtr m_current;
    const FilterNode* m_currentNode = nullptr;
    QHash<QString, int> m_seen;
};

void addReferences(FilterNode& parent, const std::vector<ExternalReference>& references)
{
    for (const ExternalReference& reference : references) {
        FilterNode node;
        node.key.name = reference.name;
        node.kind = FilterNodeKind::ExternalReference;
        node.block = reference.block;
        addReferences(parent.add(std::move(node)), reference.nested);
    }
}

/// Behind the other fixed node, before the drawing's own filters.
void addReferenceNode(FilterNode& root, const std::vector<ExternalReference>& references)
{
    FilterNode node;
    node.key.name = externalReferencesName();
    node.kind = FilterNodeKind::ExternalReference;
    addReferences(root.add(std::move(node)), references);
    const auto first = std::find_if(root.children.begin(), root.children.end(), [](const auto& n) {
        return n->kind != FilterNodeKind::UsedLayers;
    });
    std::rotate(first, root.children.end() - 1, root.children.end());
    int row = 0;
    for (const auto& child : root.children)
        child->row = row++;
}

} // namespace

FilterNode& FilterNode::add(FilterNode node)
{
    node.parent = this;
    node.row = static_cast<int>(children.size());
    children.push_back(std::make_unique<FilterNode>(std::move(node)));
    return *children.back();
}

bool FilterNode::isSame(const FilterNode& other) const
{
    return key == other.key && kind == other.kind && block == other.block
        && isEditable == other.isEditable
        && std::equal(children.begin(), children.end(), other.children.begin(),
                      other.children.end(),
                      [](const auto& a, const auto& b) { return a->isSame(*b); });
}

const FilterNode* FilterNode::find(const FilterKey& wanted, bool externalReference) const
{
    if (key == wanted && (kind == FilterNodeKind::ExternalReference) == externalReference)
        return this;
    for (const auto& child : children) {
        if (const FilterNode* found = child->find(wanted, externalReference))
            return found;
    }
    return nullptr;
}

FilterNodeKind kindOfFilter(const OdLyLayerFilter& filter)
{
    if (isNamed(filter, FilterRecords::kUnreconciled))
        return FilterNodeKind::Unreconciled;
    if (filter.isIdFilter())
        return FilterNodeKind::Group;
    if (isNamed(filter, FilterRecords::kAll))
        return FilterNodeKind::All;
    if (isNamed(filter, FilterRecords::kAllUsed))
        return FilterNodeKind::UsedLayers;
    return FilterNodeKind::Property;
}

FilterNodes readFilterNodes(OdDbDatabase& database)
{
    OdLyLayerFilterPtr root;
    OdLyLayerFilterPtr current;
    odlyGetLayerFilterManager(&database)->getFilters(root, current);
    Builder builder(current);
    FilterNodes nodes{std::make_unique<FilterNode>(builder.describe(*root)), nullptr};
    builder.nested(*root, *nodes.root);
    nodes.current = builder.currentNode() ? builder.currentNode() : nodes.root.get();
    if (const auto references = externalReferences(database); !references.empty())
        addReferenceNode(*nodes.root, references);
    return nodes;
}
