#include "layermanager/palette/pane/LayerSearch.h"

#include "base/WildcardPattern.h"
#include "database/drawing/OdDbDatabase.h"
#include "database/store/NameIndex.h"
#include "database/tables/OdDbLayerTable.h"
#include "database/tables/OdDbLayerTableRecord.h"
#include "layermanager/layers/LayerListing.h"

#include <algorithm>
#include <numeric>

namespace {

/// Layers with this character in their names belong to the program that made the drawing.

constexpr qsizetype kNameEstimate = 16; ///< characters, to begin with

bool isAscii(QByteArrayView text)
{
    return std::none_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
}

} // namespace

bool LayerSearch::isEverything(const QString& pattern)
{
    return pattern.isEmpty() || pattern == QLatin1String("~") || pattern == QLatin1String("*");
}

void LayerSearch::forget()
{
    m_hasNames = false;
    m_hasOrder = false;
    m_hasFilter = false;
}

void LayerSearch::forgetFilter()
{
    m_hasFilter = false;
    m_hasOrder = m_hasOrder && m_order.column == LayerColumn::Name;
}

void LayerSearch::read(const OdDbDatabase& database, LayerSortOrder order,
                       const LayerCellContext& context)
{
    if (!m_hasNames)
        readNames(database);
    const bool isSame = order.column == m_order.column && order.ascending == m_order.ascending;
    if (!m_hasNames || !m_hasOrder || !isSame)
        readOrder(order, context);
    m_hasNames = true;
    m_hasOrder = true;
}

void LayerSearch::readNames(const OdDbDatabase& database)
{
    const OdDbLayerTable& table = database.layerTable();
    const NameIndex& names = table.names();
    const std::vector<quint32>& ranks = table.nameRanks();
    std::vector<quint32> positions(ranks.size()); // in the order of names
    for (quint32 position = 0; position < names.size(); ++position)
        positions[ranks[position]] = position;
    m_layers.clear();
    m_layers.reserve(positions.size());
    m_text.clear();
    m_text.reserve(static_cast<qsizetype>(positions.size()) * kNameEstimate);
    QByteArrayView before;
    for (const quint32 position : positions) {
        const QByteArrayView key = names.key(position);
        if (!names.isActive(position) || key.contains(kHiddenLayerMark))
            continue;
        const OdDbObjectId id = database.idOfSlot(table.slotsInOrder()[position]);
        const auto begin = static_cast<quint32>(m_text.size());
        // The index has names folded as a whole; patterns fold them character by character.
        if (isAscii(key))
            m_text += QLatin1String(key.data(), key.size());
        else
            m_text += id.safeOpenObject<OdDbLayerTableRecord>()->getName();
        const auto length = static_cast<quint32>(m_text.size()) - begin;
        m_layers.push_back({id, begin, length, !m_layers.empty() && key == before});
        before = key;
    }
}

void LayerSearch::readOrder(LayerSortOrder order, const LayerCellContext& context)
{
    m_order = order;
    m_rows.resize(m_layers.size());
    std::iota(m_rows.begin(), m_rows.end(), 0u);
    if (order.column == LayerColumn::Name) {
        if (!order.ascending)
            std::reverse(m_rows.begin(), m_rows.end());
        return;
    }
    Ids ids;
    std::vector<quint32> rowOfSlot;
    for (std::size_t i = 0; i < m_layers.size(); ++i) {
        ids.push_back(m_layers[i].id);
        rowOfSlot.resize(std::max<std::size_t>(rowOfSlot.size(), ids.back().slot() + 1u));
        rowOfSlot[ids.back().slot()] = static_cast<quint32>(i);
    }
    sortLayers(ids, order, context);
    std::transform(ids.begin(), ids.end(), m_rows.begin(),
                   [&](OdDbObjectId id) { return rowOfSlot[id.slot()]; });
}

void LayerSearch::setFilter(const Ids& in, const Ids& other)
{
    std::fill(m_sides.begin(), m_sides.end(), None);
    note(in, In);
    note(other, Other);
    m_isFilterEmpty = in.empty() && other.empty();
    m_hasFilter = true;
}

void LayerSearch::note(const Ids& layers, Side side)
{
    for (const OdDbObjectId id : layers) {
        if (id.slot() >= m_sides.size())
            m_sides.resize(id.slot() + 1u, None);
        m_sides[id.slot()] = side;
    }
}

LayerSearch::Ids LayerSearch::matching(const QString& pattern, bool inverted) const
{
    const Side wanted = inverted ? Other : In;
    const bool all = isEverything(pattern);
    const WildcardPattern wildcard(pattern, Qt::CaseInsensitive);
    Ids found;
    found.reserve(m_rows.size());
    // Of layers with one name the first in the order of names that the filter shows is listed.
    const auto isRepeated = [&](quint32 row) {
        for (; m_layers[row].isDouble; --row) {
            const quint32 slot = m_layers[row - 1].id.slot();
            if (slot < m_sides.size() && m_sides[slot] == wanted)
                return true;
        }
        return false;
    };
    for (const quint32 row : m_rows) {
        const Layer& layer = m_layers[row];
        const quint32 slot = layer.id.slot();
        if (slot >= m_sides.size() || m_sides[slot] != wanted)
            continue;
        if (all || (wildcard.matches(nameOf(layer)) && !(layer.isDouble && isRepeated(row))))
            found.push_back(layer.id);
    }
    return found;
}
