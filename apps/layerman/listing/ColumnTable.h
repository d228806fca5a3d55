#pragma once

#include "layermanager/layers/LayerCells.h"

#include <QStringList>

#include <optional>
#include <span>
#include <vector>

/// What a column's values are.
enum class ColumnKind { Text, Flag, Color, Lineweight };

/// What scripts ask for beside the columns of the grid.
enum class ExtraColumn { Handle, Reconciled, Used, File };

/// A column that can be listed: one of the grid, or an extra one.
struct ListColumn
{
    const char* name;
    std::optional<LayerColumn> cell;
    std::optional<ExtraColumn> extra;
    ColumnKind kind;
    const char* title; ///< of extra columns; the grid has its own
    const char* text; ///< for the help
};

/// A layer to be listed.
struct ListRow
{
    const OdDbLayerTableRecord& layer;
    const LayerCellContext& context;
    const QString& file;
};

/// All columns, those of the grid first and in its order.
std::span<const ListColumn> listColumns();
const ListColumn& listColumn(LayerColumn cell);
const ListColumn& listColumn(ExtraColumn extra);
using ListColumns = std::vector<const ListColumn*>;
/// The columns of a text with commas between, in its order. Raises UsageError for unknown names.
ListColumns columnsFrom(const QString& text);
/// The grid's without those of viewports; `withFile` puts the file before them.
ListColumns defaultColumns(bool withFile);

QString columnTitle(const ListColumn& column);
QString columnHelp(const ListColumn& column);

/// The cell in words: as the grid shows it, flags as "yes" and "no". Empty for viewport columns in
/// model space.
QString cellText(const ListColumn& column, const ListRow& row);
/// The answer to a flag column's name, such as "on"; nothing for viewport columns in model space.
std::optional<bool> cellFlag(const ListColumn& column, const ListRow& row);
