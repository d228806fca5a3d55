#pragma once

#include "database/values/OdDbObjectId.h"

#include <QString>

#include <memory>
#include <vector>

class OdDbDatabase;
class OdLyLayerFilter;

/// What a node of the filter tree stands for. The numbers are the nodes' item data.
enum class FilterNodeKind {
    All = 0,
    UsedLayers = 1,
    Property = 2,
    Group = 3,
    ExternalReference = 4, ///< one of them, or the node that holds them
    Unreconciled = 5,
};

/// How the tree finds a filter again: by its name. Drawings of other programs may hold a name more
/// than once; `occurrence` counts those before it, from the root on.
struct FilterKey
{
    QString name;
    int occurrence = 0;
    bool operator==(const FilterKey&) const = default;
};

/// One node of the tree as it is shown.
struct FilterNode
{
    FilterKey key;
    FilterNodeKind kind = FilterNodeKind::All;
    OdDbObjectId block; ///< of one external reference, else null
    bool isEditable = false; ///< a property filter that rows of criteria can say
    FilterNode* parent = nullptr;
    int row = 0; ///< among the children of its parent
    std::vector<std::unique_ptr<FilterNode>> children;

    FilterNode& add(FilterNode node);
    /// Whether both show the same, nodes below included.
    bool isSame(const FilterNode& other) const;
    /// Itself or the first node below that has the key and stands for a filter, or is an external
    /// reference just as `kind` says; null where there is none.
    const FilterNode* find(const FilterKey& wanted, bool externalReference = false) const;
};

FilterNodeKind kindOfFilter(const OdLyLayerFilter& filter);

/// The tree of a drawing: its filters, and behind "All used layers" its external references where
/// it has any. `current` is the node of the filter that the drawing names as its current one.
struct FilterNodes
{
    std::unique_ptr<FilterNode> root;
    const FilterNode* current = nullptr;
};
FilterNodes readFilterNodes(OdDbDatabase& database);
