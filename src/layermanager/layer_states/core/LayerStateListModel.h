#pragma once

#include "sdk/layStateEntry.h"

#include <QAbstractTableModel>

#include <functional>
#include <span>
#include <vector>

/// Layer states as rows: a copy of what the service listed, changed by whoever changes the states.
class LayerStateListModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Name, Space, SameAsDrawing, Description };

    struct ColumnInfo
    {
        int titleId; ///< resource id
        int width; ///< at least, in pixels
    };
    static std::span<const ColumnInfo> columns();

    enum class Kind {
        Renameable, ///< names can be edited
        Tickable, ///< rows have check boxes, not ticked at first
    };
    explicit LayerStateListModel(Kind kind, QObject* parent = nullptr);

    void fill(std::vector<layStateEntry> entries);
    /// The row that the entry got.
    int append(const layStateEntry& entry);
    /// `rows` are ascending.
    void removeAll(const std::vector<int>& rows);
    void setSameAsDrawing(int row, bool same);
    void setDescription(int row, const QString& description);

    const layStateEntry& entry(int row) const { return m_rows[static_cast<size_t>(row)].entry; }
    QStringList names() const;
    bool isTicked(int row) const { return m_rows[static_cast<size_t>(row)].ticked; }
    /// Searches ignore case; -1 where nothing is found.
    int rowOf(const QString& name) const;
    int rowStartingWith(const QString& beginning) const;

    /// Called with the name before and after an edit; the row then shows the new one whatever
    /// happened.
    using Rename = std::function<void(const QString& oldName, const QString& newName)>;
    void setRename(Rename rename) { m_rename = std::move(rename); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Row
    {
        layStateEntry entry;
        bool ticked = false;
    };
    QString text(const layStateEntry& entry, int column) const;
    void removeAtOnce(const std::vector<int>& rows);

    Kind m_kind;
    std::vector<Row> m_rows;
    Rename m_rename;
};
