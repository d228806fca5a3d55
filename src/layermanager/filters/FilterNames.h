#pragma once

#include "database/filters/OdLyLayerFilter.h"

#include <QString>

#include <vector>

enum class FilterKind { Property, Group };

/// All filters of a tree, the root first, each before those nested in it.
std::vector<OdLyLayerFilterPtr> filtersOfTree(const OdLyLayerFilterPtr& root);

/// The first filter of that name in the order of filtersOfTree(), without regard to case; null
/// where there is none.
OdLyLayerFilterPtr findFilter(const OdLyLayerFilterPtr& root, const QString& name);

/// "Properties Filter%d" or "Group Filter%d" with the first number from 1 on that no name of the
/// tree equals, case included.
QString MakeDefaultFilterName(const OdLyLayerFilterPtr& root, FilterKind kind);

/// What the rules say to a new name.
enum class FilterNameVerdict {
    Accepted,
    Unchanged, ///< nothing, or the old name, at most with blanks around it or in another case
    InvalidCharacters,
    NotUnique,
};

/// The name that a typed text gives: without the blanks around it.
QString typedFilterName(const QString& text);

/// The rules for renaming a filter, asked in their order.
FilterNameVerdict checkFilterRename(const OdLyLayerFilterPtr& root, const QString& oldName,
                                    const QString& newText);

/// The message of a refusal; empty for the verdicts that show none.
QString filterNameRefusal(FilterNameVerdict verdict);
