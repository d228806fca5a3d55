#pragma once

#include "layermanager/layers/LayerRowIndex.h"
#include "layermanager/layers/LayerSort.h"

#include <QAbstractTableModel>

#include <unordered_set>
#include <vector>

class OdDbLayerTableRecord;

/// The rows of the layer grid. A row is a layer's id and nothing else: cells are read from the
/// drawing whenever somebody asks, so they are never stale.
class LayerListModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    using Ids = std::vector<OdDbObjectId>;

    explicit LayerListModel(QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    /// Texts under Qt::DisplayRole; states in words under the tool tip and accessibility roles.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    const LayerCellContext& context() const { return m_context; }
    /// Takes note of another current layer, viewport or space. Telling the views is the caller's
    /// part.
    void setContext(const LayerCellContext& context) { m_context = context; }

    const Ids& layers() const { return m_rows; }
    OdDbObjectId layerId(int row) const;
    /// The row of a layer, or -1.
    int rowOf(OdDbObjectId layer) const { return m_index.find(m_rows, layer); }
    /// The layer of a row, open for read; an erased one too, so that its row keeps its texts.
    OdSmartPtr<OdDbLayerTableRecord> openRow(int row) const;
    LayerStatus status(const OdDbLayerTableRecord& layer) const;

    /// Replaces all rows, ordered by `order`.
    void reset(Ids layers, LayerSortOrder order);
    /// Replaces all rows by layers that are in order already.
    void resetOrdered(Ids layers);
    /// Orders the rows; indexes, and with them the selection, go along.
    void reorder(LayerSortOrder order);
    void insertLayer(OdDbObjectId layer, int row);
    /// Puts layers behind the last row.
    void appendLayers(const Ids& layers);
    void removeLayer(int row);
    /// Takes many rows out at once; the views start anew.
    void removeLayers(const Ids& layers);

    /// Has the views read a row again; false when the layer cannot be opened.
    bool refreshRow(int row, OdDbObjectId layer);
    void refreshAll();
    /// Has the views read all rows again; new layers stay new.
    void touchRows();

    /// A layer just made counts as not in use until the next full refresh, without a usage pass.
    void markAsNew(OdDbObjectId layer) { m_newLayers.insert(layer.slot()); }
    bool isNew(OdDbObjectId layer) const { return m_newLayers.contains(layer.slot()); }
    void forgetNewLayers() { m_newLayers.clear(); }

private:
    Ids m_rows;
    LayerRowIndex m_index;
    LayerCellContext m_context;
    std::unordered_set<quint32> m_newLayers;
};
