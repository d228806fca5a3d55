#include "layermanager/layers/LayerListModel.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTableRecord.h"

LayerListModel::LayerListModel(QObject* parent)
    : QAbstractTableModel(parent)
{ }

int LayerListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int LayerListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kLayerColumnCount;
}

OdDbObjectId LayerListModel::layerId(int row) const
{
    return row >= 0 && row < rowCount() ? m_rows[static_cast<std::size_t>(row)] : OdDbObjectId();
}

OdDbLayerTableRecordPtr LayerListModel::openRow(int row) const
{
    return layerId(row).openObject<OdDbLayerTableRecord>(OdDb::kForRead, true);
}

LayerStatus LayerListModel::status(const OdDbLayerTableRecord& layer) const
{
    const LayerStatus status = layerStatus(layer, m_context);
    const bool isNew = m_context.usageShown && m_newLayers.contains(layer.objectId().slot());
    return isNew && status == LayerStatus::InUse ? LayerStatus::NotInUse : status;
}

QVariant LayerListModel::data(const QModelIndex& index, int role) const
{
    const bool wanted =
        role == Qt::DisplayRole || role == Qt::ToolTipRole || role == Qt::AccessibleTextRole;
    if (!wanted || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto layer = openRow(index.row());
    if (!layer)
        return {};
    const auto column = static_cast<LayerColumn>(index.column());
    if (role != Qt::DisplayRole) {
        const QString state = role == Qt::AccessibleTextRole
            ? layerCellSpokenText(*layer, column, m_context)
            : layerCellStateText(*layer, column, m_context);
        if (!state.isEmpty())
            return state;
    }
    return layerCellText(*layer, column, m_context);
}

QVariant LayerListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= kLayerColumnCount)
        return {};
    const LayerColumnInfo& info = layerColumns()[static_cast<std::size_t>(section)];
    const bool icon = info.kind == LayerCellKind::StatusIcon || info.kind == LayerCellKind::Flag;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole: // columns are often narrower than their headers
        return info.headerText();
    case Qt::TextAlignmentRole:
        return QVariant::fromValue((icon ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter);
    default:
        return {};
    }
}

void LayerListModel::reset(Ids layers, LayerSortOrder order)
{
    sortLayers(layers, order, m_context);
    resetOrdered(std::move(layers));
}

void LayerListModel::resetOrdered(Ids layers)
{
    beginResetModel();
    m_rows = std::move(layers);
    m_index.reset();
    endResetModel();
}

void LayerListModel::reorder(LayerSortOrder order)
{
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    Ids layers;
    layers.reserve(static_cast<std::size_t>(before.size()));
    for (const QModelIndex& index : before)
        layers.push_back(layerId(index.row()));
    sortLayers(m_rows, order, m_context);
    m_index.reset();
    QModelIndexList after;
    after.reserve(before.size());
    for (qsizetype i = 0; i < before.size(); ++i)
        after.append(index(rowOf(layers[static_cast<std::size_t>(i)]), before[i].column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, VerticalSortHint);
}

void LayerListModel::insertLayer(OdDbObjectId layer, int row)
{
    Q_ASSERT(row >= 0 && row <= rowCount());
    beginInsertRows({}, row, row);
    m_rows.insert(m_rows.begin() + row, layer);
    m_index.inserted(layer, row, rowCount());
    endInsertRows();
}

void LayerListModel::appendLayers(const Ids& layers)
{
    if (layers.empty())
        return;
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(layers.size()) - 1);
    for (const OdDbObjectId layer : layers) {
        m_rows.push_back(layer);
        m_index.inserted(layer, rowCount() - 1, rowCount());
    }
    endInsertRows();
}

void LayerListModel::removeLayer(int row)
{
    Q_ASSERT(row >= 0 && row < rowCount());
    beginRemoveRows({}, row, row);
    m_rows.erase(m_rows.begin() + row);
    m_index.removed();
    endRemoveRows();
}

void LayerListModel::removeLayers(const Ids& layers)
{
    std::unordered_set<quint32> gone;
    for (const OdDbObjectId layer : layers)
        gone.insert(layer.slot());
    beginResetModel();
    std::erase_if(m_rows, [&](OdDbObjectId layer) { return gone.contains(layer.slot()); });
    m_index.reset();
    endResetModel();
}

bool LayerListModel::refreshRow(int row, OdDbObjectId layer)
{
    if (layerId(row).isNull() || !layer.openObject<OdDbLayerTableRecord>())
        return false;
    emit dataChanged(index(row, 0), index(row, kLayerColumnCount - 1));
    return true;
}

void LayerListModel::refreshAll()
{
    m_newLayers.clear();
    touchRows();
}

void LayerListModel::touchRows()
{
    if (!m_rows.empty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, kLayerColumnCount - 1));
}
