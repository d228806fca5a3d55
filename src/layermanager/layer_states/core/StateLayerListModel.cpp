#include "layermanager/layer_states/core/StateLayerListModel.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "database/tables/OdDbLinetypeTableRecord.h"
#include "layermanager/layer_states/core/LayerStateTexts.h"
#include "layermanager/layers/LayerCells.h"
#include "sdk/IKestServicesManager.h"

using Info = LayerInfoInLS;
using enum StateLayerColumn;

namespace {

constexpr StateLayerListModel::ColumnInfo kColumns[] = {
    {Name, 84772, 102, 100, 0},
    {On, 84773, 105, 50, Info::kOn},
    {Freeze, 84774, 107, 50, Info::kFrozen},
    {Locked, 84775, 106, 50, Info::kLocked},
    {Color, 84776, 103, 50, 0},
    {Linetype, 84777, 104, 50, 0},
    {Lineweight, 84778, 108, 50, 0},
    {PlotStyle, 84779, 109, 50, 0},
    {Plot, 84780, 110, 50, Info::kPlottable},
    {NewVpFreeze, 84781, 112, 50, Info::kFrozenInNewViewports},
};

QString linetypeName(OdDbObjectId id)
{
    if (id.isNull() || id.isErased())
        return {};
    return id.safeOpenObject<OdDbLinetypeTableRecord>()->getName();
}

} // namespace

std::span<const StateLayerListModel::ColumnInfo> StateLayerListModel::columns()
{
    return kColumns;
}

std::optional<QString> StateLayerListModel::currentName(const Info& layer)
{
    if (layer.layerId.isNull() || layer.layerId.isErased())
        return std::nullopt;
    QString name = layer.layerId.safeOpenObject<OdDbLayerTableRecord>()->getName();
    if (name.contains(QLatin1Char('*')))
        return std::nullopt;
    return name;
}

void StateLayerListModel::show()
{
    std::vector<std::size_t> rows;
    for (std::size_t i = 0; i < m_layers.size(); ++i) {
        const std::optional<QString> name = currentName(m_layers[i]);
        if (!name)
            continue;
        m_layers[i].name = *name;
        rows.push_back(i);
    }
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

void StateLayerListModel::setLayers(std::vector<Info> layers)
{
    beginResetModel();
    m_rows.clear();
    m_layers = std::move(layers);
    endResetModel();
    show();
}

void StateLayerListModel::append(const std::vector<Info>& layers)
{
    m_layers.insert(m_layers.end(), layers.begin(), layers.end());
    show();
}

void StateLayerListModel::removeAtPositions(const std::vector<int>& rows)
{
    std::vector<Info> kept;
    kept.reserve(m_layers.size());
    auto next = rows.begin();
    for (std::size_t i = 0; i < m_layers.size(); ++i) {
        if (next != rows.end() && static_cast<std::size_t>(*next) == i)
            ++next;
        else
            kept.push_back(std::move(m_layers[i]));
    }
    setLayers(std::move(kept));
}

const Info& StateLayerListModel::layer(int row) const
{
    return m_layers[m_rows[static_cast<std::size_t>(row)]];
}

void StateLayerListModel::setLayer(int row, const Info& layer)
{
    m_layers[m_rows[static_cast<std::size_t>(row)]] = layer;
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void StateLayerListModel::toggle(int row, quint32 flag)
{
    Info changed = layer(row);
    changed.flags ^= flag;
    setLayer(row, changed);
}

int StateLayerListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int StateLayerListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(std::size(kColumns));
}

QString StateLayerListModel::text(const Info& layer, StateLayerColumn column)
{
    switch (column) {
    case Name:
        return layer.name;
    case Color:
        return layerColorText(OdCmColor::fromIndex(layer.color));
    case Linetype:
        return linetypeName(layer.linetypeId);
    case Lineweight: {
        const IKestServicesManager* services = getServicesManagerInterface();
        return services ? services->lineWeightText(layer.lineWeight) : QString();
    }
    case PlotStyle:
        return layer.plotStyleName;
    default:
        return {};
    }
}

QVariant StateLayerListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const ColumnInfo& column = kColumns[index.column()];
    const Info& shown = layer(index.row());
    if (role == Qt::DisplayRole)
        return text(shown, column.column);
    if (role == Qt::AccessibleTextRole && column.flag != 0)
        return layerStateText(shown.flags & column.flag ? 84529 : 84530);
    return {};
}

QVariant StateLayerListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    return role == Qt::DisplayRole ? layerStateText(kColumns[section].titleId) : QVariant();
}
