#include "layermanager/layers/LayerSort.h"

#include "database/drawing/OdDbDatabase.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"

#include <QHash>

#include <algorithm>
#include <numeric>

namespace {

using LayerIds = std::vector<OdDbObjectId>;

/// Rank of each layer in the order of names.
std::vector<quint32> nameRanksOf(const LayerIds& layers)
{
    const OdDbLayerTable& table = layers.front().database()->layerTable();
    const std::vector<quint32>& slots_ = table.slotsInOrder();
    const std::vector<quint32>& ranks = table.nameRanks();
    std::vector<quint32> result(layers.size(), 0);
    if (slots_.empty())
        return result;
    // Slots of a table ascend, so their whole range serves as a direct index.
    const quint32 first = slots_.front();
    std::vector<quint32> rankBySlot(slots_.back() - first + 1, 0);
    for (std::size_t i = 0; i < slots_.size(); ++i)
        rankBySlot[slots_[i] - first] = ranks[i];
    for (std::size_t i = 0; i < layers.size(); ++i) {
        const quint32 offset = layers[i].slot() - first;
        result[i] = offset < rankBySlot.size() ? rankBySlot[offset] : 0;
    }
    return result;
}

/// Counting sort: ranks are smaller than the number of layers in the table.
void orderByName(LayerIds& layers, bool ascending)
{
    const std::vector<quint32> ranks = nameRanksOf(layers);
    const std::size_t top = *std::max_element(ranks.begin(), ranks.end());
    std::vector<quint32> place(top + 2, 0);
    const auto bucket = [&](std::size_t i) { return ascending ? ranks[i] : top - ranks[i]; };
    for (std::size_t i = 0; i < layers.size(); ++i)
        ++place[bucket(i) + 1];
    std::partial_sum(place.begin(), place.end(), place.begin());
    LayerIds ordered(layers.size());
    for (std::size_t i = 0; i < layers.size(); ++i)
        ordered[place[bucket(i)]++] = layers[i];
    layers = std::move(ordered);
}

/// Keys of text cells: the place of each text among the distinct ones, compared without case.
class TextKeys
{
public:
    quint32 add(const QString& text)
    {
        const auto it = m_numbers.constFind(text);
        if (it != m_numbers.cend())
            return *it;
        const auto number = static_cast<quint32>(m_folded.size());
        m_numbers.insert(text, number);
        m_folded.push_back(text.toCaseFolded());
        return number;
    }

    /// By number, the rank of the text.
    std::vector<quint32> ranks() const
    {
        std::vector<quint32> order(m_folded.size());
        std::iota(order.begin(), order.end(), 0u);
        std::sort(order.begin(), order.end(),
                  [this](quint32 a, quint32 b) { return m_folded[a] < m_folded[b]; });
        std::vector<quint32> result(order.size(), 0);
        quint32 rank = 0;
        for (std::size_t i = 0; i < order.size(); ++i) {
            if (i > 0 && m_folded[order[i]] != m_folded[order[i - 1]])
                ++rank;
            result[order[i]] = rank;
        }
        return result;
    }

private:
    QHash<QString, quint32> m_numbers;
    std::vector<QString> m_folded;
};

quint32 valueKey(const OdDbLayerTableRecord& layer, LayerColumn column,
                 const LayerCellContext& context)
{
    switch (layerColumnInfo(column).kind) {
    case LayerCellKind::StatusIcon:
        return static_cast<quint32>(layerStatus(layer, context));
    case LayerCellKind::Color:
        // VP Color too goes by the layer's own colour; deliberate.
        return layer.color().color();
    default:
        return layerCellFlag(layer, column, context) ? 1 : 0;
    }
}

std::vector<quint32> keysOf(const LayerIds& layers, LayerColumn column,
                            const LayerCellContext& context)
{
    const LayerCellKind kind = layerColumnInfo(column).kind;
    const bool byText = kind == LayerCellKind::Text || kind == LayerCellKind::Lineweight;
    std::vector<quint32> keys(layers.size(), 0);
    TextKeys texts;
    for (std::size_t i = 0; i < layers.size(); ++i) {
        const auto layer = layers[i].openObject<OdDbLayerTableRecord>(OdDb::kForRead, true);
        if (byText)
            keys[i] = texts.add(layer ? layerCellText(*layer, column, context) : QString());
        else if (layer)
            keys[i] = valueKey(*layer, column, context);
    }
    if (byText) {
        const std::vector<quint32> ranks = texts.ranks();
        for (quint32& key : keys)
            key = ranks[key];
    }
    return keys;
}

} // namespace

void sortLayers(LayerIds& layers, LayerSortOrder order, const LayerCellContext& context)
{
    if (layers.size() < 2)
        return;
    const bool byName = order.column == LayerColumn::Name;
    orderByName(layers, !byName || order.ascending);
    if (byName)
        return;
    const std::vector<quint32> keys = keysOf(layers, order.column, context);
    std::vector<std::pair<quint32, quint32>> rows(layers.size());
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] = {order.ascending ? keys[i] : ~keys[i], static_cast<quint32>(i)};
    std::sort(rows.begin(), rows.end());
    LayerIds ordered(layers.size());
    std::transform(rows.begin(), rows.end(), ordered.begin(),
                   [&](const auto& row) { return layers[row.second]; });
    layers = std::move(ordered);
}
