#include "layermanager/layer_states/core/LayerStateListModel.h"

#include "layermanager/layer_states/core/LayerStateTexts.h"

#include <algorithm>

namespace {

constexpr LayerStateListModel::ColumnInfo kColumns[] = {
    {84523, 50},
    {84524, 50},
    {84525, 80},
    {84526, 100},
};

constexpr std::size_t kMostRemovals = 100;

/// Breaks of lines would make a row higher than the others.
QString inOneLine(QString text)
{
    for (QChar& c : text) {
        if (c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QChar::LineSeparator
            || c == QChar::ParagraphSeparator)
            c = QLatin1Char(' ');
    }
    return text;
}

} // namespace

std::span<const LayerStateListModel::ColumnInfo> LayerStateListModel::columns()
{
    return kColumns;
}

LayerStateListModel::LayerStateListModel(Kind kind, QObject* parent)
    : QAbstractTableModel(parent)
    , m_kind(kind)
{ }

void LayerStateListModel::fill(std::vector<layStateEntry> entries)
{
    beginResetModel();
    m_rows.clear();
    m_rows.reserve(entries.size());
    for (layStateEntry& entry : entries)
        m_rows.push_back({std::move(entry), false});
    endResetModel();
}

int LayerStateListModel::append(const layStateEntry& entry)
{
    const int row = rowCount();
    beginInsertRows({}, row, row);
    m_rows.push_back({entry, false});
    endInsertRows();
    return row;
}

void LayerStateListModel::removeAll(const std::vector<int>& rows)
{
    // Neighbours go together: each removal moves all rows behind it.
    std::vector<std::pair<int, int>> ranges;
    for (const int row : rows) {
        if (!ranges.empty() && ranges.back().second == row - 1)
            ranges.back().second = row;
        else
            ranges.push_back({row, row});
    }
    if (ranges.size() > kMostRemovals)
        return removeAtOnce(rows);
    for (auto range = ranges.rbegin(); range != ranges.rend(); ++range) {
        beginRemoveRows({}, range->first, range->second);
        m_rows.erase(m_rows.begin() + range->first, m_rows.begin() + range->second + 1);
        endRemoveRows();
    }
}

/// For many rows here and there: views would take long over one removal after the other.
void LayerStateListModel::removeAtOnce(const std::vector<int>& rows)
{
    beginResetModel();
    std::vector<Row> kept;
    kept.reserve(m_rows.size());
    auto next = rows.begin();
    for (int row = 0; row < rowCount(); ++row) {
        if (next != rows.end() && *next == row)
            ++next;
        else
            kept.push_back(std::move(m_rows[static_cast<size_t>(row)]));
    }
    m_rows = std::move(kept);
    endResetModel();
}

void LayerStateListModel::setSameAsDrawing(int row, bool same)
{
    m_rows[static_cast<size_t>(row)].entry.sameAsDrawing = same;
    emit dataChanged(index(row, SameAsDrawing), index(row, SameAsDrawing));
}

void LayerStateListModel::setDescription(int row, const QString& description)
{
    m_rows[static_cast<size_t>(row)].entry.description = description;
    emit dataChanged(index(row, Description), index(row, Description));
}

QStringList LayerStateListModel::names() const
{
    QStringList names;
    names.reserve(rowCount());
    for (const Row& row : m_rows)
        names.append(row.entry.name);
    return names;
}

int LayerStateListModel::rowOf(const QString& name) const
{
    const auto found = std::ranges::find_if(m_rows, [&](const Row& row) {
        return row.entry.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int LayerStateListModel::rowStartingWith(const QString& beginning) const
{
    const auto found = std::ranges::find_if(m_rows, [&](const Row& row) {
        return row.entry.name.startsWith(beginning, Qt::CaseInsensitive);
    });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

int LayerStateListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int LayerStateListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(std::size(kColumns));
}

QString LayerStateListModel::text(const layStateEntry& entry, int column) const
{
    switch (column) {
    case Name:
        return entry.name;
    case Space:
        return layerStateText(entry.isLayout ? 84528 : 84527);
    case SameAsDrawing:
        return layerStateText(entry.sameAsDrawing ? 84529 : 84530);
    default:
        return entry.description;
    }
}

QVariant LayerStateListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    if (role == Qt::DisplayRole)
        return inOneLine(text(entry(index.row()), index.column()));
    if (role == Qt::EditRole)
        return text(entry(index.row()), index.column());
    if (role == Qt::CheckStateRole && m_kind == Kind::Tickable && index.column() == Name)
        return isTicked(index.row()) ? Qt::Checked : Qt::Unchecked;
    return {};
}

bool LayerStateListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || index.column() != Name)
        return false;
    if (role == Qt::CheckStateRole && m_kind == Kind::Tickable) {
        m_rows[static_cast<size_t>(index.row())].ticked = value.toInt() == Qt::Checked;
        emit dataChanged(index, index, {role});
        return true;
    }
    const QString before = entry(index.row()).name;
    if (role != Qt::EditRole || m_kind != Kind::Renameable || value.toString() == before)
        return false;
    if (m_rename)
        m_rename(before, value.toString());
    m_rows[static_cast<size_t>(index.row())].entry.name = value.toString();
    emit dataChanged(index, index);
    return true;
}

QVariant LayerStateListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    return role == Qt::DisplayRole ? layerStateText(kColumns[section].titleId) : QVariant();
}

Qt::ItemFlags LayerStateListModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    if (index.column() == Name)
        flags |= m_kind == Kind::Tickable ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable;
    return flags;
}
