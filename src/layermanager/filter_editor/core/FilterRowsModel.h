#pragma once

#include "layermanager/filter_editor/core/FilterColumn.h"

#include <QAbstractTableModel>

/// The lines of the filter table: the rows of criteria and behind them, always, the blank entry
/// line.
class FilterRowsModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit FilterRowsModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    /// Values in words under the display and the tooltip role, column, line and value under the
    /// accessibility one.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Replaces all lines by these rows and the blank one.
    void start(LayerFilterRows rows);
    /// The blank line included, as BuildFilterExpression() takes them.
    const LayerFilterRows& rows() const { return m_rows; }
    const LayerFilterRow& line(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }
    bool isEntryLine(int row) const { return row == rowCount() - 1; }

    /// Writes one field, of the three values the one that the column holds. The entry line becomes
    /// a real one and gets a successor; a real line that is left without criteria goes. False where
    /// that is the value already, and for cells that hold none.
    bool setCell(const QModelIndex& cell, qint32 number, const QString& text, OdDbObjectId id);
    /// Makes a cell one that sets no criterion.
    bool clearCell(const QModelIndex& cell);
    /// The number of a cell; the one that sets no criterion where it holds none.
    qint32 number(const QModelIndex& cell) const;
    /// Whether a cell sets a criterion.
    bool isSet(const QModelIndex& cell) const;

    /// Makes the entry line a copy of a line.
    void duplicate(int row);
    /// Deletes the line `row` where exactly one is selected; of k selected ones those at the
    /// positions k-1 down to 1, whichever they are: that is deliberate. The entry line stays.
    /// False, and nothing is deleted, unless there are two real lines.
    bool remove(int row, int selected);

private:
    QString valueText(const QModelIndex& cell) const;
    QString spokenText(const QModelIndex& cell) const;
    void appendBlank();
    void removeLines(int first, int last);

    LayerFilterRows m_rows{1};
};
