#include "layermanager/filter_editor/core/FilterRowsModel.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "database/values/OdCmColor.h"
#include "layermanager/layers/LayerCells.h"
#include "sdk/IKestServicesManager.h"

#include <algorithm>

namespace {

using Info = FilterColumnInfo;

const Info& infoOf(int column)
{
    return filterColumns().at(static_cast<std::size_t>(column));
}

QString colorText(qint32 index)
{
    return index >= 1 && index <= 255 ? layerColorText(OdCmColor::fromIndex(index))
                                      : QString::number(index);
}

QString numberText(int column, qint32 value)
{
    switch (infoOf(column).editor) {
    case FilterCellEditor::Color:
        return colorText(value);
    case FilterCellEditor::Lineweight: {
        const IKestServicesManager* services = getServicesManagerInterface();
        return services ? services->lineWeightText(value) : QString();
    }
    default: {
        const std::vector<QString> words = filterValueWords(column);
        const auto place = static_cast<std::size_t>(value) - 1;
        return place < words.size() ? words[place] : QString();
    }
    }
}

/// Drawings can hold mark-up in their texts, and texts of any length.
QString toolTip(const QString& value)
{
    constexpr qsizetype kLongest = 500;
    return value.isEmpty() ? QString()
                           : QLatin1String("<p>")
            + value.first(std::min(value.size(), kLongest)).toHtmlEscaped() + QLatin1String("</p>");
}

/// Whether the field changed.
template <class Value>
bool assign(Value& field, const Value& value)
{
    if (field == value)
        return false;
    field = value;
    return true;
}

} // namespace

FilterRowsModel::FilterRowsModel(QObject* parent)
    : QAbstractTableModel(parent)
{ }

int FilterRowsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int FilterRowsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kFilterColumnCount;
}

QVariant FilterRowsModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return valueText(index);
    case Qt::ToolTipRole: // pictures and lines do not tell their values, and columns are narrow
        return toolTip(valueText(index));
    case Qt::AccessibleTextRole:
        return spokenText(index);
    default:
        return {};
    }
}

QString FilterRowsModel::spokenText(const QModelIndex& cell) const
{
    const Info& info = infoOf(cell.column());
    const QString title = info.headerText();
    const QString number = QString::number(cell.row() + 1);
    if (title.isEmpty())
        return tr("Line %1").arg(number);
    if (!info.isEditable())
        return tr("%1, line %2").arg(title, number);
    const QString value = valueText(cell);
    return tr("%1, line %2: %3").arg(title, number, value.isEmpty() ? tr("not set") : value);
}

QVariant FilterRowsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= kFilterColumnCount)
        return {};
    const Info& info = infoOf(section);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole: // columns are often narrower than their headers
        return info.headerText();
    case Qt::TextAlignmentRole: {
        const bool icon = info.editor == FilterCellEditor::ValueList;
        return QVariant::fromValue((icon ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    default:
        return {};
    }
}

QString FilterRowsModel::valueText(const QModelIndex& cell) const
{
    const Info& info = infoOf(cell.column());
    const LayerFilterRow& row = line(cell.row());
    if (const auto* text = std::get_if<Info::Text>(&info.field))
        return row.**text;
    if (const auto* id = std::get_if<Info::Id>(&info.field)) {
        const auto linetype = (row.**id).openObject<OdDbLinetypeTableRecord>();
        return linetype ? linetype->getName() : QString();
    }
    const qint32 value = number(cell);
    return value == info.unset ? QString() : numberText(cell.column(), value);
}

qint32 FilterRowsModel::number(const QModelIndex& cell) const
{
    const Info& info = infoOf(cell.column());
    const auto* field = std::get_if<Info::Number>(&info.field);
    return field ? line(cell.row()).**field : info.unset;
}

bool FilterRowsModel::isSet(const QModelIndex& cell) const
{
    const Info& info = infoOf(cell.column());
    const LayerFilterRow& row = line(cell.row());
    if (const auto* text = std::get_if<Info::Text>(&info.field))
        return !(row.**text).isEmpty();
    if (const auto* id = std::get_if<Info::Id>(&info.field))
        return !(row.**id).isNull();
    return number(cell) != info.unset;
}

void FilterRowsModel::start(LayerFilterRows rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    m_rows.emplace_back();
    endResetModel();
}

bool FilterRowsModel::setCell(const QModelIndex& cell, qint32 number, const QString& text,
                              OdDbObjectId id)
{
    if (!cell.isValid())
        return false;
    LayerFilterRow row = line(cell.row());
    const auto& field = infoOf(cell.column()).field;
    bool changed = false;
    if (const auto* numberField = std::get_if<Info::Number>(&field))
        changed = assign(row.**numberField, number);
    else if (const auto* textField = std::get_if<Info::Text>(&field))
        changed = assign(row.**textField, text);
    else if (const auto* idField = std::get_if<Info::Id>(&field))
        changed = assign(row.**idField, id);
    if (!changed)
        return false;
    const int place = cell.row();
    const bool isEmpty = row.isEmpty();
    m_rows[static_cast<std::size_t>(place)] = std::move(row);
    emit dataChanged(index(place, 0), index(place, kFilterColumnCount - 1));
    if (isEntryLine(place) && !isEmpty)
        appendBlank();
    else if (!isEntryLine(place) && isEmpty)
        removeLines(place, place);
    return true;
}

bool FilterRowsModel::clearCell(const QModelIndex& cell)
{
    return cell.isValid() && setCell(cell, infoOf(cell.column()).unset, QString(), OdDbObjectId());
}

void FilterRowsModel::appendBlank()
{
    beginInsertRows({}, rowCount(), rowCount());
    m_rows.emplace_back();
    endInsertRows();
}

void FilterRowsModel::removeLines(int first, int last)
{
    beginRemoveRows({}, first, last);
    m_rows.erase(m_rows.begin() + first, m_rows.begin() + last + 1);
    endRemoveRows();
}

void FilterRowsModel::duplicate(int row)
{
    if (row < 0 || row >= rowCount() || isEntryLine(row))
        return;
    const int entry = rowCount() - 1;
    m_rows.back() = line(row);
    emit dataChanged(index(entry, 0), index(entry, kFilterColumnCount - 1));
    appendBlank();
}

bool FilterRowsModel::remove(int row, int selected)
{
    constexpr int kFewest = 2;
    if (rowCount() <= kFewest || selected < 1)
        return false;
    if (selected == 1) {
        if (row < 0 || isEntryLine(row) || row >= rowCount())
            return false;
        removeLines(row, row);
        return true;
    }
    const int last = std::min(selected - 1, rowCount() - 2);
    if (last >= 1)
        removeLines(1, last);
    return true;
}
