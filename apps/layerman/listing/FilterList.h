#pragma once

#include "database/filters/OdLyLayerFilter.h"

#include <QString>

#include <vector>

class OdDbDatabase;

/// A filter of a drawing's tree, as it is listed.
struct ListedFilter
{
    enum class Kind { BuiltIn, Property, Group };

    QString name;
    Kind kind;
    bool isCurrent;
    QString expression; ///< of property filters
    int held; ///< layers that a group holds
    bool isEditable; ///< false for an expression of another program that rows cannot say
    int shown; ///< layers that it shows, as the palette does
    std::vector<ListedFilter> nested;
};

/// The root with all below it.
ListedFilter listedFilters(OdDbDatabase& drawing);
int countOf(const ListedFilter& filter);
QString kindText(ListedFilter::Kind kind);

/// As aligned columns, nested filters indented.
QString filterTable(const ListedFilter& root);
/// The object of a filter, those nested in it as "filters".
QString filterJson(const ListedFilter& filter, int indent);
