#pragma once

#include "layermanager/filters/LayerFilterRow.h"
#include "layermanager/layers/LayerColumn.h"

#include <array>
#include <optional>
#include <span>
#include <variant>

/// How a cell of the filter table is edited.
enum class FilterCellEditor { None, ValueList, Text, Color, Linetype, Lineweight };

/// One column of the filter table.
struct FilterColumnInfo
{
    using Number = qint32 LayerFilterRow::*;
    using Text = QString LayerFilterRow::*;
    using Id = OdDbObjectId LayerFilterRow::*;

    int identifier; ///< the first three carry the same one, deliberately
    int width; ///< pixels
    FilterCellEditor editor;
    std::optional<LayerColumn> property; ///< none for the first column
    std::variant<std::monostate, Number, Text, Id> field;
    qint32 unset; ///< value of a number that sets no criterion
    bool layoutsOnly; ///< hidden while model space is current

    QString headerText() const;
    bool isEditable() const { return editor != FilterCellEditor::None; }
};

inline constexpr int kFilterColumnCount = 18;

/// All columns, by number.
const std::array<FilterColumnInfo, kFilterColumnCount>& filterColumns();

/// What the values of a value list mean, from value 1 on; empty for other columns. Lower case, as
/// they stand in a sentence.
std::vector<QString> filterValueWords(int column);
