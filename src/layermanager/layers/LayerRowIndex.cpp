#include "layermanager/layers/LayerRowIndex.h"

#include <algorithm>

void LayerRowIndex::inserted(OdDbObjectId layer, int row, int rowCount)
{
    const bool atEnd = row == rowCount - 1;
    if (!m_valid || layer.slot() < m_firstSlot || (!atEnd && ++m_insertions > kMaxShift)) {
        m_valid = false;
        return;
    }
    const quint32 offset = layer.slot() - m_firstSlot;
    if (offset >= m_rowBySlot.size())
        m_rowBySlot.resize(offset + 1, -1);
    m_rowBySlot[offset] = row;
}

void LayerRowIndex::removed()
{
    if (++m_removals > kMaxShift)
        m_valid = false;
}

int LayerRowIndex::find(const Rows& rows, OdDbObjectId layer) const
{
    if (layer.isNull() || rows.empty())
        return -1;
    if (!m_valid)
        build(rows);
    const quint32 offset = layer.slot() - m_firstSlot;
    if (layer.slot() < m_firstSlot || offset >= m_rowBySlot.size() || m_rowBySlot[offset] < 0)
        return -1;
    const int count = static_cast<int>(rows.size());
    const int first = std::max(0, m_rowBySlot[offset] - m_removals);
    const int last = std::min(count - 1, m_rowBySlot[offset] + m_insertions);
    for (int row = first; row <= last; ++row) {
        if (rows[static_cast<std::size_t>(row)] == layer)
            return row;
    }
    return -1;
}

void LayerRowIndex::build(const Rows& rows) const
{
    const auto bySlot = [](OdDbObjectId a, OdDbObjectId b) { return a.slot() < b.slot(); };
    const auto [low, high] = std::minmax_element(rows.begin(), rows.end(), bySlot);
    m_firstSlot = low->slot();
    m_rowBySlot.assign(high->slot() - m_firstSlot + 1, -1);
    for (std::size_t row = rows.size(); row-- > 0;)
        m_rowBySlot[rows[row].slot() - m_firstSlot] = static_cast<qint32>(row);
    m_insertions = 0;
    m_removals = 0;
    m_valid = true;
}
