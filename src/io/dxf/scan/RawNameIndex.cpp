#include "io/dxf/scan/RawNameIndex.h"

#include <utility>

void RawNameIndex::insert(QByteArrayView name, quint32 number)
{
    if ((m_count + 1) * 2 > m_cells.size()) {
        const std::vector<Cell> old =
            std::exchange(m_cells, std::vector<Cell>(m_cells.empty() ? 64 : m_cells.size() * 4));
        for (const Cell& cell : old) {
            if (cell.number != kNotFound)
                place(cell);
        }
    }
    Cell cell;
    cell.hash = static_cast<quint32>(hash(name) >> 32);
    cell.offset = static_cast<quint32>(m_names.size());
    cell.length = static_cast<quint32>(name.size());
    cell.number = number;
    m_names.append(name.data(), static_cast<std::size_t>(name.size()));
    place(cell);
    ++m_count;
}

void RawNameIndex::place(const Cell& cell)
{
    const QByteArrayView name(m_names.data() + cell.offset, static_cast<qsizetype>(cell.length));
    const std::size_t mask = m_cells.size() - 1;
    std::size_t at = hash(name) & mask;
    while (m_cells[at].number != kNotFound)
        at = (at + 1) & mask;
    m_cells[at] = cell;
}
