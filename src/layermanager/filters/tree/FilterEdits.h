#pragma once

#include "database/filters/OdLyLayerFilter.h"
#include "layermanager/filters/FilterNames.h"
#include "layermanager/filters/tree/FilterNode.h"

#include <optional>

class OdDbDatabase;

/// A drawing's filter tree while it is being changed. Nothing reaches the drawing before write().
class FilterTreeEdit
{
public:
    explicit FilterTreeEdit(OdDbDatabase& database);

    const OdLyLayerFilterPtr& root() const { return m_root; }
    const OdLyLayerFilterPtr& current() const { return m_current; }
    void setCurrent(const OdLyLayerFilterPtr& filter) { m_current = filter; }
    /// The filter of that key, or null.
    OdLyLayerFilterPtr find(const FilterKey& key) const;
    void write();

private:
    OdDbDatabase& m_database;
    OdLyLayerFilterPtr m_root;
    OdLyLayerFilterPtr m_current;
};

/// The key of a filter of the tree.
FilterKey keyOfFilter(const OdLyLayerFilterPtr& root, const OdLyLayerFilter& filter);

// Each edit is one undo record and answers nothing, or false, where it is refused: then the drawing
// is as it was.

/// Makes the filter the drawing's current one. False when it is that already.
bool setCurrentFilter(OdDbDatabase& database, const FilterKey& filter);

/// A new group, named by the rule for new ones, behind the other filters of the root or a group, as
/// the current one.
std::optional<FilterKey> addGroupFilter(OdDbDatabase& database, const FilterKey& parent);

/// Nests a filter that somebody made, behind the others of its parent, as the current one.
std::optional<FilterKey> addFilter(OdDbDatabase& database, const FilterKey& parent,
                                   const OdLyLayerFilterPtr& filter);

/// Replaces a property filter by a new group with the layers that it shows now; filters nested in
/// it go along. Below a property filter no group can stand: there it goes to the nearest place
/// above.
std::optional<FilterKey> convertToGroup(OdDbDatabase& database, const FilterKey& filter);

/// Renames by the rules for names; changes nothing unless they accept the text.
FilterNameVerdict renameFilter(OdDbDatabase& database, const FilterKey& filter,
                               const QString& newText);

/// Gives a property filter another name and expression, both checked before; its key then. No undo
/// record where they are the same as before.
std::optional<FilterKey> changeFilter(OdDbDatabase& database, const FilterKey& filter,
                                      const QString& name, const QString& expression);

/// Removes a filter and all nested in it. A current filter among them gives that place to the
/// parent. Returns the parent's key.
std::optional<FilterKey> deleteFilter(OdDbDatabase& database, const FilterKey& filter);
