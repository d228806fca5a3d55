#pragma once

#include "database/states/stored/LayerInfoInLS.h"

#include <QAbstractTableModel>

#include <optional>
#include <span>
#include <vector>

/// The columns of the list of a state's layers, by number.
enum class StateLayerColumn : int {
    Name,
    On,
    Freeze,
    Locked,
    Color,
    Linetype,
    Lineweight,
    PlotStyle,
    Plot,
    NewVpFreeze,
};

/// The layers recorded in a layer state, with their saved settings. Records of layers that are gone
/// or belong to programs ("*" in the name) have no row, so that rows and records may differ in
/// their positions.
class StateLayerListModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    struct ColumnInfo
    {
        StateLayerColumn column;
        int titleId; ///< resource id
        int identifier; ///< fixed number of the column
        int width; ///< in pixels
        quint32 flag; ///< of LayerInfoInLS that a flag column shows, else 0
    };
    static std::span<const ColumnInfo> columns();

    using QAbstractTableModel::QAbstractTableModel;

    const std::vector<LayerInfoInLS>& layers() const { return m_layers; }
    void setLayers(std::vector<LayerInfoInLS> layers);
    void append(const std::vector<LayerInfoInLS>& layers);
    /// Removes the records at the positions of those rows, ascending, whatever the rows show:
    /// deliberate.
    void removeAtPositions(const std::vector<int>& rows);

    /// The record that a row shows.
    const LayerInfoInLS& layer(int row) const;
    void setLayer(int row, const LayerInfoInLS& layer);
    void toggle(int row, quint32 flag);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    /// Reads the rows from the records. Raises OdError_NotThatKindOfClass where the layer of a
    /// record is none.
    void show();
    static std::optional<QString> currentName(const LayerInfoInLS& layer);
    static QString text(const LayerInfoInLS& layer, StateLayerColumn column);

    std::vector<LayerInfoInLS> m_layers;
    std::vector<std::size_t> m_rows; ///< positions of the records shown
};
